
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_Using_CSS_Selector ( text , "%PARAM_1%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element that the CSS selector specified in the strCSSSelector parameter selects. A selector may consist of tag names, *, #id, .class and attribute tests such as [name] or [name^="value"] (operators = ~= |= ^= $= *=), joined by spaces (descendants) or > (children); commas separate several selectors. The result is empty when nothing is selected or the selector is not of this form.
Function Extract_Tags_Using_CSS_Selector ( text , strCSSSelector )

	Dim elements, parts, part, count, index, parent, tests, candidates, within, selected, chunk, separator

	Extract_Tags_Using_CSS_Selector = ""

	' Comma or >; spaces; tag name; # or . with a name; test of an attribute; anything else.
	Set parts = New RegExp
	parts.Pattern = "\s*([,>])\s*|(\s+)|(\*|[a-z_][\w-]*)|([#.])([\w\u0080-\uffff-]+)" & _
		"|\[\s*([\w:.-]+)\s*(?:([~|^$*]?=)\s*(?:""([^""]*)""|'([^']*)'|([^\s\]""']+))\s*)?\]|([\s\S])"
	parts.Global = True
	parts.IgnoreCase = True

	elements = Extract_Tags_Using_CSS_Selector_Elements(text)
	count = elements(0)
	ReDim selected(count)
	ReDim candidates(count)
	ReDim within(count)

	' The selector is followed from left to right: each test removes candidates, and at a space or > the descendants or
	' children of what is left become the new ones.
	For index = 0 To count - 1
		selected(index) = False
		candidates(index) = True
	Next
	tests = 0
	For Each part In parts.Execute(Extract_Tags_Using_CSS_Selector_Trim(strCSSSelector) & ",")
		If Len(part.SubMatches(10)) > 0 Then Exit Function

		If Len(part.SubMatches(0)) = 0 And Len(part.SubMatches(1)) = 0 Then
			If Len(part.SubMatches(2)) > 0 And tests > 0 Then Exit Function
			tests = tests + 1
			For index = 0 To count - 1
				If candidates(index) Then
					candidates(index) = Extract_Tags_Using_CSS_Selector_Passes(part, elements(1)(index), elements(2)(index))
				End If
			Next
		Else
			If tests = 0 Then Exit Function
			tests = 0
			For index = 0 To count - 1
				parent = elements(5)(index)
				If part.SubMatches(0) = "," Then
					If candidates(index) Then selected(index) = True
					within(index) = True
				ElseIf parent < 0 Then
					within(index) = False
				ElseIf part.SubMatches(0) = ">" Then
					within(index) = candidates(parent)
				Else
					within(index) = candidates(parent) Or within(parent)
				End If
			Next
			For index = 0 To count - 1
				candidates(index) = within(index)
			Next
		End If
	Next

	' Long results are put together from chunks, for each addition copies what is there.
	chunk = ""
	separator = ""
	For index = 0 To count - 1
		If selected(index) Then
			chunk = chunk & separator & Mid(text, elements(3)(index), elements(4)(index) - elements(3)(index))
			separator = vbNewLine
			If Len(chunk) > 4000 Then
				Extract_Tags_Using_CSS_Selector = Extract_Tags_Using_CSS_Selector & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Tags_Using_CSS_Selector = Extract_Tags_Using_CSS_Selector & chunk

End Function

' The text without white space around it.
Function Extract_Tags_Using_CSS_Selector_Trim ( text )

	Dim expression, matches

	Set expression = New RegExp
	expression.Pattern = "\S(?:[\s\S]*\S)?"
	Set matches = expression.Execute(text)
	Extract_Tags_Using_CSS_Selector_Trim = ""
	If matches.Count > 0 Then Extract_Tags_Using_CSS_Selector_Trim = matches(0).Value

End Function

' Whether an element passes one test of a selector.
Function Extract_Tags_Using_CSS_Selector_Passes ( part , name , attributes )

	Dim attributeName, operation, wanted, value

	Extract_Tags_Using_CSS_Selector_Passes = False
	If Len(part.SubMatches(2)) > 0 Then
		Extract_Tags_Using_CSS_Selector_Passes = part.SubMatches(2) = "*" Or LCase(part.SubMatches(2)) = name
		Exit Function
	End If

	If part.SubMatches(3) = "#" Then
		attributeName = "id"
		operation = "="
		wanted = part.SubMatches(4)
	ElseIf part.SubMatches(3) = "." Then
		attributeName = "class"
		operation = "~="
		wanted = part.SubMatches(4)
	Else
		attributeName = part.SubMatches(5)
		operation = part.SubMatches(6) & ""
		wanted = part.SubMatches(7) & part.SubMatches(8) & part.SubMatches(9)
	End If

	value = Extract_Tags_Using_CSS_Selector_Attribute(attributes, attributeName)
	If IsNull(value) Then Exit Function

	Select Case operation
		Case ""
			Extract_Tags_Using_CSS_Selector_Passes = True
		Case "="
			Extract_Tags_Using_CSS_Selector_Passes = value = wanted
		Case "|="
			Extract_Tags_Using_CSS_Selector_Passes = value = wanted Or Left(value, Len(wanted) + 1) = wanted & "-"
		Case "~="
			value = Replace(Replace(Replace(value, vbTab, " "), vbCr, " "), vbLf, " ")
			Extract_Tags_Using_CSS_Selector_Passes = InStr(wanted, " ") = 0 And InStr(" " & value & " ", " " & wanted & " ") > 0
		Case "^="
			Extract_Tags_Using_CSS_Selector_Passes = Left(value, Len(wanted)) = wanted
		Case "$="
			Extract_Tags_Using_CSS_Selector_Passes = Right(value, Len(wanted)) = wanted
		Case "*="
			Extract_Tags_Using_CSS_Selector_Passes = InStr(value, wanted) > 0
	End Select
	' No text is part of another one, says CSS, when it is empty.
	If Len(wanted) = 0 And operation <> "" And operation <> "=" And operation <> "|=" Then Extract_Tags_Using_CSS_Selector_Passes = False

End Function

' The elements of a text in the order of their beginnings, as an array: their number, names in lower case, attributes, first
' positions, positions after them, and parents (-1 for none). Elements without an end tag end with the one around them,
' or where the next one of their kind begins.
Function Extract_Tags_Using_CSS_Selector_Elements ( text )

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

	Extract_Tags_Using_CSS_Selector_Elements = Array(count, names, attributeTexts, firsts, ends, parents)

End Function

' The value of an attribute, Null when there is none of that name.
Function Extract_Tags_Using_CSS_Selector_Attribute ( attributes , name )

	Dim pairs, pair, value

	Extract_Tags_Using_CSS_Selector_Attribute = Null
	If InStr(1, attributes, name, 1) = 0 Then Exit Function

	Set pairs = New RegExp
	pairs.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	pairs.Global = True
	For Each pair In pairs.Execute(attributes)
		If LCase(pair.SubMatches(0)) = LCase(name) Then
			value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
			value = Replace(Replace(Replace(Replace(value, "&lt;", "<"), "&gt;", ">"), "&quot;", """"), "&#39;", "'")
			Extract_Tags_Using_CSS_Selector_Attribute = Replace(value, "&amp;", "&")
			Exit Function
		End If
	Next

End Function
