' A regular expression, kept in "known" for the next time. @ is the rest of a tag after its name: quoted values hold any character,
' elsewhere < and > end it.
Function Html_Expression ( pattern , known )

	If Not known.Exists(pattern) Then
		known.Add pattern, New RegExp
		known(pattern).Global = True
		known(pattern).IgnoreCase = True
		known(pattern).Pattern = Replace(pattern, "@", "(?=[\s\/>])([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)>")
	End If
	Set Html_Expression = known(pattern)

End Function
