
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Url_From_Url_Params ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the URL that the parameters of a URL carry, as in a link that leads to a page by way of another site: the result is the first parameter value that begins with http:// or https://, written out without escape sequences. The result is empty when no parameter holds a URL.
Function Extract_Url_From_Url_Params ( text )

	Dim expression, matches, sequences, match, address, position, result

	Set expression = New RegExp
	expression.Pattern = "[?&#;][^=?&#;\s]*=(https?(?::|%3A)(?:\/|%2F){2}[^&#\s]*)"
	expression.IgnoreCase = True
	Extract_Url_From_Url_Params = ""
	Set matches = expression.Execute(text)
	If matches.Count = 0 Then Exit Function
	address = Replace(matches(0).SubMatches(0), "+", "%20")

	Set sequences = New RegExp
	sequences.Pattern = "(?:%[0-9a-f]{2})+"
	sequences.Global = True
	sequences.IgnoreCase = True
	result = ""
	position = 1
	For Each match In sequences.Execute(address)
		result = result & Mid(address, position, match.FirstIndex + 1 - position)
		result = result & Extract_Url_From_Url_Params_Bytes(match.Value)
		position = match.FirstIndex + match.Length + 1
	Next
	Extract_Url_From_Url_Params = result & Mid(address, position)

End Function

{{INCLUDE Bytes.vbs}}

{{INCLUDE Character.vbs}}
