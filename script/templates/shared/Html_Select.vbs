' The source of each element that a selector selects, on lines of its own. A selector has steps, each a bit: "names" has those of a
' tag name (* - any), "tests" the tests of attributes; "first", "child" and "last" are those that begin it, follow a > and end it.
Function Html_Select ( text , names , tests , first , child , last )

	Dim known, possible, tested, name, test, i, tags, pieces, count

	Html_Select = ""
	For Each name In names
		If name = "*" Or InStr(1, text, "<" & name, 1) > 0 Then possible = possible Or names(name)
	Next
	For Each test In tests
		If InStr(1, text, test(2), 1) = 0 Then possible = possible And Not test(0)
		tested = tested Or test(0)
	Next
	' A step is in vain without the one before it.
	For i = 1 To 30
		possible = possible And (first Or possible * 2)
	Next
	If (possible And last) = 0 Then Exit Function
	Set known = CreateObject("Scripting.Dictionary")
	Set tags = Html_Tags(text, known)
	ReDim pieces(tags.Count + 1)
	Html_Scan names, count, pieces, last, tested, known, child, text, tests, tags, first
	Html_Select = Html_Join(pieces, count)

End Function

' Puts the source of the selected elements into "pieces", while they are open where they start. "levels" has of each open element the
' name, the level of the one of this name around it, the steps for its children and for all in it, its number among the selected.
' The most used variables come first: some engines search them.
Sub Html_Scan ( names , count , pieces , last , tested , known , child , text , tests , tags , first )

	Dim name, depth, part, target, levels, own, tag, open, number, kinds, any, ended

	Set open = CreateObject("Scripting.Dictionary")
	open.CompareMode = 1
	Set kinds = Html_Kinds(open)
	ReDim levels(tags.Count + 1, 4)
	levels(1, 2) = first
	levels(1, 3) = first
	any = names("*")
	depth = 1
	For Each tag In tags
		Set part = tag.SubMatches
		name = part(0)
		If name = "" Then target = open(part(3)) Else target = open(kinds(name))
		If target Then
			If target <> depth Then
				If target = -1 And levels(depth, 0) = name Then target = depth Else target = Html_Outermost(part(3) & kinds(name), kinds("/" & name & part(3)), open)
			End If
			Do While depth >= target
				number = levels(depth, 4)
				If number Then
					ended = tag.FirstIndex + 1
					If depth = target And name = "" Then ended = ended + tag.Length
					pieces(number) = Mid(text, pieces(number), ended - pieces(number))
					levels(depth, 4) = 0
				End If
				open(levels(depth, 0)) = levels(depth, 1)
				depth = depth - 1
			Loop
		End If
		If name <> "" Then
			own = (names(name) Or any) And levels(depth, 2)
			If own Then
				If part(1) = "" Then own = own And Not tested
				If own And tested Then own = Html_Passed(own, tests, part(1), known)
				If own And last Then
					count = count + 1
					pieces(count) = tag
					If part(2) <> "" Then
						pieces(count) = tag.FirstIndex + 1
						levels(depth + 1, 4) = count
					End If
				End If
			End If
			If part(2) <> "" Then
				depth = depth + 1
				levels(depth, 0) = name
				levels(depth, 1) = open(name)
				open(name) = depth
				levels(depth, 2) = levels(depth - 1, 3) Or own * 2
				levels(depth, 3) = levels(depth - 1, 3) Or own * 2 And Not child
			End If
		End If
	Next
	If depth = 1 Then Exit Sub
	For number = 1 To count
		If IsNumeric(pieces(number)) Then pieces(number) = Mid(text, pieces(number))
	Next

End Sub

' The outermost of those open elements that is not beyond the innermost table or other limit. Without one a number that no level has.
Function Html_Outermost ( ended , limits , open )

	Dim name, limit

	Html_Outermost = 2147483647
	For Each name In Split(ended)
		If open(name) > 0 Then limit = 1
	Next
	If limit = 0 Then Exit Function
	For Each name In Split("table " & limits)
		If open(name) > limit Then limit = open(name)
	Next
	For Each name In Split(ended)
		If open(name) >= limit And open(name) < Html_Outermost Then Html_Outermost = open(name)
	Next

End Function

' The texts on lines of their own. Each addition copies both, so only texts of like length are added.
Function Html_Join ( texts , last )

	Dim i, line

	line = vbNewLine
	Do While last > 1
		For i = 1 To last \ 2
			texts(i) = texts(2 * i - 1) & line & texts(2 * i)
		Next
		If last Mod 2 Then texts(i) = texts(last)
		last = (last + 1) \ 2
	Loop
	Html_Join = texts(1) & ""

End Function
