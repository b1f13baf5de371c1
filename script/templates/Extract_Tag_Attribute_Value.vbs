
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tag_Attribute_Value ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the values of the attribute specified in the attributeName parameter from all tags that have it, one per line, with entities such as &amp; replaced by their characters. Letter case does not count in the name. The unique parameter can have one of the following values: 0 - all values are returned, 1 - equal values are returned once.
Function Extract_Tag_Attribute_Value ( text , attributeName , unique )

	Dim attributes, tags, pairs, tag, pair, value, known, chunk, separator

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)"

	Set tags = New RegExp
	tags.Pattern = "<!--(?:-?>|[\s\S]*?(?:--!?>|$))" & _
		"|<(script|style|textarea|title|xmp|iframe|noembed|noframes)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)" & _
		"|<[a-z][^\s\/<>=]*(?=[\s\/>])" & attributes & ">"
	tags.Global = True
	tags.IgnoreCase = True
	Set pairs = New RegExp
	pairs.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	pairs.Global = True
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Tag_Attribute_Value = ""
	If Len(attributeName) = 0 Then Exit Function
	chunk = ""
	separator = ""
	For Each tag In tags.Execute(text)
		If InStr(1, tag.Value, attributeName, 1) > 0 Then
			For Each pair In pairs.Execute(tag.SubMatches(1) & tag.SubMatches(2))
				If LCase(pair.SubMatches(0)) = LCase(attributeName) Then
					value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
					value = Html_Decode(value)
					If Not (CStr(unique) = "1" And known.Exists(value)) Then
						known(value) = True
						chunk = chunk & separator & value
						separator = vbNewLine
					End If
					Exit For
				End If
			Next
			If Len(chunk) > 4000 Then
				Extract_Tag_Attribute_Value = Extract_Tag_Attribute_Value & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Tag_Attribute_Value = Extract_Tag_Attribute_Value & chunk

End Function

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_Character.vbs}}
