
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Strip_Html_Tags_2 ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function turns HTML into plain text as a browser shows it: comments, scripts and styles are removed, line breaks and the beginnings and ends of paragraphs, headings, list items, table rows and other blocks start a new line, other tags are removed, white space is reduced to single spaces, blank lines are left out and entities such as &amp; are replaced by their characters.
Function Strip_Html_Tags_2 ( text )

	Dim expression, attributes, plain

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "[^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*"

	Set expression = New RegExp
	expression.Global = True
	expression.IgnoreCase = True

	expression.Pattern = "\s+"
	plain = expression.Replace(text, " ")
	expression.Pattern = "<!--[\s\S]*?(?:-->|$)|<[!?][^>]*>" & _
		"|<(script|style)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)"
	plain = expression.Replace(plain, "")
	expression.Pattern = "<\/?(?:address|article|aside|blockquote|body|br|caption|dd|div|dl|dt|fieldset|figure|footer|form" & _
		"|h[1-6]|header|hr|html|legend|li|main|nav|ol|option|p|pre|section|select|table|tbody|tfoot|thead|title|tr|ul)" & _
		"(?=[\s\/>])" & attributes & ">"
	plain = expression.Replace(plain, vbLf)
	expression.Pattern = "<\/?t[dh](?=[\s\/>])" & attributes & ">"
	plain = expression.Replace(plain, " ")
	expression.Pattern = "<\/?[a-z]" & attributes & ">"
	plain = expression.Replace(plain, "")

	' Only single spaces and line feeds are left between words.
	expression.Pattern = " +"
	plain = expression.Replace(plain, " ")
	expression.Pattern = " ?\n[ \n]*"
	plain = expression.Replace(plain, vbNewLine)
	expression.Pattern = "\S(?:[\s\S]*\S)?"
	Strip_Html_Tags_2 = ""
	If expression.Test(plain) Then Strip_Html_Tags_2 = Strip_Html_Tags_2_Decode(expression.Execute(plain)(0).Value)

End Function

' The text with each entity replaced by its character.
Function Strip_Html_Tags_2_Decode ( text )

	Dim chunk, position, match, entities

	Set entities = New RegExp
	entities.Pattern = "&(?:#\d{1,7}|#x[0-9a-f]{1,6}|amp|lt|gt|quot|apos|nbsp);"
	entities.Global = True
	entities.IgnoreCase = True

	Strip_Html_Tags_2_Decode = ""
	chunk = ""
	position = 1
	For Each match In entities.Execute(text)
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position) & Strip_Html_Tags_2_Entity(match.Value)
		position = match.FirstIndex + match.Length + 1
		If Len(chunk) > 4000 Then
			Strip_Html_Tags_2_Decode = Strip_Html_Tags_2_Decode & chunk
			chunk = ""
		End If
	Next
	Strip_Html_Tags_2_Decode = Strip_Html_Tags_2_Decode & chunk & Mid(text, position)

End Function

' The character that an entity stands for; other names than these, and what the engine cannot write, stay as they are.
Function Strip_Html_Tags_2_Entity ( entity )

	Dim number

	Select Case LCase(entity)
		Case "&amp;"
			Strip_Html_Tags_2_Entity = "&"
		Case "&lt;"
			Strip_Html_Tags_2_Entity = "<"
		Case "&gt;"
			Strip_Html_Tags_2_Entity = ">"
		Case "&quot;"
			Strip_Html_Tags_2_Entity = """"
		Case "&apos;"
			Strip_Html_Tags_2_Entity = "'"
		Case "&nbsp;"
			Strip_Html_Tags_2_Entity = " "
		Case Else
			If LCase(Mid(entity, 3, 1)) = "x" Then
				' In two parts, for &HFFFF would be -1.
				number = Right("00000" & Mid(entity, 4, Len(entity) - 4), 6)
				number = CLng("&H" & Left(number, 4)) * 256 + CLng("&H" & Right(number, 2))
			Else
				number = CLng(Mid(entity, 3, Len(entity) - 3))
			End If
			Strip_Html_Tags_2_Entity = Strip_Html_Tags_2_Character(number, entity)
	End Select

End Function

' The character of that number, or the given text when there is none or the engine lacks ChrW.
Function Strip_Html_Tags_2_Character ( number , otherwise )

	Strip_Html_Tags_2_Character = otherwise
	If number < 1 Or number > 1114111 Or (number >= 55296 And number <= 57343) Then Exit Function

	On Error Resume Next
	If number < 128 Then
		Strip_Html_Tags_2_Character = Chr(number)
	ElseIf number < 65536 Then
		Strip_Html_Tags_2_Character = ChrW(number)
	Else
		Strip_Html_Tags_2_Character = ChrW(55296 + (number - 65536) \ 1024) & ChrW(56320 + (number - 65536) Mod 1024)
	End If

End Function
