
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Tag_Attribute_Value ( text , "%PARAM_1%" , "%PARAM_2%" )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the values of the attribute specified in the attributeName parameter from all tags that have it, one per line, with entities such as &amp; replaced by their characters. Letter case does not count in the name. The unique parameter can have one of the following values: 0 - all values are returned, 1 - equal values are returned once.
Function Extract_Tag_Attribute_Value ( text , attributeName , unique )

	Dim attributes, tags, pairs, tag, pair, value, known, chunk, separator

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)"

	Set tags = New RegExp
	tags.Pattern = "<!--[\s\S]*?(?:-->|$)" & _
		"|<(script|style)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)" & _
		"|<[a-z][^\s\/<>=]*(?=[\s\/>])" & attributes & ">"
	tags.Global = True
	tags.IgnoreCase = True
	Set pairs = New RegExp
	pairs.Pattern = "([^\s""'<>\/=]+)(?:\s*=\s*(?:""([^""]*)(?:""|$)|'([^']*)(?:'|$)|([^\s""'>][^\s>]*)))?"
	pairs.Global = True
	Set known = CreateObject("Scripting.Dictionary")

	' Long results are put together from chunks, for each addition copies what is there.
	Extract_Tag_Attribute_Value = ""
	If Len(attributeName) = 0 Then Exit Function
	chunk = ""
	separator = ""
	For Each tag In tags.Execute(text)
		If InStr(1, tag.Value, attributeName, 1) > 0 Then
			For Each pair In pairs.Execute(tag.SubMatches(1) & tag.SubMatches(2))
				If LCase(pair.SubMatches(0)) = LCase(attributeName) Then
					value = pair.SubMatches(1) & pair.SubMatches(2) & pair.SubMatches(3)
					value = Extract_Tag_Attribute_Value_Decode(value)
					If Not (CStr(unique) = "1" And known.Exists(value)) Then
						known(value) = True
						chunk = chunk & separator & value
						separator = vbNewLine
					End If
					Exit For
				End If
			Next
			If Len(chunk) > 4000 Then
				Extract_Tag_Attribute_Value = Extract_Tag_Attribute_Value & chunk
				chunk = ""
			End If
		End If
	Next
	Extract_Tag_Attribute_Value = Extract_Tag_Attribute_Value & chunk

End Function

' The text with each entity replaced by its character.
Function Extract_Tag_Attribute_Value_Decode ( text )

	Dim chunk, position, match, entities

	Set entities = New RegExp
	entities.Pattern = "&(?:#\d{1,7}|#x[0-9a-f]{1,6}|amp|lt|gt|quot|apos|nbsp);"
	entities.Global = True
	entities.IgnoreCase = True

	Extract_Tag_Attribute_Value_Decode = ""
	chunk = ""
	position = 1
	For Each match In entities.Execute(text)
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position) & Extract_Tag_Attribute_Value_Entity(match.Value)
		position = match.FirstIndex + match.Length + 1
		If Len(chunk) > 4000 Then
			Extract_Tag_Attribute_Value_Decode = Extract_Tag_Attribute_Value_Decode & chunk
			chunk = ""
		End If
	Next
	Extract_Tag_Attribute_Value_Decode = Extract_Tag_Attribute_Value_Decode & chunk & Mid(text, position)

End Function

' The character that an entity stands for; other names than these, and what the engine cannot write, stay as they are.
Function Extract_Tag_Attribute_Value_Entity ( entity )

	Dim number

	Select Case LCase(entity)
		Case "&amp;"
			Extract_Tag_Attribute_Value_Entity = "&"
		Case "&lt;"
			Extract_Tag_Attribute_Value_Entity = "<"
		Case "&gt;"
			Extract_Tag_Attribute_Value_Entity = ">"
		Case "&quot;"
			Extract_Tag_Attribute_Value_Entity = """"
		Case "&apos;"
			Extract_Tag_Attribute_Value_Entity = "'"
		Case "&nbsp;"
			Extract_Tag_Attribute_Value_Entity = " "
		Case Else
			If LCase(Mid(entity, 3, 1)) = "x" Then
				' In two parts, for &HFFFF would be -1.
				number = Right("00000" & Mid(entity, 4, Len(entity) - 4), 6)
				number = CLng("&H" & Left(number, 4)) * 256 + CLng("&H" & Right(number, 2))
			Else
				number = CLng(Mid(entity, 3, Len(entity) - 3))
			End If
			Extract_Tag_Attribute_Value_Entity = Extract_Tag_Attribute_Value_Character(number, entity)
	End Select

End Function

' The character of that number, or the given text when there is none or the engine lacks ChrW.
Function Extract_Tag_Attribute_Value_Character ( number , otherwise )

	Extract_Tag_Attribute_Value_Character = otherwise
	If number < 1 Or number > 1114111 Or (number >= 55296 And number <= 57343) Then Exit Function

	On Error Resume Next
	If number < 128 Then
		Extract_Tag_Attribute_Value_Character = Chr(number)
	ElseIf number < 65536 Then
		Extract_Tag_Attribute_Value_Character = ChrW(number)
	Else
		Extract_Tag_Attribute_Value_Character = ChrW(55296 + (number - 65536) \ 1024) & ChrW(56320 + (number - 65536) Mod 1024)
	End If

End Function
