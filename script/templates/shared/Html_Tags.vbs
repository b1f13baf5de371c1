' The tags of a page. Groups: name of an element; attributes of one without markup, or other attributes; end tag of one that holds
' only text; name of an end tag.
Function Html_Tags ( text , known )

	Set Html_Tags = Html_Expression("<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>|<(?=([a-z][^\s\/<>]*))(?:(?:script|style|textarea|title|iframe)@" & _
		"[\s\S]*?(?:<\/\1(?=[\s\/>])[^>]*>|$)|\1@(?:[^<]*(<\/\1\s*>))?)|<\/([a-z][^\s\/<>]*)[^<>]*>", known).Execute(text)

End Function
