
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Strip_Html_Tags ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function removes all HTML tags, together with comments and the contents of script and style elements, and leaves the text between them as it is; nothing is put in the place of a tag, and entities such as &amp; stay.
Function Strip_Html_Tags ( text )

	Dim expression, attributes

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "[^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*"

	Set expression = New RegExp
	expression.Pattern = "<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>" & _
		"|<(script|style)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)" & _
		"|<\/?[a-z]" & attributes & ">"
	expression.Global = True
	expression.IgnoreCase = True
	Strip_Html_Tags = expression.Replace(text, "")

End Function
