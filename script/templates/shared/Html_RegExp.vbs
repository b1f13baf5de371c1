' A regular expression, kept in "known". @ stands for the attributes of a tag; only quoted values hold < and >.
Function Html_RegExp ( pattern , known )

	If Not known.Exists(pattern) Then
		known.Add pattern, New RegExp
		known(pattern).Global = True
		known(pattern).IgnoreCase = True
		known(pattern).Pattern = Replace(pattern, "@", "(?=[\s\/>])[^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*")
	End If
	Set Html_RegExp = known(pattern)

End Function
