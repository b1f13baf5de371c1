' A regular expression, kept in "known". @ is what a tag has after its name up to the >; only quoted values hold < and >.
Function Html_RegExp ( pattern , known )

	If Not known.Exists(pattern) Then
		known.Add pattern, New RegExp
		known(pattern).Global = True
		known(pattern).IgnoreCase = True
		known(pattern).Pattern = Replace(pattern, "@", "(?=[\s\/>])[^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*")
	End If
	Set Html_RegExp = known(pattern)

End Function
