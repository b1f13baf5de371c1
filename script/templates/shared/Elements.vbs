' The texts of the selected elements, one after the other on lines of their own.
Function {{HELPER_NAME}}_Texts ( text , elements , selected )

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
	{{HELPER_NAME}}_Texts = Mid(piece, Len(vbNewLine) + 1)

End Function

' The elements of a text in the order of their beginnings, as an array: how many they are; their names in lower case; the
' matches of their start tags, with attributes in SubMatches 2, 4 and 6; the positions after them; their parents. The
' first element is number 1, and 0 the parent of those that have none. Elements without an end tag end with the one
' around them, or where the next one of their kind begins.
Function {{HELPER_NAME}}_Elements ( text )

	' What the loop uses most comes first, for some engines look for a variable in this order at each use.
	Dim count, parts, name, current, closing, token, openOnes, sameName, names, parents, starts, endedBy, ends
	Dim position, outer, endsItself, tokens

	Set tokens = {{HELPER_NAME}}_Tags().Execute(text)
	Set endedBy = {{HELPER_NAME}}_EndedBy()
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
	{{HELPER_NAME}}_Elements = Array(count, names, starts, ends, parents)

End Function

' Finds comments; end tags; elements whose content is no markup, or that have none; other start tags.
Function {{HELPER_NAME}}_Tags ( )

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
	Set {{HELPER_NAME}}_Tags = expression

End Function

' Which names end an element before them when they begin one (name), and of what name (other name, space, name).
Function {{HELPER_NAME}}_EndedBy ( )

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
	Set {{HELPER_NAME}}_EndedBy = endedBy

End Function

' The value of an attribute of the element that begins with the given tag, Null when there is none of that name.
Function {{HELPER_NAME}}_Attribute ( start , name , pairs )

	Dim attributes, pair, value

	{{HELPER_NAME}}_Attribute = Null
	attributes = start.SubMatches(2) & start.SubMatches(4) & start.SubMatches(6)
	If InStr(1, attributes, name, 1) = 0 Then Exit Function

	For Each pair In pairs.Execute(attributes)
		If LCase(pair.SubMatches(0)) = LCase(name) Then
			value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
			If InStr(value, "&") > 0 Then
				value = Replace(Replace(Replace(Replace(value, "&lt;", "<"), "&gt;", ">"), "&quot;", """"), "&#39;", "'")
				value = Replace(value, "&amp;", "&")
			End If
			{{HELPER_NAME}}_Attribute = value
			Exit Function
		End If
	Next

End Function

' Finds the attributes in what follows the name in a tag.
Function {{HELPER_NAME}}_Pairs ( )

	Dim expression

	Set expression = New RegExp
	expression.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	expression.Global = True
	Set {{HELPER_NAME}}_Pairs = expression

End Function
