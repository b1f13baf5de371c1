' The tags of a page. Groups: name and attributes of an element without markup; name of an end tag; name and attributes of a
' start tag; end tag of an element that holds only text.
Function Html_Tags ( text , known )

	Set Html_Tags = Html_Expression("<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>|<(script|style|textarea|title|iframe)@" & _
		"[\s\S]*?(?:<\/\1(?=[\s\/>])[^>]*>|$)|<\/([a-z][^\s\/<>]*)[^<>]*>|<([a-z][^\s\/<>]*)@(?:[^<]*(<\/\4\s*>))?", known).Execute(text)

End Function
