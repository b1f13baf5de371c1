
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Url_From_Url_Params ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the URL that the parameters of a URL carry, as in a link that leads to a page by way of another site: the result is the first parameter value that begins with http:// or https://, written out without escape sequences. The result is empty when no parameter holds a URL.
Function Extract_Url_From_Url_Params ( text )

	Dim known, match, address

	Set known = CreateObject("Scripting.Dictionary")
	Extract_Url_From_Url_Params = ""
	For Each match In Html_RegExp("[?&#;][^=?&#;\s]*=(https?(?::|%3A)(?:\/|%2F){2}[^&#\s]*)", known).Execute(text)
		address = Replace(match.SubMatches(0), "+", "%20")
		Extract_Url_From_Url_Params = Html_Decode(address, "|" & Url_Sequences(address, known), known)
		Exit Function
	Next

End Function

{{INCLUDE Url_Sequences.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
