
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Replace_String_RegEx ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function replaces every substring that matches the regular expression specified in the pattern parameter with the string specified in the replaceWith parameter, in which $1 to $9 stand for what the parts of the pattern in parentheses match and $$ for a dollar sign. Letter case counts; ^ and $ match at the beginning and the end of every line. An empty pattern changes nothing.
Function Replace_String_RegEx ( text , pattern , replaceWith )

	Dim expression

	Replace_String_RegEx = text
	If Len(pattern) = 0 Then Exit Function

	Set expression = New RegExp
	expression.Pattern = pattern
	expression.Global = True
	expression.MultiLine = True
	Replace_String_RegEx = expression.Replace(text, replaceWith)

End Function
