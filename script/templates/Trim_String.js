
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Trim_String ( text );

	return result;
}

// This function removes white space (spaces, tabs and line breaks) from the beginning and from the end of the text.
function Trim_String ( text ) {
	var trimmed = /\S(?:[\s\S]*\S)?/.exec(text);

	return trimmed ? trimmed[0] : "";
}
