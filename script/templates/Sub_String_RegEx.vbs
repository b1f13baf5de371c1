
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Sub_String_RegEx ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts every substring that matches the regular expression specified in the pattern parameter, one per line. Letter case counts; ^ and $ match at the beginning and the end of every line. The unique parameter can have one of the following values: 0 - all matches are returned, 1 - equal matches are returned once. The result is empty when nothing matches.
Function Sub_String_RegEx ( text , pattern , unique )

	Dim expression, match, known, chunk, separator

	Sub_String_RegEx = ""
	If Len(pattern) = 0 Then Exit Function

	Set expression = New RegExp
	expression.Pattern = pattern
	expression.Global = True
	expression.MultiLine = True
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	chunk = ""
	separator = ""
	For Each match In expression.Execute(text)
		If match.Length > 0 And Not (CStr(unique) = "1" And known.Exists(match.Value)) Then
			known(match.Value) = True
			chunk = chunk & separator & match.Value
			separator = vbNewLine
			If Len(chunk) > 4000 Then
				Sub_String_RegEx = Sub_String_RegEx & chunk
				chunk = ""
			End If
		End If
	Next
	Sub_String_RegEx = Sub_String_RegEx & chunk

End Function
