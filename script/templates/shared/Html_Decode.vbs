' The text with each entity replaced by its character.
Function Html_Decode ( text )

	Dim names, entities, codes, match, part, code, known, position, chunk, windows

	Html_Decode = text
	If InStr(text, "&") = 0 Then Exit Function

	' Each number is that of the name after it; the names that follow count on. Lower case is 32 more where it is not there.
	names = "34 quot 34 QUOT 38 amp 38 AMP apos 60 lt 60 LT 62 gt 62 GT 160 nbsp iexcl cent pound curren yen brvbar sect uml " & _
		"copy ordf laquo not shy reg macr deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 " & _
		"frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml " & _
		"ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc Uuml Yacute THORN szlig 247 divide 255 " & _
		"yuml 338 OElig oelig 352 Scaron scaron 376 Yuml 402 fnof 710 circ 732 tilde 913 Alpha Beta Gamma Delta Epsilon Zeta " & _
		"Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho 931 Sigma Tau Upsilon Phi Chi Psi Omega 962 sigmaf 977 thetasym " & _
		"upsih 982 piv 8194 ensp emsp 8201 thinsp 8204 zwnj zwj lrm rlm 8211 ndash mdash 8216 lsquo rsquo sbquo 8220 ldquo " & _
		"rdquo bdquo 8224 dagger Dagger bull 8230 hellip 8240 permil 8242 prime Prime 8249 lsaquo rsaquo 8254 oline 8260 frasl " & _
		"8364 euro 8465 image 8472 weierp 8476 real 8482 trade 8501 alefsym 8592 larr uarr rarr darr harr 8629 crarr 8656 lArr " & _
		"uArr rArr dArr hArr 8704 forall 8706 part exist 8709 empty 8711 nabla isin notin 8715 ni 8719 prod 8721 sum minus " & _
		"8727 lowast 8730 radic 8733 prop infin 8736 ang 8743 and or cap cup int 8756 there4 8764 sim 8773 cong 8776 asymp " & _
		"8800 ne equiv 8804 le ge 8834 sub sup nsub 8838 sube supe 8853 oplus 8855 otimes 8869 perp 8901 sdot 8968 lceil rceil " & _
		"lfloor rfloor 9674 loz 9824 spades 9827 clubs 9829 hearts diams 10216 lang rang "
	Set entities = New RegExp
	entities.Pattern = "&(?:#0*(\d{1,7})|#x0*([\da-f]{1,6})|([a-z]\w*));"
	entities.Global = True
	entities.IgnoreCase = True
	Set codes = New RegExp
	Html_Decode = ""
	position = 1
	For Each match In entities.Execute(text)
		Set part = match.SubMatches
		code = -1
		If part(0) <> "" Then
			code = CLng(part(0))
		ElseIf part(1) <> "" Then
			' In two parts, for &HFFFF would be -1.
			code = Right("00000" & part(1), 6)
			code = CLng("&H" & Left(code, 4)) * 256 + CLng("&H" & Right(code, 2))
		Else
			codes.Pattern = "(\d+)((?: [A-Za-z]\w*)*) " & part(2) & " "
			codes.IgnoreCase = part(2) = LCase(part(2)) And InStr(names, " " & part(2) & " ") = 0
			For Each known In codes.Execute(names)
				code = CLng(known.SubMatches(0)) + UBound(Split("x" & known.SubMatches(1)))
				If codes.IgnoreCase Then code = code + 32
			Next
		End If
		If code >= 128 And code < 160 Then
			' What many pages mean by these: Windows-1252.
			windows = Split("8364 129 8218 402 8222 8230 8224 8225 710 8240 352 8249 338 141 381 143 144 8216 8217 8220 8221 8226 " & _
				"8211 8212 732 8482 353 8250 339 157 382 376")
			code = CLng(windows(code - 128))
		End If
		If code = 0 Or code > 1114111 Or (code >= 55296 And code < 57344) Then code = 65533
		chunk = chunk & Mid(text, position, match.FirstIndex + 1 - position) & Html_Character(code, match.Value)
		position = match.FirstIndex + match.Length + 1
		If Len(chunk) > 4000 Then
			Html_Decode = Html_Decode & chunk
			chunk = ""
		End If
	Next
	Html_Decode = Html_Decode & chunk & Mid(text, position)

End Function
