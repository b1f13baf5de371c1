' The text with each sequence %XX (UTF-8, otherwise Latin-1) and what the other expression finds replaced by its character.
Function Url_Decode ( text , others )

	Dim sequences, match, position, chunk, code, octet, count

	Set sequences = New RegExp
	sequences.Pattern = others & "%(?:[0-7]x|(?:c[2-9a-f]|dx)t|(?:e0(?=%[ab])|e[1-9abcef]|ed(?=%[89]))tt|" & _
		"(?:f0(?=%[9ab])|f[1-3]|f4(?=%8))ttt|xx)"
	sequences.Pattern = Replace(Replace(sequences.Pattern, "t", "%[89ab]x"), "x", "[\da-f]")
	sequences.Global = True
	sequences.IgnoreCase = True

	Url_Decode = ""
	position = 1
	For Each match In sequences.Execute(text)
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position)
		position = match.FirstIndex + match.Length + 1
		If Left(match.Value, 1) = "&" Then
			chunk = chunk & Html_Decode(match.Value)
		Else
			code = 0
			If LCase(Mid(match.Value, 2, 1)) = "u" Then
				code = CLng("&H" & Mid(match.Value, 3, 2)) * 256 + CLng("&H" & Mid(match.Value, 5))
			Else
				For Each octet In Split(Mid(match.Value, 2), "%")
					code = code * 64 + CLng("&H" & octet)
				Next
				' What the bytes' upper bits add.
				If match.Length = 6 Then code = code - 12416
				If match.Length = 9 Then code = code - 925824
				If match.Length = 12 Then code = code - 63447168
			End If
			chunk = chunk & Html_Character(code, match.Value)
		End If
		If Len(chunk) > 4000 Then
			Url_Decode = Url_Decode & chunk
			chunk = ""
		End If
	Next
	Url_Decode = Url_Decode & chunk & Mid(text, position)

End Function
