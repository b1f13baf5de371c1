' The text with the characters of entities and of what "others" finds, whose codes are known.
Function Html_Decode ( text , others , known )

	Dim match, part, code, char, chunk, position

	' Of HTML's named entities each is 1 and the number before its name after the last; small Greek and Latin letters are 32 further.
	If Not known.Exists("&lt;") Then
		For Each match In Html_RegExp("(-?\d*)([a-z]+(?:\d+(?= ))?)", known).Execute("34quot-1QUOT3amp-1AMP apos20lt-1LT1gt-1GT97nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg macr deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde Ograve Oacute" & _
			" Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc Uuml Yacute THORN szlig23divide7yuml82OElig oelig12Scaron scaron22Yuml25fnof307circ21tilde180Alpha Beta Gamma Delta Epsilon Zeta Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho1Sigma Tau Upsilon Phi Chi Psi Omega24sigmaf14thetasym upsih3piv7211ensp emsp5thinsp2zwnj zwj lrm rlm3ndash mdash3lsquo rsquo sbquo1ldquo rdquo bdquo1dagger Dagger bull3hellip" & _
			"9permil1prime Prime5lsaquo rsaquo3oline5frasl103euro100image6weierp3real5trade18alefsym90larr uarr rarr darr harr32crarr26lArr uArr rArr dArr hArr43forall1part exist1empty1nabla isin notin1ni3prod1sum minus4lowast2radic2prop infin1ang6and or cap cup int8there4 7sim8cong2asymp23ne equiv2le ge28sub sup nsub1sube supe13oplus1otimes13perp31sdot66lceil rceil lfloor rfloor1244lang rang-544loz149spades2clubs1hearts diams")
			Set part = match.SubMatches
			If part(0) <> "" Then code = code + CLng(part(0))
			char = "&" & part(1) & ";"
			known(char) = code
			If code < 938 And Not known.Exists(LCase(char)) Then known(LCase(char)) = code + 32
			code = code + 1
		Next
	End If

	On Error Resume Next
	For Each match In Html_RegExp("&#0*(\d{1,7});|&#x0*([\da-f]{1,6});|&\w+;" & others, known).Execute(text)
		Set part = match.SubMatches
		char = match.Value
		code = known(char)
		If part(0) & part(1) <> "" Then
			code = CLng("&H1" & Right("00000" & part(1), 6)) - 16777216
			If part(0) <> "" Then code = CLng(part(0))
			' Pages mean Windows-1252 by these.
			If code > 127 And code < 160 Then code = CLng(Mid("83640129821804020822823082248225071082400352824903380141038101430144821682178220822182268211821207328482035382500339015703820376", code * 4 - 511, 4))
			If code = 0 Or code > 1114111 Or code > 55295 And code < 57344 Then code = 65533
		End If
		If code = 160 Then char = " "
		' Without ChrW this fails and the sequence stays.
		If code > 127 Then char = ChrW(code)
		If code > 65535 Then char = ChrW(55232 + code \ 1024) & ChrW(56320 + code Mod 1024)
		If code < 128 And Not IsEmpty(code) Then char = Chr(code)
		chunk = chunk & Mid(text, position + 1, match.FirstIndex - position) & char
		position = match.FirstIndex + match.Length
		' Few additions to the long text: each copies it.
		If Len(chunk) > 4000 Then Html_Decode = Html_Decode & chunk : chunk = ""
	Next
	Html_Decode = Html_Decode & chunk & Mid(text, position + 1)

End Function
