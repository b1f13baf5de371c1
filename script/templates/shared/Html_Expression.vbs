' A regular expression, with @ for the rest of a tag after its name: quoted values hold any character, elsewhere < and > end it.
' Making one takes long, so "known" keeps it.
Function Html_Expression ( pattern , known )

	Dim expression

	If Not known.Exists(pattern) Then
		Set expression = New RegExp
		expression.Global = True
		expression.IgnoreCase = True
		expression.Pattern = Replace(pattern, "@", "(?=[\s\/>])([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)>")
		known.Add pattern, expression
	End If
	Set Html_Expression = known(pattern)

End Function
