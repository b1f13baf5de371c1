
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = Unescape_String ( text )

	{{MAIN_FUNCTION_NAME}} = result

End Function

' This function replaces escape sequences of URLs and HTML by their characters: %XX (UTF-8, or Latin-1 where it is not valid UTF-8), %uXXXX, and entities such as &amp; or &#38;. Each sequence is replaced once, so %2526 gives %26; a plus sign and anything that is no sequence stay as they are.
Function Unescape_String ( text )

	Dim known

	Set known = CreateObject("Scripting.Dictionary")
	Unescape_String = Html_Decode(text, "|" & Url_Sequences(text, known), known)

End Function

{{INCLUDE Url_Sequences.vbs}}

{{INCLUDE Html_Decode.vbs}}

{{INCLUDE Html_RegExp.vbs}}
