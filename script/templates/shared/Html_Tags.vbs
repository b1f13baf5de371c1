' The tags of a page but for "others". Groups: all of it; name, attributes, something if "wanted" matches behind the <; name again if
' the end tag is another match; last the name of an end tag.
Function Html_Tags ( text , wanted , others , known )

	Set Html_Tags = Html_Expression("(<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>|<(?=([a-z][^\s\/<>]*)@)(?=(" & wanted & ")?)(?:(?:script|style|textarea|title|iframe)\3>" & _
		"[\s\S]*?(?:<\/\2(?=[\s\/>])[^>]*>|$)|(?:area|base|br|col|embed|hr|img|input|link|meta|param|source|track|wbr)\3>|\2\3>" & Replace(others, "#", 6) & _
		"[^<]*<\/\2\s*>|(\2)\3>)|<\/([a-z][^\s\/<>]*)[^<>]*>)" & Replace(others, "#", 11), known).Execute(text)

End Function
