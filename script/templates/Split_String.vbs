
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Split_String ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function splits the text at every occurrence of the string specified in the strDelimiter parameter and returns one of the items. The strItemIndex parameter is the number of the item: 0 - the first item, 1 - the second item, and so on; when it is empty, all items are returned, one per line. The reverseOrder parameter specifies how items are counted and can have one of the following values: 0 - from the first item to the last, 1 - from the last item to the first. The result is empty when there is no item of that number.
Function Split_String ( text , strDelimiter , strItemIndex , reverseOrder )

	Dim items, index, number, chunk, separator

	Split_String = ""
	If Len(text) = 0 Then Exit Function

	If Len(strDelimiter) = 0 Then
		items = Array(text)
	Else
		items = Split(text, strDelimiter)
	End If

	If Len(strItemIndex) > 0 Then
		If Not IsNumeric(strItemIndex) Then Exit Function
		number = CDbl(strItemIndex)
		If number < 0 Or number > UBound(items) Or number <> Int(number) Then Exit Function
		If CStr(reverseOrder) = "1" Then number = UBound(items) - number
		Split_String = items(number)
		Exit Function
	End If

	' Long results are put together from chunks, for each addition copies what is there.
	chunk = ""
	separator = ""
	For index = 0 To UBound(items)
		number = index
		If CStr(reverseOrder) = "1" Then number = UBound(items) - index
		chunk = chunk & separator & items(number)
		separator = vbNewLine
		If Len(chunk) > 4000 Then
			Split_String = Split_String & chunk
			chunk = ""
		End If
	Next
	Split_String = Split_String & chunk

End Function
