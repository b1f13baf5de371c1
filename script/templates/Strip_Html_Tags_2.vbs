
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Strip_Html_Tags_2 ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function turns HTML into plain text as a browser shows it: comments, scripts and styles are removed, line breaks and the beginnings and ends of paragraphs, headings, list items, table rows and other blocks start a new line, other tags are removed, white space is reduced to single spaces, blank lines are left out and entities such as &amp; are replaced by their characters.
Function Strip_Html_Tags_2 ( text )

	Dim known, tags, breaks, parts, i, chunk, plain

	Set known = CreateObject("Scripting.Dictionary")
	Set tags = Html_RegExp("<\/?[a-z][^\s\/<>]*@>", known)
	Set breaks = Html_RegExp("<\/?(?:address|article|aside|blockquote|body|br|caption|dd|div|dl|dt|fieldset|figure|footer|form" & _
		"|h[1-6]|header|hr|html|legend|li|main|nav|ol|option|p|pre|section|select|table|tbody|tfoot|thead|title|tr|ul)@>", known)
	plain = Html_RegExp("<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<[!?][^>]*>|<(script|style)@>[\s\S]*?(?:<\/\1[^>]*>|$)|[\x01-\x04]", known).Replace(text, "")

	' Every other part is the content of a <pre>, whose layout stands in other characters up to the end.
	plain = Replace(plain, vbNewLine, vbLf)
	parts = Split(Html_RegExp("<pre@>\n?([\s\S]*?)\n?(?:<\/pre\s*>|$)", known).Replace(plain, Chr(4) & "$1" & Chr(4)), Chr(4))
	plain = ""
	For i = 0 To UBound(parts)
		If i Mod 2 = 0 Then
			chunk = chunk & Html_RegExp("\s+", known).Replace(parts(i), " ")
		Else
			parts(i) = Replace(tags.Replace(breaks.Replace(parts(i), vbLf), ""), " ", Chr(1))
			chunk = chunk & vbLf & Replace(Replace(parts(i), vbTab, Chr(2)), vbLf, Chr(3)) & vbLf
		End If
		If Len(chunk) > 4000 Then plain = plain & chunk : chunk = ""
	Next

	' Table cells and single spaces, no blank lines.
	plain = Html_RegExp("<\/?t[dh]@>", known).Replace(breaks.Replace(plain & chunk, vbLf), " ")
	plain = Html_RegExp(" +", known).Replace(tags.Replace(plain, ""), " ")
	plain = Html_RegExp(" ?\n[ \n]*", known).Replace(plain, vbLf)
	plain = Html_RegExp("^\s+|\s+$", known).Replace(plain, "")
	plain = Replace(Replace(Replace(Replace(plain, Chr(1), " "), Chr(2), vbTab), Chr(3), vbLf), vbLf, vbNewLine)
	Strip_Html_Tags_2 = Html_Decode(plain, "", known)

End Function

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
