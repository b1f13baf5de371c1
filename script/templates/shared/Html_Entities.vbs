' Adds the codes of HTML's named entities: each is the one before, 1 and the number before the name.
Sub Html_Entities ( codes )

	Dim match, part, code, name

	For Each match In Html_RegExp("(-?\d*)([a-z]+(?:\d+(?= ))?)", codes).Execute("34quot-1QUOT3amp-1AMP apos20lt-1LT1gt-1GT97nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg macr deg plusmn sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest Agrave Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc Iuml ETH Ntilde Ograve Oacute" & _
		" Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc Uuml Yacute THORN szlig23divide7yuml82OElig oelig12Scaron scaron22Yuml25fnof307circ21tilde180Alpha Beta Gamma Delta Epsilon Zeta Eta Theta Iota Kappa Lambda Mu Nu Xi Omicron Pi Rho1Sigma Tau Upsilon Phi Chi Psi Omega24sigmaf14thetasym upsih3piv7211ensp emsp5thinsp2zwnj zwj lrm rlm3ndash mdash3lsquo rsquo sbquo1ldquo rdquo bdquo1dagger Dagger bull3hellip" & _
		"9permil1prime Prime5lsaquo rsaquo3oline5frasl103euro100image6weierp3real5trade18alefsym90larr uarr rarr darr harr32crarr26lArr uArr rArr dArr hArr43forall1part exist1empty1nabla isin notin1ni3prod1sum minus4lowast2radic2prop infin1ang6and or cap cup int8there4 7sim8cong2asymp23ne equiv2le ge28sub sup nsub1sube supe13oplus1otimes13perp31sdot66lceil rceil lfloor rfloor1244lang rang-544loz149spades2clubs1hearts diams")
		Set part = match.SubMatches
		If part(0) <> "" Then code = code + CLng(part(0))
		name = "&" & part(1) & ";"
		codes(name) = code
		' Small Greek and Latin letters are 32 further.
		If code < 938 And Not codes.Exists(LCase(name)) Then codes(LCase(name)) = code + 32
		code = code + 1
	Next

End Sub
