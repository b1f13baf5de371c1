' The text with each entity replaced by its character.
Function {{HELPER_NAME}}_Decode ( text )

	Dim chunk, position, match, entities

	Set entities = New RegExp
	entities.Pattern = "&(?:#\d{1,7}|#x[0-9a-f]{1,6}|amp|lt|gt|quot|apos|nbsp);"
	entities.Global = True
	entities.IgnoreCase = True

	{{HELPER_NAME}}_Decode = ""
	chunk = ""
	position = 1
	For Each match In entities.Execute(text)
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position) & {{HELPER_NAME}}_Entity(match.Value)
		position = match.FirstIndex + match.Length + 1
		If Len(chunk) > 4000 Then
			{{HELPER_NAME}}_Decode = {{HELPER_NAME}}_Decode & chunk
			chunk = ""
		End If
	Next
	{{HELPER_NAME}}_Decode = {{HELPER_NAME}}_Decode & chunk & Mid(text, position)

End Function
