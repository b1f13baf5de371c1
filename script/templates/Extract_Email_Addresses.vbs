
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Email_Addresses ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts every e-mail address, one per line and each once, in the order of their first appearance. Letter case does not count. The result is empty when there is no address.
Function Extract_Email_Addresses ( text )

	Dim expression, match, known, chunk, separator

	' Names of pictures such as photo@2x.png look like addresses. The bounds keep long words from costing time.
	Set expression = New RegExp
	expression.Pattern = "[A-Za-z0-9_][A-Za-z0-9._%+-]{0,63}@(?!\dx\.(?:png|jpe?g|gif|webp|svg))(?:[A-Za-z0-9-]{1,63}\.)+[A-Za-z]{2,63}"
	expression.Global = True
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Email_Addresses = ""
	chunk = ""
	separator = ""
	For Each match In expression.Execute(text)
		If Not known.Exists(LCase(match.Value)) Then
			known(LCase(match.Value)) = True
			chunk = chunk & separator & match.Value
			separator = vbNewLine
			If Len(chunk) > 4000 Then
				Extract_Email_Addresses = Extract_Email_Addresses & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Email_Addresses = Extract_Email_Addresses & chunk

End Function
