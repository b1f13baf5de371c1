
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Add_String_To_The_End ( text , "%PARAM_1%" );

	return result;
}

// This function adds the string specified in the addWhat parameter after the last character of the text.
function Add_String_To_The_End ( text , addWhat ) {
	return text + addWhat;
}
