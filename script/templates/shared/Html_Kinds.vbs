' How elements end: for a name which open elements its start tag ends (- has no content), and for / and these the elements
' which they do not reach out of.
Function Html_Kinds ( )

	Dim kinds, rule, name

	Set kinds = CreateObject("Scripting.Dictionary")
	kinds.CompareMode = 1
	For Each rule In Array("p|table|address article aside blockquote center details dir div dl fieldset figcaption figure footer form " & _
		"h1 h2 h3 h4 h5 h6 header main menu nav ol p pre section summary table ul", "a|table|a", "li p|ul ol menu table|li", _
		"dd dt p|dl table|dd dt", "option|select|option", "option optgroup|select|optgroup", "rt rp|ruby|rt rp", "td th|table|td th", _
		"tr td th|table|tr", "tbody thead tfoot caption colgroup tr td th|table|tbody thead tfoot caption colgroup", "- p|table|hr", _
		"-||area base br col embed img input link meta param source track wbr script style textarea title iframe")
		rule = Split(rule, "|")
		kinds("/" & rule(0)) = rule(1)
		For Each name In Split(rule(2))
			kinds(name) = rule(0)
		Next
	Next
	Set Html_Kinds = kinds

End Function

' The outermost of those open elements that is not beyond the innermost of the others, 0 for none.
Function Html_Ended ( open , ended , limits )

	Dim name, limit

	For Each name In Split(limits)
		If open(name) > limit Then limit = open(name)
	Next
	For Each name In Split(ended)
		If open(name) >= limit And (Html_Ended = 0 Or open(name) < Html_Ended) Then Html_Ended = open(name)
	Next

End Function
