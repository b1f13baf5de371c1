' The attributes of a tag, each as name=value between Chr(1), with entities decoded.
Function Html_Attributes ( text , known )

	Html_Attributes = Html_RegExp("([^\s""'\/=]+)(?:\s*=\s*(?:""([^""]*)""?|'([^']*)'?|([^\s""']\S*)))?[\s\/]*", known).Replace(text, Chr(1) & "$1=$2$3$4") & Chr(1)
	If InStr(text, "&") > 0 Then Html_Attributes = Html_Decode(Html_Attributes, "", known)

End Function
