
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Replace_String_RegEx ( text , "%PARAM_1%" , "%PARAM_2%" );

	return result;
}

// This function replaces every substring that matches the regular expression specified in the pattern parameter with the string specified in the replacement parameter, in which $1 to $9 stand for what the parts of the pattern in parentheses match and $$ for a dollar sign. Letter case counts; ^ and $ match at the beginning and the end of every line. An empty pattern changes nothing.
function Replace_String_RegEx ( text , pattern , replacement ) {
	if (pattern === "") {
		return text;
	}

	return text.replace(new RegExp(pattern, "gm"), replacement);
}
