
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Url_From_Url_Params ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the URL that the parameters of a URL carry, as in a link that leads to a page by way of another site: the result is the first parameter value that begins with http:// or https://, written out without escape sequences. The result is empty when no parameter holds a URL.
Function Extract_Url_From_Url_Params ( text )

	Dim expression, matches

	Set expression = New RegExp
	expression.Pattern = "[?&#;][^=?&#;\s]*=(https?(?::|%3A)(?:\/|%2F){2}[^&#\s]*)"
	expression.IgnoreCase = True
	Extract_Url_From_Url_Params = ""
	Set matches = expression.Execute(text)
	If matches.Count > 0 Then Extract_Url_From_Url_Params = Url_Decode(Replace(matches(0).SubMatches(0), "+", "%20"), "")

End Function

{{INCLUDE Url_Decode.vbs}}

{{INCLUDE Html_Character.vbs}}
