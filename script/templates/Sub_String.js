
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Sub_String ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" );

	return result;
}

// This function extracts the substring starting with the substring specified in the startSearchFor parameter and ending with the substring specified in the endSearchFor parameter, both included. An empty startSearchFor stands for the beginning of string, an empty endSearchFor for its end. The reverseSearch parameter specifies the search order and can have one of the following values: 0 - startSearchFor is searched from the beginning of string and endSearchFor after it, 1 - endSearchFor is searched from the end of string and startSearchFor before it. The result is empty when either is not found.
function Sub_String ( text , startSearchFor , endSearchFor , reverseSearch ) {
	var first = 0;
	var last = text.length;

	if (reverseSearch == "1") {
		if (endSearchFor !== "") {
			last = text.lastIndexOf(endSearchFor);
		}
		if (startSearchFor !== "") {
			first = text.substring(0, last).lastIndexOf(startSearchFor);
		}
	} else {
		if (startSearchFor !== "") {
			first = text.indexOf(startSearchFor);
		}
		if (first >= 0 && endSearchFor !== "") {
			last = text.indexOf(endSearchFor, first + startSearchFor.length);
		}
	}

	if (first < 0 || last < 0) {
		return "";
	}

	return endSearchFor === "" ? text.substring(first) : text.substring(first, last + endSearchFor.length);
}
