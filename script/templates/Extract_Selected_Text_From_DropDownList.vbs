
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Extract_Selected_Text_From_DropDownList ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function extracts the text of the selected item of every drop-down list (select tag), one per line. Where no item is marked as selected it is the first that is not disabled, as a browser shows it; a list of several choices (multiple attribute) gives all that are marked. Tags within an item are removed and entities such as &amp; replaced by their characters.
Function Extract_Selected_Text_From_DropDownList ( text )

	Dim known, page, tag, part, attributes, label, match, several, first, chosen, result

	Set known = CreateObject("Scripting.Dictionary")
	page = Html_RegExp("<!--(?:-?>|[\s\S]*?(?:--!?>|$))|<(script|style|datalist|textarea|title)@>[\s\S]*?(?:<\/\1[^>]*>|$)", known).Replace(text, "")
	' Each list begins anew; each item has its attributes and its content.
	For Each tag In Html_RegExp("<select(@)>|<\/select[^<>]*>|<option(@)>([\s\S]*?)(?=<\/?(?:select|option|optgroup)[\s\/>]|$)", known).Execute(page & "</select>")
		Set part = tag.SubMatches
		If LCase(Mid(tag.Value, 2, 1)) = "o" Then
			attributes = Html_Attributes(part(1), known)
			label = Html_RegExp("<\/?[a-z][^\s\/<>]*@>", known).Replace(part(2), "")
			label = vbNewLine & Html_Decode(Trim(Html_RegExp("\s+", known).Replace(label, " ")), "", known)
			' A browser shows the label in place of the content.
			For Each match In Html_RegExp("\x01label=([^\x01]+)", known).Execute(attributes)
				label = vbNewLine & match.SubMatches(0)
			Next
			If InStr(1, attributes, Chr(1) & "selected=", 1) > 0 Then
				If Not several Then chosen = ""
				chosen = chosen & label
			ElseIf first = "" And InStr(1, attributes, Chr(1) & "disabled=", 1) = 0 Then
				first = label
			End If
		Else
			If chosen = "" And Not several Then chosen = first
			result = result & chosen
			chosen = ""
			first = ""
			several = InStr(1, Html_Attributes(part(0), known), Chr(1) & "multiple=", 1) > 0
		End If
	Next
	Extract_Selected_Text_From_DropDownList = Mid(result, Len(vbNewLine) + 1)

End Function

{{INCLUDE Html_Attributes.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
