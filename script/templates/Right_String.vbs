
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Right_String ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the substring starting with the substring specified in the searchFor parameter and ending with the last character. The reverseSearch parameter specifies the search order and can have one of the following values: 0 - the search begins from the beginning of string, 1 - the search begins from the end of string.
Function Right_String ( text , searchFor , reverseSearch )

	Dim position

	Right_String = ""
	If Len(text) = 0 Or Len(searchFor) = 0 Then Exit Function

	If CStr(reverseSearch) = "1" Then
		position = InStrRev(text, searchFor)
	Else
		position = InStr(text, searchFor)
	End If

	If position > 0 Then Right_String = Mid(text, position)

End Function
