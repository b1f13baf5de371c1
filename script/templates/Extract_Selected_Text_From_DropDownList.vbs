
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Selected_Text_From_DropDownList ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the text of the selected item of every drop-down list (select tag), one per line. Where no item is marked as selected it is the first that is not disabled, as a browser shows it; a list of several choices (multiple attribute) gives all that are marked. Tags within an item are removed and entities such as &amp; replaced by their characters.
Function Extract_Selected_Text_From_DropDownList ( text )

	Dim tags, attributes, tag, parts, name, result, list, optionStart, optionAttributes

	' What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	attributes = "([^<>=]*(?:=(?:\s*""[^""]*""|\s*'[^']*'|(?!\s*""[^""]*""|\s*'[^']*'))[^<>=]*)*)"

	Set tags = New RegExp
	tags.Pattern = "<!--[\s\S]*?(?:-->|$)|<(script|style)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)" & _
		"|<(\/?)([a-z][^\s\/<>=]*)(?=[\s\/>])" & attributes & ">"
	tags.Global = True
	tags.IgnoreCase = True

	result = ""
	list = Extract_Selected_Text_From_DropDownList_New("")
	optionStart = 0
	For Each tag In tags.Execute(text)
		Set parts = tag.SubMatches
		name = LCase(parts(3))
		If name = "select" Or name = "option" Or name = "optgroup" Then
			' Each of these tags ends an item.
			If optionStart > 0 Then
				Extract_Selected_Text_From_DropDownList_Add list, optionAttributes, Mid(text, optionStart, tag.FirstIndex + 1 - optionStart), tags
				optionStart = 0
			End If
			If name = "select" Then
				result = result & Extract_Selected_Text_From_DropDownList_Shown(list)
				list = Extract_Selected_Text_From_DropDownList_New(parts(4))
			ElseIf name = "option" And parts(2) = "" Then
				optionStart = tag.FirstIndex + tag.Length + 1
				optionAttributes = parts(4)
			End If
		End If
	Next
	If optionStart > 0 Then Extract_Selected_Text_From_DropDownList_Add list, optionAttributes, Mid(text, optionStart), tags
	result = result & Extract_Selected_Text_From_DropDownList_Shown(list)

	If Len(result) > 0 Then result = Mid(result, Len(vbNewLine) + 1)
	Extract_Selected_Text_From_DropDownList = result

End Function

' A list without items yet: whether several can be chosen, the selected text, the text shown when none is selected; each
' text begins with a line break.
Function Extract_Selected_Text_From_DropDownList_New ( attributes )

	Extract_Selected_Text_From_DropDownList_New = Array(Extract_Selected_Text_From_DropDownList_Has(attributes, "multiple"), "", "")

End Function

' What a list shows.
Function Extract_Selected_Text_From_DropDownList_Shown ( list )

	Extract_Selected_Text_From_DropDownList_Shown = list(1)
	If Len(list(1)) = 0 And Not list(0) Then Extract_Selected_Text_From_DropDownList_Shown = list(2)

End Function

Sub Extract_Selected_Text_From_DropDownList_Add ( list , attributes , content , tags )

	Dim selected, disabled, expression, label

	selected = Extract_Selected_Text_From_DropDownList_Has(attributes, "selected")
	disabled = Extract_Selected_Text_From_DropDownList_Has(attributes, "disabled")
	If Not selected And (disabled Or Len(list(2)) > 0) Then Exit Sub

	Set expression = New RegExp
	expression.Global = True
	expression.Pattern = "\s+"
	label = Trim(expression.Replace(tags.Replace(content, ""), " "))
	label = vbNewLine & Extract_Selected_Text_From_DropDownList_Decode(label)

	If Not selected Then
		list(2) = label
	ElseIf list(0) Then
		list(1) = list(1) & label
	Else
		list(1) = label
	End If

End Sub

' Whether a tag with these attributes has the one of that name.
Function Extract_Selected_Text_From_DropDownList_Has ( attributes , name )

	Dim expression, names

	Extract_Selected_Text_From_DropDownList_Has = False
	If InStr(1, attributes, name, 1) > 0 Then
		Set expression = New RegExp
		expression.Global = True
		expression.IgnoreCase = True
		expression.Pattern = "=\s*(?:""[^""]*""|'[^']*'|[^\s""']+)"
		names = expression.Replace(attributes, " ")
		expression.Pattern = "(?:^|[\s\/])" & name & "(?:[\s\/]|$)"
		Extract_Selected_Text_From_DropDownList_Has = expression.Test(names)
	End If

End Function

' The text with each entity replaced by its character.
Function Extract_Selected_Text_From_DropDownList_Decode ( text )

	Dim chunk, position, match, entities

	Set entities = New RegExp
	entities.Pattern = "&(?:#\d{1,7}|#x[0-9a-f]{1,6}|amp|lt|gt|quot|apos|nbsp);"
	entities.Global = True
	entities.IgnoreCase = True

	Extract_Selected_Text_From_DropDownList_Decode = ""
	chunk = ""
	position = 1
	For Each match In entities.Execute(text)
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position) & Extract_Selected_Text_From_DropDownList_Entity(match.Value)
		position = match.FirstIndex + match.Length + 1
		If Len(chunk) > 4000 Then
			Extract_Selected_Text_From_DropDownList_Decode = Extract_Selected_Text_From_DropDownList_Decode & chunk
			chunk = ""
		End If
	Next
	Extract_Selected_Text_From_DropDownList_Decode = Extract_Selected_Text_From_DropDownList_Decode & chunk & Mid(text, position)

End Function

' The character that an entity stands for; other names than these, and what the engine cannot write, stay as they are.
Function Extract_Selected_Text_From_DropDownList_Entity ( entity )

	Dim number

	Select Case LCase(entity)
		Case "&amp;"
			Extract_Selected_Text_From_DropDownList_Entity = "&"
		Case "&lt;"
			Extract_Selected_Text_From_DropDownList_Entity = "<"
		Case "&gt;"
			Extract_Selected_Text_From_DropDownList_Entity = ">"
		Case "&quot;"
			Extract_Selected_Text_From_DropDownList_Entity = """"
		Case "&apos;"
			Extract_Selected_Text_From_DropDownList_Entity = "'"
		Case "&nbsp;"
			Extract_Selected_Text_From_DropDownList_Entity = " "
		Case Else
			If LCase(Mid(entity, 3, 1)) = "x" Then
				' In two parts, for &HFFFF would be -1.
				number = Right("00000" & Mid(entity, 4, Len(entity) - 4), 6)
				number = CLng("&H" & Left(number, 4)) * 256 + CLng("&H" & Right(number, 2))
			Else
				number = CLng(Mid(entity, 3, Len(entity) - 3))
			End If
			Extract_Selected_Text_From_DropDownList_Entity = Extract_Selected_Text_From_DropDownList_Character(number, entity)
	End Select

End Function

' The character of that number, or the given text when there is none or the engine lacks ChrW.
Function Extract_Selected_Text_From_DropDownList_Character ( number , otherwise )

	Extract_Selected_Text_From_DropDownList_Character = otherwise
	If number < 1 Or number > 1114111 Or (number >= 55296 And number <= 57343) Then Exit Function

	On Error Resume Next
	If number < 128 Then
		Extract_Selected_Text_From_DropDownList_Character = Chr(number)
	ElseIf number < 65536 Then
		Extract_Selected_Text_From_DropDownList_Character = ChrW(number)
	Else
		Extract_Selected_Text_From_DropDownList_Character = ChrW(55296 + (number - 65536) \ 1024) & ChrW(56320 + (number - 65536) Mod 1024)
	End If

End Function
