
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = text;

	return result;
}
