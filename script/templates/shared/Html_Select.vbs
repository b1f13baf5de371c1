' The source of each element that a selector selects, on lines of its own. A selector has steps, each a bit: "names" has those of a
' tag name (* - any), "tests" the tests of attributes; "first", "child" and "last" are those that begin it, follow a > and end it.
Function Html_Select ( text , names , tests , first , child , last )

	Dim known, open, kinds, tags, possible, name, test, i, levels, pieces, ends, count

	Html_Select = ""
	For Each name In names
		If name = "*" Or InStr(1, text, "<" & name, 1) > 0 Then possible = possible Or names(name)
	Next
	For Each test In tests
		If InStr(1, text, test(2), 1) = 0 Then possible = possible And Not test(0)
	Next
	' A step is in vain without the one before it.
	For i = 1 To 30
		possible = possible And (first Or possible * 2)
	Next
	If (possible And last) = 0 Then Exit Function
	Set known = Html_Entities()
	Set open = CreateObject("Scripting.Dictionary")
	open.CompareMode = 1
	Set kinds = Html_Kinds(open)
	Set tags = Html_Tags(text, known)
	ReDim levels(tags.Count + 1, 4), pieces(tags.Count + 1), ends(tags.Count)
	levels(1, 2) = first
	levels(1, 3) = first
	Html_Scan levels, open, names, last, kinds, child, tests, known, count, pieces, ends, tags
	For i = 1 To count
		If ends(i) = 0 Then ends(i) = Len(text)
		pieces(i) = vbNewLine & Mid(text, pieces(i) + 1, ends(i) - pieces(i))
	Next
	If count > 0 Then Html_Select = Mid(Html_Join(pieces, count), 3)

End Function

' Where the selected elements start and end. "levels" has of each open element the name, the level of the one of this name around it,
' the steps for its children and for all in it, its number among the selected. Few variables, for some engines search them at each use.
Sub Html_Scan ( levels , open , names , last , kinds , child , tests , known , count , starts , ends , tags )

	Dim depth, part, name, own, number, ended, target, any, tag

	any = names("*")
	depth = 1
	For Each tag In tags
		Set part = tag.SubMatches
		name = part(0)
		If name = "" Then ended = part(4) Else ended = kinds(name)
		target = open(ended)
		If target <> depth And target <> 0 Then target = Html_Outermost(ended, kinds("/" & name & part(4)), open)
		If target > 0 Then Html_Close target, tag, depth, levels, open, ends
		If name <> "" Then
			number = 0
			own = (names(name) Or any) And levels(depth, 2)
			If own Then own = Html_Passed(own, tests, part(1) & part(2), known)
			If own And last Then
				count = count + 1
				number = count
				starts(count) = tag.FirstIndex
			End If
			If part(3) = "" And ended <> "-" And ended <> "- p" Then
				depth = depth + 1
				levels(depth, 0) = name
				levels(depth, 1) = open(name)
				open(name) = depth
				own = own * 2
				levels(depth, 2) = levels(depth - 1, 3) Or own
				If own Then own = own And Not child
				levels(depth, 3) = levels(depth - 1, 3) Or own
				levels(depth, 4) = number
			ElseIf number > 0 Then
				ends(number) = tag.FirstIndex + tag.Length
			End If
		End If
	Next

End Sub

' Closes the open elements from this level on where the tag starts, or the outermost where its end tag ends.
Sub Html_Close ( target , tag , depth , levels , open , ends )

	Do While depth >= target
		ends(levels(depth, 4)) = tag.FirstIndex
		open(levels(depth, 0)) = levels(depth, 1)
		depth = depth - 1
	Loop
	If tag.SubMatches(4) <> "" Then ends(levels(target, 4)) = tag.FirstIndex + tag.Length

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

' The texts from 0 to the last one after the other. Each addition copies both, so only texts of like length are added.
Function Html_Join ( texts , last )

	Dim i

	Do While last > 0
		texts(last + 1) = ""
		For i = 0 To last \ 2
			texts(i) = texts(2 * i) & texts(2 * i + 1)
		Next
		last = last \ 2
	Loop
	Html_Join = texts(0)

End Function
