' The tags of a page. Groups: name of an element; attributes; name again, if its end tag is another match, and equal tags that follow,
' unless they begin with one of the "initials" or end each other; name of an end tag; text and what is skipped.
Function Html_Tags ( text , initials , skipped , known )

	Set Html_Tags = Html_RegExp("(?:<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>|<(?=([a-z][^\s\/<>]*)(@)>)(?:(?:script|style|textarea|title|iframe)\2>" & _
		"[\s\S]*?(?:<\/\1(?=[\s\/>])[^>]*>|$)|(?:area|base|br|col|embed|hr|img|input|link|meta|param|source|track|wbr)\2>|\1\2>[^<]*" & skipped & "<\/\1\s*>|(\1(?:><(?![" & initials & "aplorct]|d[dt])\1){0,99})\2>)" & _
		"|<\/([a-z][^\s\/<>]*)[^<>]*>)([^<]*" & skipped & ")", known).Execute(text)

End Function
