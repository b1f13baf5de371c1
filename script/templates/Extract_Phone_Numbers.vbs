
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Phone_Numbers ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts every phone number, one per line and each once, as it is written. A phone number has 7 to 15 digits, may begin with + and may have single spaces, dots, hyphens, slashes and parentheses between its digits. Dates and IP addresses are left out. The result is empty when there is no phone number.
Function Extract_Phone_Numbers ( text )

	Dim candidates, nonDigits, match, number, digits, known, chunk, separator

	Set candidates = New RegExp
	candidates.Pattern = Phone_Pattern()
	candidates.Global = True
	candidates.IgnoreCase = True
	Set nonDigits = New RegExp
	nonDigits.Pattern = "\D"
	nonDigits.Global = True
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Phone_Numbers = ""
	chunk = ""
	separator = ""
	For Each match In candidates.Execute(text)
		number = match.SubMatches(3)
		If Left(number, 1) = "(" And InStr(number, ")") = 0 Then number = Mid(number, 2)
		digits = Len(nonDigits.Replace(number, ""))
		If match.SubMatches(0) & match.SubMatches(4) = "" And digits >= 7 And digits <= 15 And Not known.Exists(number) Then
			known(number) = True
			chunk = chunk & separator & number
			separator = vbNewLine
			If Len(chunk) > 4000 Then
				Extract_Phone_Numbers = Extract_Phone_Numbers & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Phone_Numbers = Extract_Phone_Numbers & chunk

End Function

' Numbers in the fourth group. Letters beside them are in the first and fifth, for then it is none.
Function Phone_Pattern ( )

	Dim others, numbers

	' What looks like a number and is none: addresses, what a word names, prices, dates, IP addresses, times, postcodes.
	others = "https?:\S*|(?:isbn|issn|iban)\S*(?:[ :-]*[\dx]+)+|(?:order|invoice|item|id|ref|account|serial|sku|case" & _
		"|ticket)\.?(?: ?(?:no|number|nr|id)\.?)?[ :#]*\d+(?!~?\d)|[$\u20ac\u00a3] ?\d[\d.,]*" & _
		"|\d{4}([-.\/])\d\d?\2\d\d?(?!\d)|\d\d?([-.\/])\d\d?\3(?:\d{4}|\d\d)(?![-.\/]?\d)" & _
		"|\d{1,3}(?:\.\d{1,3}){3}(?![.\d])|\d\d?:\d\d(?::\d\d)?|\d\d?-\d\d?(?![-\d])|\d\.\d+(?![-.\d])" & _
		"|\d{1,3}(?:,\d{3})+|(?:\d{4}[ -]){3}\d{4}(?!\d)|\d{16,}|(?:19|20)\d\d[-\u2013](?:19|20)\d\d(?!\d)" & _
		"|\d{5}-\d{4}(?!\d)|\d{5}(?= (?:\(\d{3}\) ?|\d{3}~)\d{3}~\d{4}(?!\d))"
	' As in America; seven digits; as in France; with a country code; any other.
	numbers = "(?:\+?1~?)?(?:\(\d{3}\)~?|\d{3}~)\d{3}~\d{4}(?!~?\d\d?(?!~?\d))(?!\d)" & _
		"|\d{3}[-.\u2010-\u2013]\d{4}(?!\d)(?!~\d{1,4}(?!~?\d))|0\d(?:~\d\d){4}(?!\d)|(?:\(\+\d{1,4}\)" & _
		"|\+\d{1,4})~?(?:\(\d{1,5}\)|\d+)(?: ?\/ ?(?!0)\d+)?(?:\/?\d+|~(?!0(?:\d\d|\d{4})(?!\d))\d+)*|\d{10}(?!\d)" & _
		"|(?:[0178]~)?(?:\(\d{2,5}\)|\d{2,5})(?: ?\/ ?|~)?\d{2,}(?:\/\d+|~(?!0(?:\d\d|\d{4})(?!\d))\d+)*|\d{7,15}(?!\d)"
	' What stands between digits.
	Phone_Pattern = Replace("([a-z_#])?(?:" & others & "|(" & numbers & ")(?=[ .,]*(?:x|ext)[a-z.]* ?\d|([a-z_])?))", "~", "(?:[ .\u00a0\u202f\u2009]|[ \u00a0]?[-\u2010-\u2015\u2212][ \u00a0]?)")

End Function
