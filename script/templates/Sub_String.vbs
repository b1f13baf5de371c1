
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Sub_String ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the substring starting with the substring specified in the startSearchFor parameter and ending with the substring specified in the endSearchFor parameter, both included. An empty startSearchFor stands for the beginning of string, an empty endSearchFor for its end. The reverseSearch parameter specifies the search order and can have one of the following values: 0 - startSearchFor is searched from the beginning of string and endSearchFor after it, 1 - endSearchFor is searched from the end of string and startSearchFor before it. The result is empty when either is not found.
Function Sub_String ( text , startSearchFor , endSearchFor , reverseSearch )

	Dim first, last

	Sub_String = ""
	If Len(text) = 0 Then Exit Function

	' "last" is the position after the result.
	If CStr(reverseSearch) = "1" Then
		last = Len(text) + 1
		If Len(endSearchFor) > 0 Then
			last = InStrRev(text, endSearchFor) + Len(endSearchFor)
			If last = Len(endSearchFor) Then Exit Function
		End If
		first = 1
		If Len(startSearchFor) > 0 Then
			If last - Len(endSearchFor) <= Len(startSearchFor) Then Exit Function
			first = InStrRev(text, startSearchFor, last - Len(endSearchFor) - 1)
			If first = 0 Then Exit Function
		End If
	Else
		first = 1
		If Len(startSearchFor) > 0 Then
			first = InStr(text, startSearchFor)
			If first = 0 Then Exit Function
		End If
		last = Len(text) + 1
		If Len(endSearchFor) > 0 Then
			last = InStr(first + Len(startSearchFor), text, endSearchFor)
			If last = 0 Then Exit Function
			last = last + Len(endSearchFor)
		End If
	End If

	Sub_String = Mid(text, first, last - first)

End Function
