
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tag_Attribute_Value ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the values of the attribute specified in the attributeName parameter from all tags that have it, one per line, with entities such as &amp; replaced by their characters. Letter case does not count in the name. The unique parameter can have one of the following values: 0 - all values are returned, 1 - equal values are returned once.
Function Extract_Tag_Attribute_Value ( text , attributeName , unique )

	Dim known, values, tag, match, value, chunk

	Extract_Tag_Attribute_Value = ""
	If Len(attributeName) = 0 Then Exit Function
	Set values = CreateObject("Scripting.Dictionary")
	Set known = Html_Entities()
	For Each tag In Html_Tags(text, known)
		If InStr(1, tag.Value, attributeName, 1) > 0 Then
			For Each match In Html_Expression("\x01([^\x01=]+)=([^\x01]*)", known).Execute(Html_Attributes(tag.SubMatches(1) & tag.SubMatches(4), known))
				If LCase(match.SubMatches(0)) = LCase(attributeName) Then
					value = match.SubMatches(1)
					If CStr(unique) <> "1" Or Not values.Exists(value) Then chunk = chunk & vbNewLine & value
					values(value) = True
					Exit For
				End If
			Next
			' Long results are put together from chunks, for each addition copies what is there.
			If Len(chunk) > 4000 Then
				Extract_Tag_Attribute_Value = Extract_Tag_Attribute_Value & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Tag_Attribute_Value = Mid(Extract_Tag_Attribute_Value & chunk, Len(vbNewLine) + 1)

End Function

{{INCLUDE Html_Attributes.vbs}}

{{INCLUDE Html_Tags.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_Expression.vbs}}

{{INCLUDE Html_Entities.vbs}}
