
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Replace_String ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function replaces every occurrence of the string specified in the findWhat parameter with the string specified in the replaceWith parameter. Letter case counts. An empty findWhat changes nothing, an empty replaceWith deletes what is found.
Function Replace_String ( text , findWhat , replaceWith )

	Replace_String = text
	If Len(text) > 0 And Len(findWhat) > 0 Then Replace_String = Replace(text, findWhat, replaceWith)

End Function
