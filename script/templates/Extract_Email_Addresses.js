
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Extract_Email_Addresses ( text );

	return result;
}

// This function extracts every e-mail address, one per line and each once, in the order of their first appearance. Letter case does not count. The result is empty when there is no address.
function Extract_Email_Addresses ( text ) {
	// Names of pictures such as photo@2x.png look like addresses. The bounds keep long words from costing time.
	var matches = text.match(/[A-Za-z0-9_][A-Za-z0-9._%+-]{0,63}@(?!\dx\.(?:png|jpe?g|gif|webp|svg))(?:[A-Za-z0-9-]{1,63}\.)+[A-Za-z]{2,63}/g) || [];
	var known = {};
	var found = [];
	var i, key;

	for (i = 0; i < matches.length; i++) {
		key = "=" + matches[i].toLowerCase();
		if (!known[key]) {
			known[key] = true;
			found.push(matches[i]);
		}
	}

	return found.join("\r\n");
}
