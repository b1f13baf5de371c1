' The character of that number, or the given text when there is none or the engine lacks ChrW.
Function {{HELPER_NAME}}_Character ( number , otherwise )

	{{HELPER_NAME}}_Character = otherwise
	If number < 1 Or number > 1114111 Or (number >= 55296 And number <= 57343) Then Exit Function

	On Error Resume Next
	If number < 128 Then
		{{HELPER_NAME}}_Character = Chr(number)
	ElseIf number < 65536 Then
		{{HELPER_NAME}}_Character = ChrW(number)
	Else
		{{HELPER_NAME}}_Character = ChrW(55296 + (number - 65536) \ 1024) & ChrW(56320 + (number - 65536) Mod 1024)
	End If

End Function
