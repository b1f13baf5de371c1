' The source of every element that a selector selects, each on lines of its own. A selector consists of steps, each a bit:
' "names" has the steps for each tag name (* - any), "tests" one Array(step, attribute, operator, value) for each attribute.
' "first", "child" and "last" are the steps that begin a selector, follow a > and end it.
Function Html_Select ( text , names , tests , first , child , last )

	' Few variables, and those of the loop first: some engines look through them at each use.
	Dim part, name, kind, inner, depth, x, kinds, opened, outer, own, any, target, saved, token, block, cell, above, count, limit, pairs, found, pieces, tags

	Html_Select = ""
	Set kinds = Html_Kinds()
	Set inner = CreateObject("Scripting.Dictionary")
	Set found = CreateObject("Scripting.Dictionary")
	Set pairs = Html_Attributes()
	any = 0
	If names.Exists("*") Then any = names("*")
	' Steps that no tag passes, and those after them.
	For Each x In names
		If x <> "*" And InStr(1, text, "<" & x, 1) = 0 Then limit = limit Or names(x)
	Next
	For x = 1 To 30
		limit = limit Or (limit And 536870911) * 2 And Not first
	Next
	If (last And Not limit) = 0 Then Exit Function
	Set tags = Html_Tags(kinds, names, child).Execute(text)
	ReDim opened(tags.Count)
	ReDim outer(tags.Count)
	ReDim saved(tags.Count)
	ReDim pieces(tags.Count)
	depth = 0
	target = 0
	block = 0
	cell = 0
	above = 0
	count = 0

	For Each token In tags
		Set part = token.SubMatches
		name = LCase(part(3))
		If name <> "" Then
			kind = kinds(name)
			If kind Then
				If kind = 1 Then
					If inner("p") > cell Then target = inner("p")
				ElseIf kind = 4 Then
					If inner("a") > cell Then target = inner("a")
				ElseIf kind > 1 Then
					target = Html_Ended(name, kinds, inner, cell, depth)
				End If
			End If
		Else
			kind = -2
			name = LCase(part(0))
			If name <> "" Then
				kind = -1
			ElseIf part(2) <> "" Then
				name = LCase(part(2))
				target = inner(name)
				If target Then
					x = block
					If kinds(name) Then x = cell
					If kinds.Exists("/" & name) Then x = inner(kinds("/" & name))
					If target < x Then target = 0
				End If
			End If
		End If

		If target Then
			Do While depth >= target
				inner(opened(depth)) = outer(depth)
				x = saved(depth)
				If x Then
					If x > 0 Then
						block = x - 1
					Else
						x = found(x)
						block = x(0)
						cell = x(1)
						above = x(2)
						If x(4) Then
							limit = token.FirstIndex + 1
							If depth = target And kind = -2 Then limit = limit + token.Length
							pieces(x(5)) = vbNewLine & Mid(text, x(4), limit - x(4))
						End If
					End If
					saved(depth) = 0
				End If
				depth = depth - 1
			Loop
			target = 0
		End If

		If kind > -2 Then
			own = names(name) Or any
			If own Then
				x = 0
				If saved(depth) < 0 Then
					x = found(saved(depth))
					x = x(3)
				End If
				own = own And (first Or (x * 2 And child) Or (above * 2 And Not child))
				If own Then own = Html_Matches(own, tests, part(1) & part(4), pairs)
				If own And last Then
					count = count + 1
					pieces(count) = vbNewLine & token
				End If
			End If
			If kind > -1 Then
				If part(5) = "" Then
					depth = depth + 1
					opened(depth) = name
					outer(depth) = inner(name)
					inner(name) = depth
					If kind = 1 And own = 0 Then
						saved(depth) = block + 1
						block = depth
					ElseIf kind Or own Then
						x = 0
						If own And last Then x = token.FirstIndex + 1
						saved(depth) = -depth
						found(-depth) = Array(block, cell, above, own, x, count)
						above = above Or own
						If kind = 1 Or kind = 2 Or kind = 5 Then block = depth
						If kind = 2 Then cell = depth
					End If
				End If
			End If
		End If
	Next

	For depth = depth To 1 Step -1
		If saved(depth) < 0 Then
			x = found(saved(depth))
			If x(4) Then pieces(x(5)) = vbNewLine & Mid(text, x(4))
		End If
	Next
	If count > 0 Then Html_Select = Mid(Html_Join(pieces, 1, count), 3)

End Function

' The outermost of the open elements that the start tag ends, 0 for none.
Function Html_Ended ( name , kinds , inner , cell , depth )

	Dim x, limit, rule

	Html_Ended = 0
	If kinds(name) = 5 Then
		If inner("p") > cell Then Html_Ended = inner("p")
	End If
	If kinds.Exists("<" & name) Then
		inner("CELL") = cell
		inner("TOP") = depth
		rule = kinds("<" & name)
		limit = 1
		For Each x In rule(1)
			If inner(x) > limit Then limit = inner(x)
		Next
		For Each x In rule(0)
			If inner(x) >= limit And (Html_Ended = 0 Or inner(x) < Html_Ended) Then Html_Ended = inner(x)
		Next
	End If

End Function

' Finds comments, elements whose content is no markup, end tags, and start tags up to the end of an element without others.
Function Html_Tags ( kinds , names , child )

	Dim wanted, attributes, x, tags

	' Blocks do not depend on other elements, such as <b>.
	wanted = "svg|math|ruby|select"
	For Each x In kinds
		If x > "a" Then wanted = wanted & "|" & x
	Next
	For Each x In names
		If child > 0 Or (kinds(x) <> 1 And kinds(x) <> 2 And kinds(x) <> 5) Then wanted = "[a-z][^\s\/<>]*"
	Next
	attributes = "(?=[\s\/>])([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)>"
	Set tags = New RegExp
	tags.Global = True
	tags.IgnoreCase = True
	tags.Pattern = "<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<(script|style|textarea|title|xmp|iframe|noembed|noframes)" & attributes & _
		"[\s\S]*?(?:<\/\1(?=[\s\/>])[^>]*>|$)|<\/(" & wanted & ")(?=[\s\/>])[^>]*>|<(" & wanted & ")" & attributes & _
		"(?:[^<]*(<\/\4\s*>))?|<[!?][^>]*>"
	Set Html_Tags = tags

End Function

' How elements end: of a name whether it is a block (1), a block that others do not reach out of (2), has no content (-1) or is
' none of these and has a rule (3). For < and a name: which open elements its start tag ends, and which it does not reach
' beyond. For / and a name: which its end tag does not reach beyond.
Function Html_Kinds ( )

	Dim rule, name, kinds

	Set kinds = CreateObject("Scripting.Dictionary")
	For Each rule In Array("1|address article aside blockquote body center details dialog dir div dl fieldset figcaption " & _
		"figure footer form head header hgroup html listing main menu nav ol p pre section summary ul", "5|dd dt h1 h2 h3 h4 h5 " & _
		"h6 li colgroup tbody tfoot thead tr", "2|applet button caption marquee object table td template th", "4|a", "3|option optgroup " & _
		"rt rp", "-1|area base br col embed hr img input link meta param source track wbr")
		rule = Split(rule, "|")
		For Each name In Split(rule(1))
			kinds(name) = CLng(rule(0))
		Next
	Next
	For Each rule In Array("li|li|ul ol CELL", "dd dt|dd dt|dl CELL", "h1 h2 h3 h4 h5 h6|h1 h2 h3 h4 h5 h6|TOP", "table hr|p|CELL", _
		"button|button|CELL", "option|option|select", "optgroup|option optgroup|select", "rt rp|rt rp|ruby", _
		"td th|td th caption colgroup|table", "tr|td th tr caption colgroup|table", _
		"tbody thead tfoot caption colgroup|td th tr tbody thead tfoot caption colgroup|table")
		rule = Split(rule, "|")
		For Each name In Split(rule(0))
			kinds("<" & name) = Array(Split(rule(1)), Split(rule(2)))
			If rule(2) = "table" Then kinds("/" & name) = "table"
		Next
	Next
	kinds("/li") = "ul"
	kinds("/table") = "html"
	Set Html_Kinds = kinds

End Function

' The texts of an array one after the other; each addition copies both, so only texts of like length are added.
Function Html_Join ( texts , first , last )

	Dim i

	Html_Join = ""
	If last - first > 16 Then
		i = (first + last) \ 2
		Html_Join = Html_Join(texts, first, i) & Html_Join(texts, i + 1, last)
	Else
		For i = first To last
			Html_Join = Html_Join & texts(i)
		Next
	End If

End Function

' Which of the steps a tag with these attributes passes.
Function Html_Matches ( steps , tests , attributes , pairs )

	Dim test, value, wanted, passes

	Html_Matches = steps
	For Each test In tests
		If Html_Matches And test(0) Then
			value = Html_Attribute(attributes, test(1), pairs)
			wanted = test(3)
			passes = Not IsNull(value)
			If passes Then
				Select Case test(2)
					Case "="
						passes = value = wanted
					Case "|="
						passes = Left(value & "-", Len(wanted) + 1) = wanted & "-"
					Case "~="
						passes = InStr(" " & Html_Spaced(value) & " ", " " & wanted & " ") > 0 And wanted = Html_Spaced(wanted)
						If InStr(wanted, " ") Then passes = False
					Case "^="
						passes = Left(value, Len(wanted)) = wanted
					Case "$="
						passes = Right(value, Len(wanted)) = wanted
					Case "*="
						passes = InStr(value, wanted) > 0
				End Select
				If wanted = "" And InStr("~^$*", Left(test(2) & " ", 1)) Then passes = False
			End If
			If Not passes Then Html_Matches = Html_Matches And Not test(0)
		End If
	Next

End Function

' The value of a tag's attribute, Null when it has none of that name.
Function Html_Attribute ( attributes , name , pairs )

	Dim pair

	Html_Attribute = Null
	If InStr(1, attributes, name, 1) = 0 Then Exit Function
	For Each pair In pairs.Execute(attributes)
		If LCase(pair.SubMatches(0)) = LCase(name) Then
			Html_Attribute = Html_Decode(pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3))
			Exit Function
		End If
	Next

End Function

' Finds the attributes in what follows the name in a tag.
Function Html_Attributes ( )

	Dim expression

	Set expression = New RegExp
	expression.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	expression.Global = True
	Set Html_Attributes = expression

End Function

' With single spaces for white space.
Function Html_Spaced ( text )

	Dim expression

	Set expression = New RegExp
	expression.Global = True
	expression.Pattern = "\s+"
	Html_Spaced = expression.Replace(text, " ")

End Function
