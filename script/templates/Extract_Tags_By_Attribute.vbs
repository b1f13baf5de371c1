
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tags_By_Attribute ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts, from its start tag to its end tag and one after the other on lines of their own, every HTML element with the tag name specified in the tagName parameter (empty - any) that has the attribute specified in the attributeName parameter (empty - no attribute is needed) with the value specified in the attributeValue parameter (empty - any value). Letter case counts in the value only, which is compared as a whole. The result is empty when there is no such element.
Function Extract_Tags_By_Attribute ( text , tagName , attributeName , attributeValue )

	Dim names, tests, pattern

	Set names = CreateObject("Scripting.Dictionary")
	names.CompareMode = 1
	If tagName = "" Then tagName = "*"
	names(tagName) = 1
	tests = Array()
	pattern = "=v\x01"
	If attributeValue = "" Then pattern = "="
	If attributeName <> "" Then tests = Array(Html_Test(1, attributeName, pattern, attributeValue))
	Extract_Tags_By_Attribute = Html_Select(text, names, tests, 1, 0, 1)

End Function

{{INCLUDE Html_Select.vbs}}

{{INCLUDE Html_Kinds.vbs}}

{{INCLUDE Html_Test.vbs}}

{{INCLUDE Html_Attributes.vbs}}

{{INCLUDE Html_Tags.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
