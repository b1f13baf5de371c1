' Adds the codes of HTML's named entities. A number in the list is added to the code, which counts on with each name.
Sub Html_Entities ( codes )

	Dim code, name

	For Each name In Split("34 quot -1 QUOT 3 amp -1 AMP apos 20 lt -1 LT 1 gt -1 GT 97 nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg macr deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times Oslash " & _
		"Ugrave Uacute Ucirc Uuml Yacute THORN szlig 23 divide 7 yuml 82 OElig oelig 12 Scaron scaron 22 Yuml 25 fnof 307 circ 21 tilde 180 Alpha Beta Gamma Delta Epsilon Zeta Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho 1 Sigma Tau Upsilon Phi Chi Psi Omega 24 sigmaf 14 thetasym upsih 3 piv 7211 ensp emsp 5 thinsp 2 zwnj zwj lrm rlm 3 ndash mdash 3 lsquo rsquo sbquo 1 ldquo rdquo bdquo 1 dagger Dagger bull 3 hellip 9 permil 1 " & _
		"prime Prime 5 lsaquo rsaquo 3 oline 5 frasl 103 euro 100 image 6 weierp 3 real 5 trade 18 alefsym 90 larr uarr rarr darr harr 32 crarr 26 lArr uArr rArr dArr hArr 43 forall 1 part exist 1 empty 1 nabla isin notin 1 ni 3 prod 1 sum minus 4 lowast 2 radic 2 prop infin 1 ang 6 and or cap cup int 8 there4 7 sim 8 cong 2 asymp 23 ne equiv 2 le ge 28 sub sup nsub 1 sube supe 13 oplus 1 otimes 13 perp 31 sdot 66 lceil rceil lfloor rfloor 1244 lang rang -544 loz 149 spades 2 clubs 1 hearts diams")
		If IsNumeric(name) Then
			code = code + CLng(name)
		Else
			codes("&" & name & ";") = code
			' Small Greek and Latin letters are 32 further.
			name = "&" & LCase(name) & ";"
			If code < 938 And Not codes.Exists(name) Then codes(name) = code + 32
			code = code + 1
		End If
	Next

End Sub
