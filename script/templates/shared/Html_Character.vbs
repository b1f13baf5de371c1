' The character of that number; the given text, or a space for a no-break one, when the engine lacks ChrW.
Function Html_Character ( code , otherwise )

	Html_Character = otherwise
	If code = 160 Then Html_Character = " "
	On Error Resume Next
	If code >= 65536 Then
		Html_Character = ChrW(55296 + (code - 65536) \ 1024) & ChrW(56320 + (code - 65536) Mod 1024)
	ElseIf code >= 128 Then
		Html_Character = ChrW(code)
	ElseIf code >= 0 Then
		Html_Character = Chr(code)
	End If

End Function
