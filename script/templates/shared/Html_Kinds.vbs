' For a name the open elements that its start tag ends, for / and the name the limits, besides a table, beyond which its tags
' end none. Several in one text are "open" as -1.
Function Html_Kinds ( open )

	Dim kinds, rule, name

	Set kinds = CreateObject("Scripting.Dictionary")
	kinds.CompareMode = 1
	For Each rule In Array("address article aside blockquote center details dir div dl fieldset figcaption figure footer form h1 h2 h3 h4 h5 h6 " & _
		"header hr main menu nav ol p pre section summary table ul|p|", "a|a|", "li|li p|ul ol menu", "dd dt|dd dt p|dl", "option|option|select", _
		"optgroup|option optgroup|select", "rt rp|rt rp|ruby", "td th|td th|", "tr|tr td th|", _
		"tbody thead tfoot caption colgroup|tbody thead tfoot caption colgroup tr td th|")
		rule = Split(rule, "|")
		If InStr(rule(1), " ") > 0 Then open(rule(1)) = -1
		For Each name In Split(rule(0))
			kinds(name) = rule(1)
			kinds("/" & name) = rule(2)
		Next
	Next
	Set Html_Kinds = kinds

End Function
