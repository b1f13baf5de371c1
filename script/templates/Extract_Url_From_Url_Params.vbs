
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

' The text of a run of %XX sequences.
Function Extract_Url_From_Url_Params_Bytes ( run )

	Dim chunk, position, number

	Extract_Url_From_Url_Params_Bytes = ""
	chunk = ""
	position = 1
	Do While position < Len(run)
		number = CLng("&H" & Mid(run, position + 1, 2))
		If number < 128 Then
			chunk = chunk & Chr(number)
			position = position + 3
		Else
			chunk = chunk & Extract_Url_From_Url_Params_Multibyte(run, position, number)
		End If
		If Len(chunk) > 4000 Then
			Extract_Url_From_Url_Params_Bytes = Extract_Url_From_Url_Params_Bytes & chunk
			chunk = ""
		End If
	Loop
	Extract_Url_From_Url_Params_Bytes = Extract_Url_From_Url_Params_Bytes & chunk

End Function

' The character whose first byte, with the given number, is at that position, which moves behind it.
Function Extract_Url_From_Url_Params_Multibyte ( run , position , number )

	Dim count, part, index, following

	' How many bytes the first one asks for, and its share of the number.
	count = 1
	part = number
	If number >= 194 And number <= 223 Then
		count = 2
		part = number - 192
	ElseIf number >= 224 And number <= 239 Then
		count = 3
		part = number - 224
	ElseIf number >= 240 And number <= 244 Then
		count = 4
		part = number - 240
	End If
	For index = 1 To count - 1
		If position + 3 * index > Len(run) Then
			part = -1
			Exit For
		End If
		following = CLng("&H" & Mid(run, position + 3 * index + 1, 2))
		If following < 128 Or following > 191 Then
			part = -1
			Exit For
		End If
		part = part * 64 + (following And 63)
	Next

	' Numbers that have a shorter form, or are halves of pairs, are no valid UTF-8.
	If count = 3 And part < 2048 Or count = 4 And part < 65536 Then part = -1
	If part > 1114111 Or (part >= 55296 And part <= 57343) Then part = -1
	If part < 0 Then
		count = 1
		part = number
	End If

	Extract_Url_From_Url_Params_Multibyte = Extract_Url_From_Url_Params_Character(part, Mid(run, position, 3 * count))
	position = position + 3 * count

End Function

' The character of that number, or the given text when there is none or the engine lacks ChrW.
Function Extract_Url_From_Url_Params_Character ( number , otherwise )

	Extract_Url_From_Url_Params_Character = otherwise
	If number < 1 Or number > 1114111 Or (number >= 55296 And number <= 57343) Then Exit Function

	On Error Resume Next
	If number < 128 Then
		Extract_Url_From_Url_Params_Character = Chr(number)
	ElseIf number < 65536 Then
		Extract_Url_From_Url_Params_Character = ChrW(number)
	Else
		Extract_Url_From_Url_Params_Character = ChrW(55296 + (number - 65536) \ 1024) & ChrW(56320 + (number - 65536) Mod 1024)
	End If

End Function
