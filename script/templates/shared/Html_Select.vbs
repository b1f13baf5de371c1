' The source of each element that a selector selects, on lines of its own. A selector has steps, each a bit: "names" has those of a
' tag name (* - any), "tests" the tests of attributes; "first", "child" and "last" are those that begin it, follow a > and end it.
Function Html_Select ( text , names , tests , first , child , last )

	Dim known, open, tags, stack, pieces, name, i, possible

	Html_Select = ""
	For Each name In names
		If name = "*" Or InStr(1, text, "<" & name, 1) > 0 Then possible = possible Or names(name)
	Next
	' A step is in vain without the one before it.
	For i = 1 To 30
		possible = possible And (first Or possible * 2)
	Next
	If (possible And last) = 0 Then Exit Function
	Set known = Html_Entities()
	Set open = CreateObject("Scripting.Dictionary")
	open.CompareMode = 1
	Set tags = Html_Tags(text, known)
	ReDim stack(tags.Count), pieces(tags.Count)
	pieces(0) = 0
	Html_Scan Html_Kinds(), names, open, stack, last, tests, known, pieces, child, first, tags, text
	If pieces(0) > 0 Then Html_Select = Mid(Html_Join(pieces, 1, pieces(0)), 3)

End Function

' Looks at each tag. "now" is the innermost open element: its name, the depth of the one of this name around it, start, piece, depth,
' steps for its children and for all in it. Few variables, for some engines look through them at each use.
Sub Html_Scan ( kinds , names , open , stack , last , tests , known , pieces , child , first , tags , text )

	Dim name, now, own, part, kind, tag, any

	any = names("*")
	now = Array("", 0, 0, 0, 0, first, first)
	For Each tag In tags
		Set part = tag.SubMatches
		name = part(3)
		If name = "" Then name = part(0)
		If name <> "" Then
			kind = kinds(name)
			If kind <> "" Then
				If Len(kind) > 1 Or open(kind) Then Html_End kind, kinds("/" & kind), tag.FirstIndex + 1, 0, now, open, stack, pieces, text
			End If
			own = (names(name) Or any) And now(5)
			If own Then own = Html_Passed(own, tests, part(1) & part(4), known)
			If own And last Then
				pieces(0) = pieces(0) + 1
				pieces(pieces(0)) = vbNewLine & tag
			End If
			If part(5) = "" And kind <> "-" And kind <> "- p" Then
				stack(now(4)) = now
				now = Array(name, open(name), 0, pieces(0), now(4) + 1, now(6) Or own * 2, now(6) Or (own * 2 And Not child))
				If own And last Then now(2) = tag.FirstIndex + 1
				open(name) = now(4)
			End If
		ElseIf open(part(2)) Then
			Html_End part(2), kinds("/" & kinds(part(2))), tag.FirstIndex + 1, tag.Length, now, open, stack, pieces, text
		End If
	Next
	Html_End "", "", Len(text) + 1, 0, now, open, stack, pieces, text

End Sub

' Ends the outermost of those open elements which is not beyond the innermost of the others, and what is open in it.
Sub Html_End ( ended , limits , position , length , now , open , stack , pieces , text )

	Dim target, name, limit

	target = now(4) + 1
	If ended = "" Then target = 1
	For Each name In Split(limits)
		If open(name) > limit Then limit = open(name)
	Next
	For Each name In Split(ended)
		If open(name) > 0 And open(name) >= limit And open(name) < target Then target = open(name)
	Next
	Do While now(4) >= target
		open(now(0)) = now(1)
		If now(4) = target Then position = position + length
		If now(2) > 0 Then pieces(now(3)) = vbNewLine & Mid(text, now(2), position - now(2))
		now = stack(now(4) - 1)
	Loop

End Sub

' The texts one after the other; each addition copies both, so only texts of like length are added.
Function Html_Join ( texts , first , last )

	Dim i

	If last - first > 16 Then
		i = (first + last) \ 2
		Html_Join = Html_Join(texts, first, i) & Html_Join(texts, i + 1, last)
	Else
		For i = first To last
			Html_Join = Html_Join & texts(i)
		Next
	End If

End Function
