
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Download_URL ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function downloads the page whose URL is the text and returns its source. Redirections are followed; a connection is awaited for 10 seconds and the whole answer for 60 seconds. The result is empty when the server cannot be reached, does not answer in time or answers with an error.
Function Download_URL ( text )

	Dim request, completed, body

	Download_URL = ""
	Set request = CreateObject("WinHttp.WinHttpRequest.5.1")

	On Error Resume Next
	request.SetTimeouts 10000, 10000, 60000, 60000
	request.Open "GET", Trim(Replace(Replace(Replace(text, vbCr, " "), vbLf, " "), vbTab, " ")), True
	request.Send
	completed = False
	If Err.Number = 0 Then completed = request.WaitForResponse(60)
	If Err.Number <> 0 Or Not completed Then
		request.Abort
		Exit Function
	End If

	body = ""
	If request.Status >= 200 And request.Status < 300 Then body = request.ResponseText
	If Err.Number = 0 Then Download_URL = body

End Function
