
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Split_String ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function splits the text at every occurrence of the string specified in the strDelimiter parameter and returns one of the items. The strItemIndex parameter is the number of the item: 0 - the first item, 1 - the second item, and so on; when it is empty, all items are returned, one per line. The reverseOrder parameter specifies how items are counted and can have one of the following values: 0 - from the first item to the last, 1 - from the last item to the first. The result is empty when there is no item of that number.
Function Split_String ( text , strDelimiter , strItemIndex , reverseOrder )

	Dim chunk, items, index, reverse, digits

	Split_String = ""
	If Len(text) = 0 Then Exit Function

	If Len(strDelimiter) = 0 Then
		items = Array(text)
	Else
		items = Split(text, strDelimiter)
	End If
	reverse = CStr(reverseOrder) = "1"

	If Len(strItemIndex) > 0 Then
		Set digits = New RegExp
		digits.Pattern = "^\d{1,9}$"
		If Not digits.Test(strItemIndex) Then Exit Function
		index = CLng(strItemIndex)
		If index > UBound(items) Then Exit Function
		If reverse Then index = UBound(items) - index
		Split_String = items(index)
	ElseIf Not reverse Then
		Split_String = text
		If Len(strDelimiter) > 0 Then Split_String = Replace(text, strDelimiter, vbNewLine)
	Else
		' Long results are put together from chunks, for each addition copies what is there.
		chunk = ""
		For index = UBound(items) To 0 Step -1
			chunk = chunk & vbNewLine & items(index)
			If Len(chunk) > 1000 Then
				Split_String = Split_String & chunk
				chunk = ""
			End If
		Next
		Split_String = Mid(Split_String & chunk, Len(vbNewLine) + 1)
	End If

End Function
