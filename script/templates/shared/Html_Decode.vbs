' The text with the characters of entities and of what "others" finds, whose codes are known.
Function Html_Decode ( text , others , known )

	Dim match, part, code, char, chunk, position

	On Error Resume Next
	If Not known.Exists("&lt;") Then Html_Entities known
	For Each match In Html_RegExp("&#0*(\d{1,7});|&#x0*([\da-f]{1,6});|&\w+;" & others, known).Execute(text)
		Set part = match.SubMatches
		char = match.Value
		code = known(char)
		If part(0) & part(1) <> "" Then
			code = CLng("&H1" & Right("00000" & part(1), 6)) - 16777216
			If part(0) <> "" Then code = CLng(part(0))
			' Pages mean Windows-1252 by these.
			If code > 127 And code < 160 Then code = CLng(Mid("83640129821804020822823082248225071082400352824903380141038101430144821682178220822182268211821207328482035382500339015703820376", code * 4 - 511, 4))
			If code = 0 Or code > 1114111 Or code > 55295 And code < 57344 Then code = 65533
		End If
		If code = 160 Then char = " "
		' Without ChrW this fails and the sequence stays.
		If code > 127 Then char = ChrW(code)
		If code > 65535 Then char = ChrW(55232 + code \ 1024) & ChrW(56320 + code Mod 1024)
		If code < 128 And Not IsEmpty(code) Then char = Chr(code)
		chunk = chunk & Mid(text, position + 1, match.FirstIndex - position) & char
		position = match.FirstIndex + match.Length
		' Few additions to the long text: each copies it.
		If Len(chunk) > 4000 Then Html_Decode = Html_Decode & chunk : chunk = ""
	Next
	Html_Decode = Html_Decode & chunk & Mid(text, position + 1)

End Function
