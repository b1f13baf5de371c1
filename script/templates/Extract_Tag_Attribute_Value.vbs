
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tag_Attribute_Value ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the values of the attribute specified in the attributeName parameter from all tags that have it, one per line, with entities such as &amp; replaced by their characters. Letter case does not count in the name. The unique parameter can have one of the following values: 0 - all values are returned, 1 - equal values are returned once.
Function Extract_Tag_Attribute_Value ( text , attributeName , unique )

	Dim known, values, tag, attributes, value, chunk

	Extract_Tag_Attribute_Value = ""
	If Len(attributeName) = 0 Then Exit Function
	Set values = CreateObject("Scripting.Dictionary")
	Set known = CreateObject("Scripting.Dictionary")
	For Each tag In Html_Tags(text, "", "", known)
		attributes = tag.SubMatches(1)
		If InStr(1, attributes, attributeName, 1) > 0 Then
			attributes = Split(Html_Attributes(attributes, known), Chr(1) & attributeName & "=", 2, 1)
			If UBound(attributes) > 0 Then
				attributes = Split(attributes(1), Chr(1))
				value = vbNewLine & attributes(0)
				If CStr(unique) <> "1" Or Not values.Exists(value) Then chunk = chunk & value
				values(value) = True
			End If
			' Each addition to a long text copies it, so it gets few.
			If Len(chunk) > 4000 Then Extract_Tag_Attribute_Value = Extract_Tag_Attribute_Value & chunk : chunk = ""
		End If
	Next
	Extract_Tag_Attribute_Value = Mid(Extract_Tag_Attribute_Value & chunk, Len(vbNewLine) + 1)

End Function

{{INCLUDE Html_Attributes.vbs}}

{{INCLUDE Html_Tags.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
