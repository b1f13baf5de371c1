' The source of each element that a selector selects, on lines of its own. A selector has steps, each a bit: "names" has those of a
' tag name (* - any), "tests" the tests of attributes; "first", "child" and "last" are those that begin it, follow a > and end it.
Function Html_Select ( text , names , tests , first , child , last )

	Dim known, possible, wanted, tested, name, test, others

	Html_Select = ""
	Set known = Html_Entities()
	For Each name In names
		If name = "*" Or InStr(1, text, "<" & name, 1) > 0 Then possible = possible Or names(name)
		If name <> "*" Then wanted = wanted & "|" & Html_Expression("\W", known).Replace(name, ".") & "(?=[\s\/>])"
	Next
	For Each test In tests
		If InStr(1, text, test(2), 1) = 0 Then possible = possible And Not test(0)
		If names("*") And test(0) Then wanted = wanted & "|[^<]*(?:" & Html_Expression("\W", known).Replace(test(2), ".") & "|=\s*(?:""[^""<]*|'[^'<]*)<)"
		tested = tested Or test(0)
	Next
	If names("*") And Not tested Then wanted = "|[a-z]"
	' Without commas each step must be possible.
	If (possible And last) = 0 Or (first And last * 2 - 1) = 1 And possible < last * 2 - 1 Then Exit Function
	wanted = Mid(wanted, 2)
	' What stands between tags and concerns nothing that is wanted; # is the number of a group.
	others = "(?:[^<]*<(?:!--[^<>]*-->|(?!" & wanted & ")(?:(?:br|img|input|link|meta|wbr)@|(b|i|em|strong|span|font|small|label)@[^<]*<\/\#\s*>)))*"
	' Start tags of these can end an element of the same name.
	For Each name In Array("a", "p", "t[dh]", "p|li")
		If Not Html_Expression("<(" & name & ")(?=[\s\/>])(?!@" & Replace(others, "#", 4) & "[^<]*<\/\1\s*>)", known).Test(text) Then others = Replace(others, "b|i|", name & "|b|i|")
	Next
	Html_Select = Html_Scan(text, Html_Tags(text, wanted, others, known), names, tests, first, child, last, known)

End Function

' "levels" has of each open element the name, the level of the one of this name around it, the steps for its children and for all in
' it, its number among the selected. The most used variables come first: some engines search them.
Function Html_Scan ( text , tags , names , tests , first , child , last , known )

	Dim part, name, depth, levels, own, open, target, ended, tag, kinds, number, count, pieces

	depth = 1
	Set open = CreateObject("Scripting.Dictionary")
	open.CompareMode = 1
	Set kinds = Html_Kinds(open)
	ReDim levels(tags.Count + 1, 4), pieces(tags.Count + 1)
	levels(1, 2) = first
	levels(1, 3) = first
	For Each tag In tags
		Set part = tag.SubMatches
		name = part(1)
		If name = "" Then ended = part(8) Else ended = kinds(name)
		target = open(ended)
		If target <> depth And target <> 0 Then target = Html_Outermost(ended, kinds("/" & name & part(8)), open)
		If target > 0 Then Html_Close target, depth, levels, open, tag.FirstIndex, part, pieces, text
		own = 0
		number = 0
		If part(3) <> "" Then own = (names(name) Or names("*")) And levels(depth, 2)
		If own Then own = Html_Passed(own, tests, part(2), known)
		If own And last Then
			count = count + 1
			number = count
			If part(7) = "" Then pieces(count) = part(0) Else pieces(count) = tag.FirstIndex + 1
		End If
		If part(7) <> "" Then
			depth = depth + 1
			levels(depth, 0) = name
			levels(depth, 1) = open(name)
			open(name) = depth
			levels(depth, 2) = levels(depth - 1, 3) Or own * 2
			levels(depth, 3) = levels(depth - 1, 3) Or own * 2 And Not child
			levels(depth, 4) = number
		End If
	Next
	If depth > 1 Then Html_Close 2, depth, levels, open, Len(text), part, pieces, text
	Html_Scan = Html_Join(pieces, count)

End Function

' Closes the open elements from this level on where the tag starts, or the outermost where its end tag ends.
Sub Html_Close ( target , depth , levels , open , position , part , pieces , text )

	Dim number

	Do While depth >= target
		number = levels(depth, 4)
		If depth = target And part(8) <> "" Then position = position + Len(part(0))
		If number > 0 Then pieces(number) = Mid(text, pieces(number), position + 1 - pieces(number))
		open(levels(depth, 0)) = levels(depth, 1)
		depth = depth - 1
	Loop

End Sub

' The outermost of those open elements that is not beyond the innermost table or other limit, 0 for none.
Function Html_Outermost ( ended , limits , open )

	Dim name, limit

	For Each name In Split("table " & limits)
		If open(name) > limit Then limit = open(name)
	Next
	For Each name In Split(ended)
		If open(name) > 0 And open(name) >= limit And (Html_Outermost = 0 Or open(name) < Html_Outermost) Then Html_Outermost = open(name)
	Next

End Function

' The texts on lines of their own. Each addition copies both, so only texts of like length are added.
Function Html_Join ( texts , last )

	Dim i

	Do While last > 1
		For i = 1 To last \ 2
			texts(i) = texts(2 * i - 1) & vbNewLine & texts(2 * i)
		Next
		If last Mod 2 Then texts(i) = texts(last)
		last = (last + 1) \ 2
	Loop
	Html_Join = texts(1) & ""

End Function
