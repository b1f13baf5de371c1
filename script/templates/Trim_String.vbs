
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Trim_String ( text , "%PARAM_1%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function removes the string specified in the searchFor parameter from the beginning and from the end of the text, as often as it occurs there. When searchFor is empty, white space (spaces, tabs and line breaks) is removed.
Function Trim_String ( text , searchFor )

	Dim expression, matches, first, last, length

	Trim_String = ""

	If Len(searchFor) = 0 Then
		Set expression = New RegExp
		expression.Pattern = "\S(?:[\s\S]*\S)?"
		Set matches = expression.Execute(text)
		If matches.Count > 0 Then Trim_String = matches(0).Value
		Exit Function
	End If

	length = Len(searchFor)
	first = 1
	Do While Mid(text, first, length) = searchFor
		first = first + length
	Loop

	' "last" is the position after the result.
	last = Len(text) + 1
	Do While last - length >= first
		If Mid(text, last - length, length) <> searchFor Then Exit Do
		last = last - length
	Loop

	Trim_String = Mid(text, first, last - first)

End Function
