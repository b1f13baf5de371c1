
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Sub_String_RegEx ( text , "%PARAM_1%" , "%PARAM_2%" );

	return result;
}

// This function extracts every substring that matches the regular expression specified in the pattern parameter, one per line. Letter case counts; ^ and $ match at the beginning and the end of every line. The onlyUnique parameter can have one of the following values: 0 - all matches are returned, 1 - equal matches are returned once. The result is empty when nothing matches.
function Sub_String_RegEx ( text , pattern , onlyUnique ) {
	var known = {};
	var found = [];

	// What exec and match do after an empty match depends on the engine's version.
	text.replace(new RegExp(pattern, "gm"), function (match) {
		if (match !== "" && !(onlyUnique == "1" && known["=" + match])) {
			known["=" + match] = true;
			found.push(match);
		}
		return match;
	});

	return found.join("\r\n");
}
