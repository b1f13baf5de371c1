
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Sub_String_RegEx ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts every substring that matches the regular expression specified in the pattern parameter, one per line. Letter case counts; ^ and $ match at the beginning and the end of every line. The unique parameter can have one of the following values: 0 - all matches are returned, 1 - equal matches are returned once. The result is empty when nothing matches.
Function Sub_String_RegEx ( text , pattern , unique )

	Dim chunk, match, found, once, known, expression

	Sub_String_RegEx = ""
	If Len(pattern) = 0 Then Exit Function

	Set expression = New RegExp
	expression.Pattern = pattern
	expression.Global = True
	expression.MultiLine = True
	once = CStr(unique) = "1"
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	chunk = ""
	For Each match In expression.Execute(text)
		found = match.Value
		If once Then
			If known.Exists(found) Then
				found = ""
			Else
				known(found) = True
			End If
		End If
		If found <> "" Then
			chunk = chunk & vbNewLine & found
			If Len(chunk) > 1000 Then
				Sub_String_RegEx = Sub_String_RegEx & chunk
				chunk = ""
			End If
		End If
	Next
	Sub_String_RegEx = Mid(Sub_String_RegEx & chunk, Len(vbNewLine) + 1)

End Function
