
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Download_URL ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function downloads the page whose URL is the text and returns its source. Redirections are followed; a connection is awaited for 10 seconds and the whole answer for 60 seconds. The result is empty when the server cannot be reached, does not answer in time or answers with an error.
Function Download_URL ( text )

	Dim request, sent, completed, body

	Download_URL = ""
	Set request = CreateObject("WinHttp.WinHttpRequest.5.1")

	On Error Resume Next
	request.SetTimeouts 10000, 10000, 60000, 60000
	request.Open "GET", Trim(Replace(Replace(Replace(text, vbCr, " "), vbLf, " "), vbTab, " ")), True
	request.Send
	sent = Now
	completed = False
	' Wine also returns False when the answer came before the call.
	If Err.Number = 0 Then completed = request.WaitForResponse(60) Or (Now - sent) * 86400 < 50
	If Err.Number <> 0 Or Not completed Then
		request.Abort
		Exit Function
	End If

	body = ""
	If request.Status >= 200 And request.Status < 300 Then
		body = Page_Text(request)
		If Err.Number <> 0 Then
			Err.Clear
			body = request.ResponseText
		End If
	End If
	If Err.Number = 0 Then Download_URL = body

End Function

' The page by the first character set that is known: of the header, a byte-order mark, <meta> or <?xml>, UTF-8 if valid, Windows-1252.
Function Page_Text ( request )

	Dim element, bytes, charset, page

	Set element = Page_Document().createElement("bytes")
	element.dataType = "bin.hex"
	element.nodeTypedValue = request.ResponseBody
	bytes = LCase(element.text)
	Page_Text = Page_Decode(bytes, Page_Find(request.GetAllResponseHeaders(), "()(^|\n)content-type:.*charset\s*=\s*[""']?([^\s""';,]+)"))
	If IsNull(Page_Text) And Left(bytes, 6) = "efbbbf" Then Page_Text = Page_Decode(bytes, "utf-8")
	If IsNull(Page_Text) And (Left(bytes, 4) = "feff" Or Left(bytes, 4) = "fffe") Then Page_Text = Page_Decode(bytes, "utf-16")
	If Not IsNull(Page_Text) Then Exit Function

	' A page names it within 16 KB.
	page = Page_Decode(Left(bytes, 32768), "windows-1252")
	page = Page_Replace(page, "<!--(-?>|[\s\S]*?(--!?>|$))", "")
	charset = Page_Find(page, "<meta(?=[\s\/])((?=[^<>]*http-equiv\s*=\s*[""']?content-type)[^<>]*?|([^<>""']|""[^""<]*""|'[^'<]*')*?[\s\/""'])charset\s*=\s*[""']?\s*([^\s""'>;\/]+)")
	If charset = "" Then charset = Page_Find(page, "^\s*<\?xml\s([^>]*\s)?()encoding\s*=\s*[""']([^""']+)")
	Page_Text = Page_Decode(bytes, Page_Replace(charset, "^utf-16.*", "utf-8"))
	If IsNull(Page_Text) Then
		If Page_Utf8(bytes) = bytes Then Page_Text = Page_Decode(bytes, "utf-8")
	End If
	If IsNull(Page_Text) Then Page_Text = Page_Decode(bytes, "windows-1252")

End Function

' The text of bytes such as "3c61", Null when the character set is unknown. Windows' XML parser decodes them.
Function Page_Decode ( ByVal bytes , ByVal charset )

	Dim document, element, mark, before, after, repaired

	Page_Decode = Null
	If charset = "" Then Exit Function
	charset = Page_Charset(LCase(charset))
	If charset = "utf-8" Then bytes = Page_Replace(bytes, "^efbbbf", "")
	If Left(charset, 6) = "utf-16" Then
		mark = "fffe"
		If charset = "utf-16be" Or Left(bytes, 4) = "feff" Then mark = "feff"
		If mark = "feff" Then before = "00"
		If mark = "fffe" Then after = "00"
		charset = "utf-16"
		bytes = Page_Replace(bytes, "^(feff|fffe)", "")
		bytes = Left(bytes, Len(bytes) - Len(bytes) Mod 4)
	End If

	Set document = Page_Document()
	Set element = document.createElement("bytes")
	element.dataType = "bin.hex"
	element.text = mark & Page_Bytes("<?xml version=""1.0"" encoding=""" & charset & """?><a>", before, after) & Page_Escape(bytes, mark, before, after) & Page_Bytes("</a>", before, after)
	document.async = False
	document.preserveWhiteSpace = True
	If document.load(element.nodeTypedValue) Then
		Page_Decode = document.documentElement.text
	ElseIf charset = "utf-8" Then
		repaired = Page_Utf8(bytes)
		If repaired <> bytes Then Page_Decode = Page_Decode(repaired, charset)
	End If

End Function

' The name under which the XML parser knows a character set, as pages mean it.
Function Page_Charset ( charset )

	If Left(charset, 8) = "iso-2022" Then Err.Raise 5 ' Its characters are made of bytes of markup.
	Page_Charset = Page_Replace(Page_Replace(charset, "^utf8$", "utf-8"), "^gb2312$", "gbk")
	Page_Charset = Page_Replace(Page_Charset, "^(us-ascii|ascii|latin1|iso-?8859-?1)$", "windows-1252")

End Function

' The bytes with references for markup and carriage returns, spaces for other control characters. Brackets mark them, runs of others are short.
Function Page_Escape ( bytes , mark , before , after )

	Dim special, escapes, i

	special = before & "(?:26|3c|0[0-8bcdef]|1.)" & after & "|" & Page_Bytes("]]>", before, after)
	Page_Escape = Page_Replace(bytes, "((?:(?!" & special & ")" & Left("..", Len(mark)) & "..){1,500})(" & special & ")?|(" & special & ")", "$1[$2$3]")
	Page_Escape = Replace(Page_Escape, "[]", "")
	escapes = Array("&", "&amp;", "<", "&lt;", "]]>", "]]&gt;", vbCr, "&#13;")
	For i = 0 To 6 Step 2
		Page_Escape = Replace(Page_Escape, "[" & Page_Bytes(escapes(i), before, after) & "]", Page_Bytes(escapes(i + 1), before, after))
	Next
	Page_Escape = Page_Replace(Page_Escape, "\[[^\]]*\]", Page_Bytes(" ", before, after))

End Function

' Windows' XML parser. Wine's VBScript makes it for some hosts only, its JScript for all.
Function Page_Document ( )

	Dim control

	On Error Resume Next
	Set Page_Document = CreateObject("MSXML2.DOMDocument")
	If Err.Number <> 0 Then
		Err.Clear
		Set control = CreateObject("ScriptControl")
		control.Language = "JScript"
		Set Page_Document = control.Eval("new ActiveXObject('MSXML2.DOMDocument')")
	End If

End Function

' ASCII as such bytes, each between zeros as UTF-16 has it.
Function Page_Bytes ( text , before , after )

	Dim i

	For i = 1 To Len(text)
		Page_Bytes = Page_Bytes & before & LCase(Right("0" & Hex(Asc(Mid(text, i, 1))), 2)) & after
	Next

End Function

' The bytes with U+FFFD in the place of each that is not UTF-8. Brackets mark them, runs of others are short.
Function Page_Utf8 ( bytes )

	Page_Utf8 = Page_Replace(bytes, "((?:[0-7].|(?!e0[89]|ed[ab]|efbfb[ef]|f08|f4[9ab])(?:c[2-9a-f]|d.|e.[89ab].|f[0-4][89ab].[89ab].)[89ab].){1,500})|([89a-f].)", "$1[$2]")
	Page_Utf8 = Page_Replace(Replace(Page_Utf8, "[]", ""), "\[..\]", "efbfbd")

End Function

Function Page_Replace ( text , pattern , replacement )

	Dim expression

	Set expression = New RegExp
	expression.Global = True
	expression.IgnoreCase = True
	expression.Pattern = pattern
	Page_Replace = expression.Replace(text, replacement)

End Function

' The third group of the first match, empty without one.
Function Page_Find ( text , pattern )

	Dim expression, match

	Set expression = New RegExp
	expression.IgnoreCase = True
	expression.Pattern = pattern
	For Each match In expression.Execute(text)
		Page_Find = match.SubMatches(2)
	Next

End Function
