' Tests the attributes of elements; a step of a selector has it.
Function Html_Test ( stp , name , operator , value )

	Dim expression, pattern, i, form

	Set expression = New RegExp
	expression.Global = True
	expression.Pattern = "[^\w\u0080-\uffff]"
	form = InStr(" =^$*~|", Left(operator & " ", 1)) - 1
	' Of each operator, with v for the value.
	pattern = Split("= =v\x01 =v =[^\x01]*v\x01 =[^\x01]*v =(?:[^\x01]*\s)?v[\s\x01] =v[-\x01]")
	pattern = Replace(pattern(form), "v", expression.Replace(value, "\$&"))
	' Of an empty value, and of two words, four of them find nothing.
	If form > 1 And form < 6 And (value = "" Or form = 5 And InStr(value, " ") > 0) Then pattern = "[^\s\S]"
	' Names in any letter case.
	For i = Len(name) To 1 Step -1
		pattern = "[" & LCase(Mid(name, i, 1)) & UCase(Mid(name, i, 1)) & "]" & pattern
	Next
	expression.Pattern = "\x01" & pattern
	Html_Test = Array(stp, expression, name)

End Function

' Which of the steps an element with these attributes passes. Pages repeat attributes, so the answer is kept in "known".
Function Html_Passed ( steps , tests , attributes , known )

	Dim key, test, values

	key = steps & attributes
	Html_Passed = steps
	If known.Exists(key) Then Html_Passed = known(key) : Exit Function
	For Each test In tests
		If Html_Passed And test(0) Then
			If values = "" And InStr(1, attributes, test(2), 1) > 0 Then values = Html_Attributes(attributes, known)
			If Not test(1).Test(values) Then Html_Passed = Html_Passed And Not test(0)
		End If
	Next
	known.Add key, Html_Passed

End Function
