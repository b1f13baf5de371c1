' The text of a run of %XX sequences.
Function {{HELPER_NAME}}_Bytes ( run )

	Dim chunk, position, number

	{{HELPER_NAME}}_Bytes = ""
	chunk = ""
	position = 1
	Do While position < Len(run)
		number = CLng("&H" & Mid(run, position + 1, 2))
		If number < 128 Then
			chunk = chunk & Chr(number)
			position = position + 3
		Else
			chunk = chunk & {{HELPER_NAME}}_Multibyte(run, position, number)
		End If
		If Len(chunk) > 4000 Then
			{{HELPER_NAME}}_Bytes = {{HELPER_NAME}}_Bytes & chunk
			chunk = ""
		End If
	Loop
	{{HELPER_NAME}}_Bytes = {{HELPER_NAME}}_Bytes & chunk

End Function

' The character whose first byte, with the given number, is at that position, which moves behind it.
Function {{HELPER_NAME}}_Multibyte ( run , position , number )

	Dim count, part, index, following

	' How many bytes the first one asks for, and its share of the number.
	count = 1
	part = number
	If number >= 194 And number <= 223 Then
		count = 2
		part = number - 192
	ElseIf number >= 224 And number <= 239 Then
		count = 3
		part = number - 224
	ElseIf number >= 240 And number <= 244 Then
		count = 4
		part = number - 240
	End If
	For index = 1 To count - 1
		If position + 3 * index > Len(run) Then
			part = -1
			Exit For
		End If
		following = CLng("&H" & Mid(run, position + 3 * index + 1, 2))
		If following < 128 Or following > 191 Then
			part = -1
			Exit For
		End If
		part = part * 64 + (following And 63)
	Next

	' Numbers that have a shorter form, or are halves of pairs, are no valid UTF-8.
	If count = 3 And part < 2048 Or count = 4 And part < 65536 Then part = -1
	If part > 1114111 Or (part >= 55296 And part <= 57343) Then part = -1
	If part < 0 Then
		count = 1
		part = number
	End If

	{{HELPER_NAME}}_Multibyte = {{HELPER_NAME}}_Character(part, Mid(run, position, 3 * count))
	position = position + 3 * count

End Function
