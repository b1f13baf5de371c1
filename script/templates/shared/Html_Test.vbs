' A test of attributes for a step of a selector. In the pattern v is the value.
Function Html_Test ( stp , name , pattern , value )

	Dim expression, i

	Set expression = New RegExp
	expression.Global = True
	expression.Pattern = "[^\w\u0080-\uffff]"
	pattern = Replace(pattern, "v", expression.Replace(value, "\$&"))
	' Names in any letter case.
	For i = Len(name) To 1 Step -1
		pattern = "[" & LCase(Mid(name, i, 1)) & UCase(Mid(name, i, 1)) & "]" & pattern
	Next
	expression.Pattern = "\x01" & pattern
	Html_Test = Array(stp, expression, name)

End Function

' Which of the steps these attributes pass; kept in "known", because pages repeat them.
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
