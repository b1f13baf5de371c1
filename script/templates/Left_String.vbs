
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Left_String ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the substring starting from the first character and ending with the substring specified in the searchFor parameter. The reverseSearch parameter specifies the search order and can have one of the following values: 0 - the search begins from the beginning of string, 1 - the search begins from the end of string.
Function Left_String ( text , searchFor , reverseSearch )

	Dim position

	Left_String = ""
	If Len(text) = 0 Or Len(searchFor) = 0 Then Exit Function

	If CStr(reverseSearch) = "1" Then
		position = InStrRev(text, searchFor)
	Else
		position = InStr(text, searchFor)
	End If

	If position > 0 Then Left_String = Left(text, position + Len(searchFor) - 1)

End Function
