
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
	tags.Pattern = "<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<(script|style|datalist|textarea|title)(?=[\s\/>])" & attributes & ">[\s\S]*?(?:<\/\1[^>]*>|$)" & _
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

	Dim selected, disabled, expression, label, match

	selected = Extract_Selected_Text_From_DropDownList_Has(attributes, "selected")
	disabled = Extract_Selected_Text_From_DropDownList_Has(attributes, "disabled")
	If Not selected And (disabled Or Len(list(2)) > 0) Then Exit Sub

	Set expression = New RegExp
	expression.Global = True
	expression.Pattern = "\s+"
	label = Trim(expression.Replace(tags.Replace(content, ""), " "))
	' A browser shows the label in place of the content.
	expression.IgnoreCase = True
	expression.Pattern = "(?:^|[\s""'\/])label\s*=\s*(?:""([^""]+)""|'([^']+)'|([^\s""'>]+))"
	For Each match In expression.Execute(attributes)
		label = match.SubMatches(0) & match.SubMatches(1) & match.SubMatches(2)
	Next
	label = vbNewLine & Html_Decode(label)

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

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_Character.vbs}}
