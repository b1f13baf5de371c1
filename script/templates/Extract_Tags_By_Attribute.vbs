
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_By_Attribute ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element with the tag name specified in the tagName parameter (empty - any) that has the attribute specified in the attributeName parameter (empty - no attribute is needed) with the value specified in the attributeValue parameter (empty - any value). Letter case counts in the value only, which is compared as a whole. The result is empty when there is no such element.
Function Extract_Tags_By_Attribute ( text , tagName , attributeName , attributeValue )

	Dim index, wantedName, names, selected, starts, value, pairs, elements

	elements = Extract_Tags_By_Attribute_Elements(text)
	names = elements(1)
	starts = elements(2)
	ReDim selected(elements(0))
	Set pairs = Extract_Tags_By_Attribute_Pairs()
	wantedName = LCase(tagName)
	If wantedName = "*" Then wantedName = ""

	For index = 1 To elements(0)
		If wantedName = "" Or names(index) = wantedName Then
			value = ""
			If attributeName <> "" Then value = Extract_Tags_By_Attribute_Attribute(starts(index), attributeName, pairs)
			If Not IsNull(value) Then selected(index) = attributeName = "" Or attributeValue = "" Or value = attributeValue
		End If
	Next
	Extract_Tags_By_Attribute = Extract_Tags_By_Attribute_Texts(text, elements, selected)

End Function

{{INCLUDE Elements.vbs}}
