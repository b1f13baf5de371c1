
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
	expression.Pattern = "<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>" & _
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
	If expression.Test(plain) Then Strip_Html_Tags_2 = Html_Decode(expression.Execute(plain)(0).Value)

End Function

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_Character.vbs}}
