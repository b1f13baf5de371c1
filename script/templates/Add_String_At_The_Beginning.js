
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Add_String_At_The_Beginning ( text , "%PARAM_1%" );

	return result;
}

// This function adds the string specified in the addWhat parameter before the first character of the text.
function Add_String_At_The_Beginning ( text , addWhat ) {
	return addWhat + text;
}
