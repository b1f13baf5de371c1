
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Unescape_String ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function replaces escape sequences of URLs and HTML by their characters: %XX (UTF-8, or Latin-1 where it is not valid UTF-8), %uXXXX, and entities such as &amp; or &#38;. Each sequence is replaced once, so %2526 gives %26; a plus sign and anything that is no sequence stay as they are.
Function Unescape_String ( text )

	Dim sequences, match, number, position, chunk

	' A run of %XX is one match, for its bytes belong together.
	Set sequences = New RegExp
	sequences.Pattern = "%u[0-9a-f]{4}|(?:%[0-9a-f]{2})+|&(?:#\d{1,7}|#x[0-9a-f]{1,6}|amp|lt|gt|quot|apos|nbsp);"
	sequences.Global = True
	sequences.IgnoreCase = True

	' Long results are put together from chunks, for each addition copies what is there.
	Unescape_String = ""
	chunk = ""
	position = 1
	For Each match In sequences.Execute(text)
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position)
		position = match.FirstIndex + match.Length + 1
		If Left(match.Value, 1) = "&" Then
			chunk = chunk & Unescape_String_Entity(match.Value)
		ElseIf LCase(Left(match.Value, 2)) = "%u" Then
			number = CLng("&H" & Mid(match.Value, 3, 2)) * 256 + CLng("&H" & Mid(match.Value, 5))
			chunk = chunk & Unescape_String_Code_Unit(number, match.Value)
		Else
			chunk = chunk & Unescape_String_Bytes(match.Value)
		End If
		If Len(chunk) > 4000 Then
			Unescape_String = Unescape_String & chunk
			chunk = ""
		End If
	Next
	Unescape_String = Unescape_String & chunk & Mid(text, position)

End Function

' The text of a run of %XX sequences.
Function Unescape_String_Bytes ( run )

	Dim chunk, position, number

	Unescape_String_Bytes = ""
	chunk = ""
	position = 1
	Do While position < Len(run)
		number = CLng("&H" & Mid(run, position + 1, 2))
		If number < 128 Then
			chunk = chunk & Chr(number)
			position = position + 3
		Else
			chunk = chunk & Unescape_String_Multibyte(run, position, number)
		End If
		If Len(chunk) > 4000 Then
			Unescape_String_Bytes = Unescape_String_Bytes & chunk
			chunk = ""
		End If
	Loop
	Unescape_String_Bytes = Unescape_String_Bytes & chunk

End Function

' The character whose first byte, with the given number, is at that position, which moves behind it.
Function Unescape_String_Multibyte ( run , position , number )

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

	Unescape_String_Multibyte = Unescape_String_Character(part, Mid(run, position, 3 * count))
	position = position + 3 * count

End Function

' A UTF-16 code unit, halves of pairs among them; the given text when the engine lacks ChrW.
Function Unescape_String_Code_Unit ( number , otherwise )

	Unescape_String_Code_Unit = otherwise
	On Error Resume Next
	If number < 128 Then
		Unescape_String_Code_Unit = Chr(number)
	Else
		Unescape_String_Code_Unit = ChrW(number)
	End If

End Function

' The character that an entity stands for; other names than these, and what the engine cannot write, stay as they are.
Function Unescape_String_Entity ( entity )

	Dim number

	Select Case LCase(entity)
		Case "&amp;"
			Unescape_String_Entity = "&"
		Case "&lt;"
			Unescape_String_Entity = "<"
		Case "&gt;"
			Unescape_String_Entity = ">"
		Case "&quot;"
			Unescape_String_Entity = """"
		Case "&apos;"
			Unescape_String_Entity = "'"
		Case "&nbsp;"
			Unescape_String_Entity = " "
		Case Else
			If LCase(Mid(entity, 3, 1)) = "x" Then
				' In two parts, for &HFFFF would be -1.
				number = Right("00000" & Mid(entity, 4, Len(entity) - 4), 6)
				number = CLng("&H" & Left(number, 4)) * 256 + CLng("&H" & Right(number, 2))
			Else
				number = CLng(Mid(entity, 3, Len(entity) - 3))
			End If
			Unescape_String_Entity = Unescape_String_Character(number, entity)
	End Select

End Function

' The character of that number, or the given text when there is none or the engine lacks ChrW.
Function Unescape_String_Character ( number , otherwise )

	Unescape_String_Character = otherwise
	If number < 1 Or number > 1114111 Or (number >= 55296 And number <= 57343) Then Exit Function

	On Error Resume Next
	If number < 128 Then
		Unescape_String_Character = Chr(number)
	ElseIf number < 65536 Then
		Unescape_String_Character = ChrW(number)
	Else
		Unescape_String_Character = ChrW(55296 + (number - 65536) \ 1024) & ChrW(56320 + (number - 65536) Mod 1024)
	End If

End Function
