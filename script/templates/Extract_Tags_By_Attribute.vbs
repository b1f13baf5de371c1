
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_By_Attribute ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element with the tag name specified in the tagName parameter (empty - any) that has the attribute specified in the attributeName parameter (empty - no attribute is needed) with the value specified in the attributeValue parameter (empty - any value). Letter case counts in the value only, which is compared as a whole. The result is empty when there is no such element.
Function Extract_Tags_By_Attribute ( text , tagName , attributeName , attributeValue )

	Dim index, found, names, elements, starts, ends, wantedName, value, pairs, first, chunk, separator

	elements = Extract_Tags_By_Attribute_Elements(text)
	names = elements(1)
	starts = elements(2)
	ends = elements(3)
	Set pairs = Extract_Tags_By_Attribute_Pairs()
	wantedName = LCase(tagName)

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Tags_By_Attribute = ""
	chunk = ""
	separator = ""
	For index = 1 To elements(0)
		found = names(index) = wantedName Or wantedName = "" Or wantedName = "*"
		If found And Len(attributeName) > 0 Then
			value = Extract_Tags_By_Attribute_Attribute(starts(index), attributeName, pairs)
			found = Not IsNull(value)
			If found And Len(attributeValue) > 0 Then found = value = attributeValue
		End If
		If found Then
			first = starts(index).FirstIndex + 1
			chunk = chunk & separator & Mid(text, first, ends(index) - first)
			separator = vbNewLine
			If Len(chunk) > 4000 Then
				Extract_Tags_By_Attribute = Extract_Tags_By_Attribute & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Tags_By_Attribute = Extract_Tags_By_Attribute & chunk

End Function

' The elements of a text in the order of their beginnings, as an array: how many they are; their names in lower case; the
' matches of their start tags, with attributes in SubMatches 2, 4 and 6; the positions after them; their parents. The
' first element is number 1, and 0 the parent of those that have none. Elements without an end tag end with the one
' around them, or where the next one of their kind begins.
Function Extract_Tags_By_Attribute_Elements ( text )

	Dim parts, name, closing, current, token, count, names, parents, sameName, starts, ends, openOnes
	Dim attributes, tags, endedByNext, endsBefore, endsItself, tokens, outer, isEnd

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "(?=[\s\/>])([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)"

	' Comments; end tags; elements whose content is no markup, or that have none; other start tags.
	Set tags = New RegExp
	tags.Pattern = "<!--[\s\S]*?(?:-->|$)|<\/([a-z][^\s\/<>]*)[^<>]*>" & _
		"|<(script|style|textarea|title)" & attributes & ">[\s\S]*?(?:<\/\2[^>]*>|$)" & _
		"|<(area|base|br|col|embed|hr|img|input|link|meta|param|source|track|wbr)" & attributes & ">" & _
		"|<([a-z][^\s\/<>=]*)" & attributes & ">"
	tags.Global = True
	tags.IgnoreCase = True
	' The slash of a tag such as <path/>, which belongs to no value.
	Set endsItself = New RegExp
	endsItself.Pattern = "(?:^|[\s""'])\/$"
	' Elements that the beginning of another one may end, and the names of both.
	endedByNext = " li dd dt option optgroup td th tr thead tbody p "
	Set endsBefore = New RegExp
	endsBefore.Pattern = "^(?:li li|d[dt] d[dt]|option opt(?:ion|group)|optgroup optgroup|t[dh] t(?:[dhr]|body|foot)" & _
		"|tr t(?:r|body|foot)|t(?:head|body) t(?:body|foot)|p (?:address|article|aside|blockquote|div|dl|fieldset|figure" & _
		"|footer|form|h[1-6r]|header|main|nav|ol|p|pre|section|table|ul))$"

	Set tokens = tags.Execute(text)
	ReDim names(tokens.Count)
	ReDim starts(tokens.Count)
	ReDim ends(tokens.Count)
	ReDim parents(tokens.Count)
	ReDim sameName(tokens.Count)
	' The innermost open element of each name; "sameName" holds the next one out.
	Set openOnes = CreateObject("Scripting.Dictionary")
	count = 0
	current = 0

	For Each token In tokens
		Set parts = token.SubMatches
		isEnd = Len(parts(0)) > 0
		name = LCase(parts(0) & parts(1) & parts(3) & parts(5))

		' The element that ends here, and with it all that are open within it.
		closing = 0
		If isEnd Then
			closing = openOnes(name)
			If closing <> current Then
				' Within a table's cell only the end tags of a table's parts reach out of it.
				If closing < openOnes("td") Or closing < openOnes("th") Then
					If InStr(" td th tr table thead tbody tfoot body html ", " " & name & " ") = 0 Then closing = 0
				End If
			End If
		ElseIf InStr(endedByNext, " " & names(current) & " ") > 0 Then
			outer = current
			Do While endsBefore.Test(names(outer) & " " & name)
				closing = outer
				outer = parents(outer)
			Loop
		End If
		If closing > 0 Then
			Do While current >= closing
				ends(current) = token.FirstIndex + 1
				openOnes(names(current)) = sameName(current)
				current = parents(current)
			Loop
			If isEnd Then ends(closing) = token.FirstIndex + token.Length + 1
		End If

		If Not isEnd And Len(name) > 0 Then
			count = count + 1
			names(count) = name
			Set starts(count) = token
			parents(count) = current
			If Len(parts(5)) = 0 Or endsItself.Test(parts(6)) Then
				ends(count) = token.FirstIndex + token.Length + 1
			Else
				sameName(count) = openOnes(name)
				openOnes(name) = count
				current = count
			End If
		End If
	Next

	Do While current > 0
		ends(current) = Len(text) + 1
		current = parents(current)
	Loop
	Extract_Tags_By_Attribute_Elements = Array(count, names, starts, ends, parents)

End Function

' The value of an attribute of the element that begins with the given tag, Null when there is none of that name.
Function Extract_Tags_By_Attribute_Attribute ( start , name , pairs )

	Dim attributes, pair, value

	Extract_Tags_By_Attribute_Attribute = Null
	attributes = start.SubMatches(2) & start.SubMatches(4) & start.SubMatches(6)
	If InStr(1, attributes, name, 1) = 0 Then Exit Function

	For Each pair In pairs.Execute(attributes)
		If LCase(pair.SubMatches(0)) = LCase(name) Then
			value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
			If InStr(value, "&") > 0 Then
				value = Replace(Replace(Replace(Replace(value, "&lt;", "<"), "&gt;", ">"), "&quot;", """"), "&#39;", "'")
				value = Replace(value, "&amp;", "&")
			End If
			Extract_Tags_By_Attribute_Attribute = value
			Exit Function
		End If
	Next

End Function

' Finds the attributes in what follows the name in a tag.
Function Extract_Tags_By_Attribute_Pairs ( )

	Dim expression

	Set expression = New RegExp
	expression.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	expression.Global = True
	Set Extract_Tags_By_Attribute_Pairs = expression

End Function
