
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Extract_Url_From_Url_Params ( text );

	return result;
}

// This function extracts the URL that the parameters of a URL carry, as in a link that leads to a page by way of another site: the result is the first parameter value that begins with http:// or https://, written out without escape sequences. The result is empty when no parameter holds a URL.
function Extract_Url_From_Url_Params ( text ) {
	var match = /[?&#;][^=?&#;\s]*=(https?(?::|%3A)(?:\/|%2F){2}[^&#\s]*)/i.exec(text);
	var address;

	if (!match) {
		return "";
	}
	address = match[1].replace(/\+/g, "%20");

	try {
		address = decodeURIComponent(address);
	} catch (error) {
		address = unescape(address);  // not UTF-8
	}

	return address;
}
