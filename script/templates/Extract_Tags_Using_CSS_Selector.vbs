
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_Using_CSS_Selector ( text , "%PARAM_1%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element that the CSS selector specified in the strCSSSelector parameter selects. A selector may consist of tag names, *, #id, .class and attribute tests such as [name] or [name^="value"] (operators = ~= |= ^= $= *=), joined by spaces (descendants) or > (children); commas separate several selectors. The result is empty when nothing is selected or the selector is not of this form.
Function Extract_Tags_Using_CSS_Selector ( text , strCSSSelector )

	Dim parts, part, fields, names, tests, first, child, last, stp, begun, name, attributeName, operator, wanted

	Extract_Tags_Using_CSS_Selector = ""

	' Comma or >; spaces; tag name; # or . with a name; test of an attribute; anything else.
	Set parts = New RegExp
	parts.Pattern = "\s*([,>])\s*|(\s+)|(\*|[a-z_][\w-]*)|([#.])([\w\u0080-\uffff-]+)" & _
		"|\[\s*([\w:.-]+)\s*(?:([~|^$*]?=)\s*(?:""([^""]*)""|'([^']*)'|([^\s\]""']+))\s*)?\]|([\s\S])"
	parts.Global = True
	parts.IgnoreCase = True
	Set names = CreateObject("Scripting.Dictionary")
	tests = Array()
	stp = 1
	first = 1
	begun = 0
	For Each part In parts.Execute(Trim(Html_Spaced(strCSSSelector)) & ",")
		Set fields = part.SubMatches
		If fields(10) <> "" Then Exit Function
		If fields(0) & fields(1) <> "" Then
			If begun = 0 Then Exit Function
			If begun = 1 Then names("*") = names("*") Or stp
			begun = 0
			If fields(0) = "," Then last = last Or stp
			stp = stp * 2
			If fields(0) = "," Then first = first Or stp
			If fields(0) = ">" Then child = child Or stp
		ElseIf fields(2) <> "" Then
			If begun > 0 Then Exit Function
			name = LCase(fields(2))
			names(name) = names(name) Or stp
			begun = 2
		Else
			attributeName = fields(5)
			operator = fields(6)
			wanted = fields(7) & fields(8) & fields(9)
			If fields(3) = "#" Then
				attributeName = "id"
				operator = "="
				wanted = fields(4)
			ElseIf fields(3) = "." Then
				attributeName = "class"
				operator = "~="
				wanted = fields(4)
			End If
			If begun = 0 Then begun = 1
			ReDim Preserve tests(UBound(tests) + 1)
			tests(UBound(tests)) = Array(stp, attributeName, operator, wanted)
		End If
	Next
	Extract_Tags_Using_CSS_Selector = Html_Select(text, names, tests, first, child, last)

End Function

{{INCLUDE Html_Select.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_Character.vbs}}
