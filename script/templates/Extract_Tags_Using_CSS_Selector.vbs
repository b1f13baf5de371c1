
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_Using_CSS_Selector ( text , "%PARAM_1%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element that the CSS selector specified in the strCSSSelector parameter selects. A selector may consist of tag names, *, #id, .class and attribute tests such as [name] or [name^="value"] (operators = ~= |= ^= $= *=), joined by spaces (descendants) or > (children); commas separate several selectors. The result is empty when nothing is selected or the selector is not of this form.
Function Extract_Tags_Using_CSS_Selector ( text , strCSSSelector )

	Dim part, names, tests, name, begun, first, child, last, stp

	Set names = CreateObject("Scripting.Dictionary")
	names.CompareMode = 1
	Set tests = CreateObject("Scripting.Dictionary")
	name = "*"
	stp = 1
	first = 1
	' Groups: comma, > or space; tag name; # or . with a name; attribute, operator and value; anything else.
	For Each part In Html_RegExp("\s*([,>]|\s)\s*|(\*|[a-z_][\w-]*)|([#.])((?:[\w-]|[^\x00-\x7f])+)" & _
		"|\[\s*([\w:.-]+)\s*(?:([~|^$*]?=)\s*(?:""([^""]*)""|'([^']*)'|([^\s\]""']+))\s*)?\]|([\s\S])", CreateObject("Scripting.Dictionary")).Execute(Trim(strCSSSelector) & ",")
		Set part = part.SubMatches
		If part(9) <> "" Or begun And part(1) <> "" Or Not begun And part(0) <> "" Or stp > 536870912 Then Exit Function
		If part(0) <> "" Then
			names(name) = names(name) Or stp
			name = "*"
			If part(0) = "," Then last = last Or stp
			stp = stp * 2
			If part(0) = "," Then first = first Or stp
			If part(0) = ">" Then child = child Or stp
		ElseIf part(1) <> "" Then
			name = part(1)
		ElseIf part(2) = "#" Then
			tests(tests.Count) = Css_Test(stp, "id", "=", part(3))
		ElseIf part(2) = "." Then
			tests(tests.Count) = Css_Test(stp, "class", "~=", part(3))
		Else
			tests(tests.Count) = Css_Test(stp, part(4), part(5), part(6) & part(7) & part(8))
		End If
		begun = part(0) = ""
	Next
	Extract_Tags_Using_CSS_Selector = Html_Select(text, names, tests.Items, first, child, last)

End Function

' The test that an operator means.
Function Css_Test ( stp , name , operator , value )

	Dim form, pattern

	form = InStr(" =^$*~|", Left(operator & " ", 1)) - 1
	pattern = Split("= =v\x01 =v =[^\x01]*v\x01 =[^\x01]*v =(?:[^\x01]*\s)?v[\s\x01] =v[-\x01]")
	pattern = pattern(form)
	' Four of them find no empty value, and ~= no two words.
	If form > 1 And form < 6 And (value = "" Or form = 5 And InStr(value, " ") > 0) Then pattern = "[^\s\S]"
	Css_Test = Html_Test(stp, name, pattern, value)

End Function

{{INCLUDE Html_Select.vbs}}

{{INCLUDE Html_Kinds.vbs}}

{{INCLUDE Html_Test.vbs}}

{{INCLUDE Html_Attributes.vbs}}

{{INCLUDE Html_Tags.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
