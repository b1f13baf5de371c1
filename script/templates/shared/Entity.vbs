' The character that an entity stands for; other names than these, and what the engine cannot write, stay as they are.
Function {{HELPER_NAME}}_Entity ( entity )

	Dim number

	Select Case LCase(entity)
		Case "&amp;"
			{{HELPER_NAME}}_Entity = "&"
		Case "&lt;"
			{{HELPER_NAME}}_Entity = "<"
		Case "&gt;"
			{{HELPER_NAME}}_Entity = ">"
		Case "&quot;"
			{{HELPER_NAME}}_Entity = """"
		Case "&apos;"
			{{HELPER_NAME}}_Entity = "'"
		Case "&nbsp;"
			{{HELPER_NAME}}_Entity = " "
		Case Else
			If LCase(Mid(entity, 3, 1)) = "x" Then
				' In two parts, for &HFFFF would be -1.
				number = Right("00000" & Mid(entity, 4, Len(entity) - 4), 6)
				number = CLng("&H" & Left(number, 4)) * 256 + CLng("&H" & Right(number, 2))
			Else
				number = CLng(Mid(entity, 3, Len(entity) - 3))
			End If
			{{HELPER_NAME}}_Entity = {{HELPER_NAME}}_Character(number, entity)
	End Select

End Function
