
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

{{INCLUDE Bytes.vbs}}

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

{{INCLUDE Entity.vbs}}

{{INCLUDE Character.vbs}}
