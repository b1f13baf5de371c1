
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_By_Attribute ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element with the tag name specified in the tagName parameter (empty - any) that has the attribute specified in the attributeName parameter (empty - no attribute is needed) with the value specified in the attributeValue parameter (empty - any value). Letter case counts in the value only, which is compared as a whole. The result is empty when there is no such element.
Function Extract_Tags_By_Attribute ( text , tagName , attributeName , attributeValue )

	Dim elements, index, value, found, chunk, separator

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Tags_By_Attribute = ""
	chunk = ""
	separator = ""
	elements = Extract_Tags_By_Attribute_Elements(text)
	For index = 0 To elements(0) - 1
		found = Len(tagName) = 0 Or tagName = "*" Or elements(1)(index) = LCase(tagName)
		If found And Len(attributeName) > 0 Then
			value = Extract_Tags_By_Attribute_Attribute(elements(2)(index), attributeName)
			If IsNull(value) Then
				found = False
			Else
				found = Len(attributeValue) = 0 Or value = attributeValue
			End If
		End If
		If found Then
			chunk = chunk & separator & Mid(text, elements(3)(index), elements(4)(index) - elements(3)(index))
			separator = vbNewLine
			If Len(chunk) > 4000 Then
				Extract_Tags_By_Attribute = Extract_Tags_By_Attribute & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Tags_By_Attribute = Extract_Tags_By_Attribute & chunk

End Function

' The elements of a text in the order of their beginnings, as an array: their number, names in lower case, attributes, first
' positions, positions after them, and parents (-1 for none). Elements without an end tag end with the one around them,
' or where the next one of their kind begins.
Function Extract_Tags_By_Attribute_Elements ( text )

	Dim attributes, tags, noContent, endsBefore, tableParts, tokens, token, name, endTag, count, current, closing, cell
	Dim names, attributeTexts, firsts, ends, parents, sameName, openOnes

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)"

	' Comments, elements whose content is no markup, all other tags.
	Set tags = New RegExp
	tags.Pattern = "<!--[\s\S]*?(?:-->|$)" & _
		"|<(script|style|textarea|title)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)" & _
		"|<(\/?)([a-z][^\s\/<>=]*)(?=[\s\/>])" & attributes & ">"
	tags.Global = True
	tags.IgnoreCase = True
	Set noContent = New RegExp
	noContent.Pattern = "^(?:area|base|br|col|embed|hr|img|input|link|meta|param|source|track|wbr) |[\s""']\/$"
	' An open element and a new one that ends it.
	Set endsBefore = New RegExp
	endsBefore.Pattern = "^(?:li li|d[dt] d[dt]|option opt(?:ion|group)|optgroup optgroup|t[dh] t(?:[dhr]|body|foot)" & _
		"|tr t(?:r|body|foot)|t(?:head|body) t(?:body|foot)|p (?:address|article|aside|blockquote|div|dl|fieldset|figure" & _
		"|footer|form|h[1-6r]|header|main|nav|ol|p|pre|section|table|ul))$"
	' The end tags that may end a table's cell from within.
	Set tableParts = New RegExp
	tableParts.Pattern = "^(?:t[dhr]|table|thead|tbody|tfoot|body|html)$"

	Set tokens = tags.Execute(text)
	ReDim names(tokens.Count)
	ReDim attributeTexts(tokens.Count)
	ReDim firsts(tokens.Count)
	ReDim ends(tokens.Count)
	ReDim parents(tokens.Count)
	ReDim sameName(tokens.Count)
	Set openOnes = CreateObject("Scripting.Dictionary")
	openOnes("td") = -1
	openOnes("th") = -1
	count = 0
	current = -1

	For Each token In tokens
		name = LCase(token.SubMatches(0) & token.SubMatches(3))
		endTag = token.SubMatches(2) = "/"
		closing = -1
		If endTag And openOnes.Exists(name) Then
			closing = openOnes(name)
			cell = openOnes("td")
			If openOnes("th") > cell Then cell = openOnes("th")
			If closing < cell And Not tableParts.Test(name) Then closing = -1
		ElseIf Len(name) > 0 And Not endTag And current >= 0 Then
			cell = current
			Do While endsBefore.Test(names(cell) & " " & name)
				closing = cell
				cell = parents(cell)
				If cell < 0 Then Exit Do
			Loop
		End If

		' Ends the element "closing" with all that are open within it.
		If closing >= 0 Then
			Do
				ends(current) = token.FirstIndex + 1
				If endTag And current = closing Then ends(current) = ends(current) + token.Length
				openOnes(names(current)) = sameName(current)
				cell = current
				current = parents(current)
			Loop Until cell = closing
		End If

		If Len(name) > 0 And Not endTag Then
			names(count) = name
			attributeTexts(count) = token.SubMatches(1) & token.SubMatches(4)
			firsts(count) = token.FirstIndex + 1
			parents(count) = current
			If Len(token.SubMatches(0)) > 0 Or noContent.Test(name & " " & attributeTexts(count)) Then
				ends(count) = token.FirstIndex + token.Length + 1
			Else
				ends(count) = Len(text) + 1
				sameName(count) = -1
				If openOnes.Exists(name) Then sameName(count) = openOnes(name)
				openOnes(name) = count
				current = count
			End If
			count = count + 1
		End If
	Next

	Extract_Tags_By_Attribute_Elements = Array(count, names, attributeTexts, firsts, ends, parents)

End Function

' The value of an attribute, Null when there is none of that name.
Function Extract_Tags_By_Attribute_Attribute ( attributes , name )

	Dim pairs, pair, value

	Extract_Tags_By_Attribute_Attribute = Null
	If InStr(1, attributes, name, 1) = 0 Then Exit Function

	Set pairs = New RegExp
	pairs.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	pairs.Global = True
	For Each pair In pairs.Execute(attributes)
		If LCase(pair.SubMatches(0)) = LCase(name) Then
			value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
			value = Replace(Replace(Replace(Replace(value, "&lt;", "<"), "&gt;", ">"), "&quot;", """"), "&#39;", "'")
			Extract_Tags_By_Attribute_Attribute = Replace(value, "&amp;", "&")
			Exit Function
		End If
	Next

End Function
