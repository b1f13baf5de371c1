' The tags of a page. Groups: name of an element; its attributes; name again if its end tag is another match; name of an end tag.
Function Html_Tags ( text , known )

	Set Html_Tags = Html_Expression("<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>|<(?=([a-z][^\s\/<>]*)@)(?:(?:script|style|textarea|title|iframe)\2>" & _
		"[\s\S]*?(?:<\/\1(?=[\s\/>])[^>]*>|$)|(?:area|base|br|col|embed|hr|img|input|link|meta|param|source|track|wbr)\2>|\1\2>[^<]*<\/\1\s*>|(\1)\2>)" & _
		"|<\/([a-z][^\s\/<>]*)[^<>]*>", known).Execute(text)

End Function
