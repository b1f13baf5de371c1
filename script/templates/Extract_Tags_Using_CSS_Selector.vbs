
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_Using_CSS_Selector ( text , "%PARAM_1%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element that the CSS selector specified in the strCSSSelector parameter selects. A selector may consist of tag names, *, #id, .class and attribute tests such as [name] or [name^="value"] (operators = ~= |= ^= $= *=), joined by spaces (descendants) or > (children); commas separate several selectors. The result is empty when nothing is selected or the selector is not of this form.
Function Extract_Tags_Using_CSS_Selector ( text , strCSSSelector )

	Dim index, selected, all, kept, found, elements, none, marks, parts, part, fields, tests

	Extract_Tags_Using_CSS_Selector = ""

	elements = Extract_Tags_Using_CSS_Selector_Elements(text)
	ReDim none(elements(0))
	ReDim all(elements(0))
	For index = 1 To elements(0)
		all(index) = index
	Next

	' Comma or >; spaces; tag name; # or . with a name; test of an attribute; anything else.
	Set parts = New RegExp
	parts.Pattern = "\s*([,>])\s*|(\s+)|(\*|[a-z_][\w-]*)|([#.])([\w\u0080-\uffff-]+)" & _
		"|\[\s*([\w:.-]+)\s*(?:([~|^$*]?=)\s*(?:""([^""]*)""|'([^']*)'|([^\s\]""']+))\s*)?\]|([\s\S])"
	parts.Global = True
	parts.IgnoreCase = True

	' The selector is followed from left to right. "found" lists the elements that pass so far: each test shortens the
	' list, and a space or > replaces it by their descendants or children.
	selected = none
	found = all
	kept = elements(0)
	tests = 0
	For Each part In parts.Execute(Extract_Tags_Using_CSS_Selector_Trim(strCSSSelector) & ",")
		Set fields = part.SubMatches
		If Len(fields(10)) > 0 Then Exit Function

		If Len(fields(0) & fields(1)) = 0 Then
			If Len(fields(2)) > 0 And tests > 0 Then Exit Function
			tests = tests + 1
			If Len(fields(2)) > 0 Then
				kept = Extract_Tags_Using_CSS_Selector_OfName(found, kept, LCase(fields(2)), elements(1))
			Else
				kept = Extract_Tags_Using_CSS_Selector_OfAttribute(found, kept, fields, elements(2))
			End If
		Else
			If tests = 0 Then Exit Function
			tests = 0
			If fields(0) = "," Then
				For index = 1 To kept
					selected(found(index)) = True
				Next
				found = all
				kept = elements(0)
			Else
				marks = none
				For index = 1 To kept
					marks(found(index)) = True
				Next
				kept = Extract_Tags_Using_CSS_Selector_Within(found, marks, elements(4), fields(0) = "")
			End If
		End If
	Next

	Extract_Tags_Using_CSS_Selector = Extract_Tags_Using_CSS_Selector_Texts(text, elements, selected)

End Function

' Leaves in a list only the elements of that name, * for all, and returns how many they are.
Function Extract_Tags_Using_CSS_Selector_OfName ( found , last , name , names )

	Dim index, kept

	kept = last
	If name <> "*" Then
		kept = 0
		For index = 1 To last
			If names(found(index)) = name Then
				kept = kept + 1
				found(kept) = found(index)
			End If
		Next
	End If
	Extract_Tags_Using_CSS_Selector_OfName = kept

End Function

' Leaves in a list only the elements that pass a test of the selector, and returns how many they are.
Function Extract_Tags_Using_CSS_Selector_OfAttribute ( found , last , fields , starts )

	Dim index, kept, attributeName, operation, wanted, pairs

	attributeName = fields(5)
	operation = fields(6)
	wanted = fields(7) & fields(8) & fields(9)
	If Len(fields(4)) > 0 Then
		attributeName = "id"
		operation = "="
		wanted = fields(4)
		If fields(3) = "." Then
			attributeName = "class"
			operation = "~="
		End If
	End If
	Set pairs = Extract_Tags_Using_CSS_Selector_Pairs()

	kept = 0
	For index = 1 To last
		If Extract_Tags_Using_CSS_Selector_Passes(starts(found(index)), attributeName, operation, wanted, pairs) Then
			kept = kept + 1
			found(kept) = found(index)
		End If
	Next
	Extract_Tags_Using_CSS_Selector_OfAttribute = kept

End Function

' Lists the children of the elements that are marked, or all that is within them, and returns how many they are.
Function Extract_Tags_Using_CSS_Selector_Within ( found , marks , parents , isDeep )

	Dim index, kept

	' Parents come before their children, so a mark reaches all that is within.
	kept = 0
	For index = 1 To UBound(marks)
		If marks(parents(index)) Then
			kept = kept + 1
			found(kept) = index
			If isDeep Then marks(index) = True
		End If
	Next
	Extract_Tags_Using_CSS_Selector_Within = kept

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

' Whether the element that begins with the given tag passes the test of an attribute.
Function Extract_Tags_Using_CSS_Selector_Passes ( start , attributeName , operation , wanted , pairs )

	Dim value

	Extract_Tags_Using_CSS_Selector_Passes = False
	value = Extract_Tags_Using_CSS_Selector_Attribute(start, attributeName, pairs)
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

' The texts of the selected elements, one after the other on lines of their own.
Function Extract_Tags_Using_CSS_Selector_Texts ( text , elements , selected )

	Dim index, level, pieces, starts, ends, first, piece

	' Each addition copies both texts, so only pieces of like size are put together: "pieces" holds a power of two of them
	' at each level, the last ones lowest.
	ReDim pieces(32)
	starts = elements(2)
	ends = elements(3)
	For index = 1 To elements(0)
		If selected(index) Then
			first = starts(index).FirstIndex + 1
			piece = vbNewLine & Mid(text, first, ends(index) - first)
			level = 0
			Do While Not IsEmpty(pieces(level))
				piece = pieces(level) & piece
				pieces(level) = Empty
				level = level + 1
			Loop
			pieces(level) = piece
		End If
	Next

	piece = ""
	For level = 0 To 32
		piece = pieces(level) & piece
	Next
	Extract_Tags_Using_CSS_Selector_Texts = Mid(piece, Len(vbNewLine) + 1)

End Function

' The elements of a text in the order of their beginnings, as an array: how many they are; their names in lower case; the
' matches of their start tags, with attributes in SubMatches 2, 4 and 6; the positions after them; their parents. The
' first element is number 1, and 0 the parent of those that have none. Elements without an end tag end with the one
' around them, or where the next one of their kind begins.
Function Extract_Tags_Using_CSS_Selector_Elements ( text )

	' What the loop uses most comes first, for some engines look for a variable in this order at each use.
	Dim count, parts, name, current, closing, token, openOnes, sameName, names, parents, starts, endedBy, ends
	Dim position, outer, endsItself, tokens

	Set tokens = Extract_Tags_Using_CSS_Selector_Tags().Execute(text)
	Set endedBy = Extract_Tags_Using_CSS_Selector_EndedBy()
	' The slash of a tag such as <path/>, which belongs to no value.
	Set endsItself = New RegExp
	endsItself.Pattern = "(?:^|[\s""'])\/$"
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
		name = LCase(parts(0) & parts(1) & parts(3) & parts(5))

		' The element that ends here, and with it all that are open within it.
		closing = 0
		If parts(0) <> "" Then
			closing = openOnes(name)
			If closing <> current Then
				' Within a table's cell only the end tags of a table's parts reach out of it.
				If closing < openOnes("td") Or closing < openOnes("th") Then
					If InStr(" td th tr table thead tbody tfoot body html ", " " & name & " ") = 0 Then closing = 0
				End If
			End If
		Else
			If endedBy(name) Then
				outer = current
				Do While endedBy(names(outer) & " " & name)
					closing = outer
					outer = parents(outer)
				Loop
			End If
		End If
		If closing > 0 Then
			position = token.FirstIndex + 1
			Do While current >= closing
				ends(current) = position
				openOnes(names(current)) = sameName(current)
				current = parents(current)
			Loop
			If parts(0) <> "" Then ends(closing) = position + token.Length
		End If

		If parts(0) = "" And name <> "" Then
			count = count + 1
			names(count) = name
			Set starts(count) = token
			parents(count) = current
			If parts(6) <> "" Then closing = endsItself.Test(parts(6)) Else closing = parts(5) = ""
			If closing Then
				ends(count) = token.FirstIndex + token.Length + 1
			Else
				sameName(count) = openOnes(name)
				openOnes(name) = count
				current = count
			End If
		End If
	Next

	position = Len(text) + 1
	Do While current > 0
		ends(current) = position
		current = parents(current)
	Loop
	Extract_Tags_Using_CSS_Selector_Elements = Array(count, names, starts, ends, parents)

End Function

' Finds comments; end tags; elements whose content is no markup, or that have none; other start tags.
Function Extract_Tags_Using_CSS_Selector_Tags ( )

	Dim expression, attributes

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "(?=[\s\/>])([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)"

	Set expression = New RegExp
	expression.Pattern = "<!--[\s\S]*?(?:-->|$)|<\/([a-z][^\s\/<>]*)[^<>]*>" & _
		"|<(script|style|textarea|title)" & attributes & ">[\s\S]*?(?:<\/\2[^>]*>|$)" & _
		"|<(area|base|br|col|embed|hr|img|input|link|meta|param|source|track|wbr)" & attributes & ">" & _
		"|<([a-z][^\s\/<>=]*)" & attributes & ">"
	expression.Global = True
	expression.IgnoreCase = True
	Set Extract_Tags_Using_CSS_Selector_Tags = expression

End Function

' Which names end an element before them when they begin one (name), and of what name (other name, space, name).
Function Extract_Tags_Using_CSS_Selector_EndedBy ( )

	Dim endedBy, rule, rules, name, other

	Set endedBy = CreateObject("Scripting.Dictionary")
	rules = Array("li: li", "dd dt: dd dt", "option optgroup: option", "optgroup: optgroup", "td th tr tbody tfoot: td th", _
		"tr tbody tfoot: tr", "tbody tfoot: thead tbody", "address article aside blockquote div dl fieldset figure " & _
		"footer form h1 h2 h3 h4 h5 h6 hr header main nav ol p pre section table ul: p")
	For Each rule In rules
		rule = Split(rule, ": ")
		For Each name In Split(rule(0))
			endedBy(name) = True
			For Each other In Split(rule(1))
				endedBy(other & " " & name) = True
			Next
		Next
	Next
	Set Extract_Tags_Using_CSS_Selector_EndedBy = endedBy

End Function

' The value of an attribute of the element that begins with the given tag, Null when there is none of that name.
Function Extract_Tags_Using_CSS_Selector_Attribute ( start , name , pairs )

	Dim attributes, pair, value

	Extract_Tags_Using_CSS_Selector_Attribute = Null
	attributes = start.SubMatches(2) & start.SubMatches(4) & start.SubMatches(6)
	If InStr(1, attributes, name, 1) = 0 Then Exit Function

	For Each pair In pairs.Execute(attributes)
		If LCase(pair.SubMatches(0)) = LCase(name) Then
			value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
			If InStr(value, "&") > 0 Then
				value = Replace(Replace(Replace(Replace(value, "&lt;", "<"), "&gt;", ">"), "&quot;", """"), "&#39;", "'")
				value = Replace(value, "&amp;", "&")
			End If
			Extract_Tags_Using_CSS_Selector_Attribute = value
			Exit Function
		End If
	Next

End Function

' Finds the attributes in what follows the name in a tag.
Function Extract_Tags_Using_CSS_Selector_Pairs ( )

	Dim expression

	Set expression = New RegExp
	expression.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	expression.Global = True
	Set Extract_Tags_Using_CSS_Selector_Pairs = expression

End Function
