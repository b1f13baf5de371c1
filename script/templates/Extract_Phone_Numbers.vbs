
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Phone_Numbers ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts every phone number, one per line and each once, as it is written. A phone number has 7 to 15 digits, may begin with + and may have single spaces, dots, hyphens, slashes and parentheses between its digits. Dates and IP addresses are left out. The result is empty when there is no phone number.
Function Extract_Phone_Numbers ( text )

	Dim candidates, dates, nonDigits, match, number, digits, known, chunk, separator

	' A letter before, a number, and a letter after it that is not the x of an extension.
	Set candidates = New RegExp
	candidates.Pattern = "([a-z_#]?)(\+?\(?\d(?:(?: ?[\/-] ?| |\.| ?\(|\)[ .-]?)?\d)*)(?=x\d|([a-z_]?))"
	candidates.Global = True
	candidates.IgnoreCase = True
	' What looks like a number and is a date or an IP address.
	Set dates = New RegExp
	dates.Pattern = "^(?:\d{4}([.\/-])\d\d?\1\d\d?|\d\d?([.\/-])\d\d?\2\d{4})(?: |$)|^\d{1,3}(?:\.\d{1,3}){3}$"
	Set nonDigits = New RegExp
	nonDigits.Pattern = "\D"
	nonDigits.Global = True
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Phone_Numbers = ""
	chunk = ""
	separator = ""
	For Each match In candidates.Execute(text)
		number = match.SubMatches(1)
		If Left(number, 1) = "(" And InStr(number, ")") = 0 Then number = Mid(number, 2)
		digits = Len(nonDigits.Replace(number, ""))
		If Len(match.SubMatches(0) & match.SubMatches(2)) = 0 And digits >= 7 And digits <= 15 Then
			If Not dates.Test(number) And Not known.Exists(number) Then
				known(number) = True
				chunk = chunk & separator & number
				separator = vbNewLine
				If Len(chunk) > 4000 Then
					Extract_Phone_Numbers = Extract_Phone_Numbers & chunk
					chunk = ""
				End If
			End If
		End If
	Next
	Extract_Phone_Numbers = Extract_Phone_Numbers & chunk

End Function
