
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Replace_String ( text , "%PARAM_1%" , "%PARAM_2%" );

	return result;
}

// This function replaces every occurrence of the string specified in the findWhat parameter with the string specified in the replaceWith parameter. Letter case counts. An empty findWhat changes nothing, an empty replaceWith deletes what is found.
function Replace_String ( text , findWhat , replaceWith ) {
	if (findWhat === "") {
		return text;
	}

	return text.split(findWhat).join(replaceWith);
}
