' An expression for the sequences %uXXXX and %XX (UTF-8, otherwise Latin-1); the codes of those in the text become known.
Function Url_Sequences ( text , known )

	Dim match, code, octet

	Url_Sequences = "%u[\da-f]{4}|%(?:[0-7]x|(?:c[2-9a-f]|dx)t|(?:e0(?=%[ab])|e[1-9abcef]|ed(?=%[89]))tt|" & _
		"(?:f0(?=%[9ab])|f[1-3]|f4(?=%8))ttt|xx)"
	Url_Sequences = Replace(Replace(Url_Sequences, "t", "%[89ab]x"), "x", "[\da-f]")
	For Each match In Html_RegExp(Url_Sequences, known).Execute(text)
		code = 0
		If match.Length = 6 And InStr(1, match.Value, "u", 1) = 2 Then
			code = CLng("&H1" & Mid(match.Value, 3)) - 65536
		Else
			For Each octet In Split(Mid(match.Value, 2), "%")
				code = code * 64 + CLng("&H" & octet)
			Next
			' What the upper bits of two, three and four bytes add.
			If match.Length = 6 Then code = code - 12416
			If match.Length = 9 Then code = code - 925824
			If match.Length = 12 Then code = code - 63447168
		End If
		known(match.Value) = code
	Next

End Function
