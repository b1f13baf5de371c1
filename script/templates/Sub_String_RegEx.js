
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Sub_String_RegEx ( text , "%PARAM_1%" , "%PARAM_2%" );

	return result;
}

// This function extracts every substring that matches the regular expression specified in the pattern parameter, one per line. Letter case counts; ^ and $ match at the beginning and the end of every line. The onlyUnique parameter can have one of the following values: 0 - all matches are returned, 1 - equal matches are returned once. The result is empty when nothing matches.
function Sub_String_RegEx ( text , pattern , onlyUnique ) {
	var matches = text.match(new RegExp(pattern, "gm")) || [];
	var known = {};
	var found = [];
	var i;

	for (i = 0; i < matches.length; i++) {
		if (matches[i] !== "" && !(onlyUnique == "1" && known["=" + matches[i]])) {
			known["=" + matches[i]] = true;
			found.push(matches[i]);
		}
	}

	return found.join("\r\n");
}
