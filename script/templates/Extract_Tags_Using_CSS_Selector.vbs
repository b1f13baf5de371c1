
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

{{INCLUDE Elements.vbs}}
