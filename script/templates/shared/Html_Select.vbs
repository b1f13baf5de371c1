' The source of each selected element, on lines of its own. Each step of a selector is a bit: "names" has those for a tag name
' (* - any), "tests" those of each test; "first", "child" and "last" are those that begin it, follow a > and end it.
Function Html_Select ( text , names , tests , first , child , last )

	Dim i, pieces, line, count, known, possible, tested, any, name, test, steps, initials, skipped, tags

	Html_Select = ""
	For Each test In tests
		tested = tested Or test(0)
	Next
	any = names("*")
	For Each name In names
		If name = "*" Or LCase(name) >= "a" And InStr(1, text, "<" & name, 1) > 0 Then possible = possible Or names(name)
		' Equal nested elements of other names have the same steps and are not selected.
		steps = (names(name) Or any) And Not tested
		If steps And (last Or child Or steps * 2) Then initials = Replace(initials & Left(name, 1), "*", "a-z")
	Next
	' A step needs the one before it.
	For i = 1 To 30
		possible = possible And (first Or possible * 2)
	Next
	If (possible And last) = 0 Then Exit Function
	Set known = CreateObject("Scripting.Dictionary")
	' Small elements that are not selected and end none; with tests those without attributes.
	skipped = "(?:<(?![" & initials & "<])(?:br@|img@|input@" & Html_RegExp(" (\w+)", known).Replace(" b em i small span strong", "|$1@>[^<]*<\/$1\s*") & ")>[^<]*){0,99}"
	If tested Then skipped = Replace(skipped, "@", "")
	Set tags = Html_Tags(text, initials, skipped, known)
	ReDim pieces(tags.Count + 1)
	Html_Scan names, count, pieces, last, tested, known, child, text, tests, tags, first
	' Each addition copies both texts, so they are of like length.
	line = vbNewLine
	Do While count > 1
		For i = 1 To count \ 2
			pieces(i) = pieces(2 * i - 1) & line & pieces(2 * i)
		Next
		If count Mod 2 Then pieces(i) = pieces(count)
		count = (count + 1) \ 2
	Loop
	Html_Select = pieces(1) & ""

End Function

' Puts the selected elements into "pieces", open ones as where they start. "levels" has of each open element name, level of the next
' open one of this name, steps for its children, steps for all in it, number in "pieces" or -1 for each further element that it
' stands for. The most used variables come first: some engines search them.
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
					levels(depth, 4) = 0
					If number > 0 Then
						ended = tag.FirstIndex + 1
						If depth = target And name = "" Then ended = ended + tag.Length - Len(part(4))
						pieces(number) = Mid(text, pieces(number), ended - pieces(number))
					ElseIf depth = target And name = "" Then
						levels(depth, 4) = number + 1
						Exit Do
					End If
				End If
				open(levels(depth, 0)) = levels(depth, 1)
				depth = depth - 1
			Loop
		End If
		If name <> "" Then
			own = (names(name) Or any) And levels(depth, 2)
			If own Then
				If own And tested Then
					If part(1) = "" Then own = own And Not tested Else own = Html_Passed(own, tests, part(1), known)
				End If
				If own And last Then
					count = count + 1
					If part(2) <> "" Then
						pieces(count) = tag.FirstIndex + 1
						levels(depth + 1, 4) = count
					Else
						pieces(count) = Left(tag.Value, tag.Length - Len(part(4)))
					End If
				End If
			End If
			If part(2) <> "" Then
				depth = depth + 1
				levels(depth, 0) = name
				If part(2) <> name Then levels(depth, 4) = (Len(name) - Len(part(2))) \ (Len(name) + 2)
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

' The outermost of these open elements within all limits, otherwise a level beyond all.
Function Html_Outermost ( ended , limits , open )

	Dim name, level, limit

	Html_Outermost = 2147483647
	For Each name In Split(ended)
		level = open(name)
		If level > 0 And level < Html_Outermost Then
			For Each limit In Split("table " & limits)
				If open(limit) > level Then level = Html_Outermost
			Next
			Html_Outermost = level
		End If
	Next

End Function
