
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Left_String ( text , "%PARAM_1%" , "%PARAM_2%" );

	return result;
}

// This function extracts the substring starting from the first character and ending with the substring specified in the searchFor parameter. The reverseSearch parameter specifies the search order and can have one of the following values: 0 - the search begins from the beginning of string, 1 - the search begins from the end of string.
function Left_String ( text , searchFor , reverseSearch ) {
	var position;

	if (searchFor === "") {
		return "";
	}

	position = reverseSearch == "1" ? text.lastIndexOf(searchFor) : text.indexOf(searchFor);

	return position < 0 ? "" : text.substring(0, position + searchFor.length);
}
