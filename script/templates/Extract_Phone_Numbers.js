
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Extract_Phone_Numbers ( text );

	return result;
}

// This function extracts every phone number, one per line and each once, as it is written. A phone number has 7 to 15 digits, may begin with + and may have single spaces, dots, hyphens, slashes and parentheses between its digits. Dates and IP addresses are left out. The result is empty when there is no phone number.
function Extract_Phone_Numbers ( text ) {
	// What looks like a number and is none: addresses, what a word names, prices, dates, IP addresses, times, postcodes.
	var others = "https?:\\S*|(?:isbn|issn|iban)\\S*(?:[ :-]*[\\dx]+)+|(?:order|invoice|item|id|ref|account|serial|sku|case" +
		"|ticket)\\.?(?: ?(?:no|number|nr|id)\\.?)?[ :#]*\\d+(?!~?\\d)|[$\\u20ac\\u00a3] ?\\d[\\d.,]*" +
		"|\\d{4}([-.\\/])\\d\\d?\\2\\d\\d?(?!\\d)|\\d\\d?([-.\\/])\\d\\d?\\3(?:\\d{4}|\\d\\d)(?![-.\\/]?\\d)" +
		"|\\d{1,3}(?:\\.\\d{1,3}){3}(?![.\\d])|\\d\\d?:\\d\\d(?::\\d\\d)?|\\d\\d?-\\d\\d?(?![-\\d])|\\d\\.\\d+(?![-.\\d])" +
		"|\\d{1,3}(?:,\\d{3})+|(?:\\d{4}[ -]){3}\\d{4}(?!\\d)|\\d{16,}|(?:19|20)\\d\\d[-\\u2013](?:19|20)\\d\\d(?!\\d)" +
		"|\\d{5}-\\d{4}(?!\\d)|\\d{5}(?= (?:\\(\\d{3}\\) ?|\\d{3}~)\\d{3}~\\d{4}(?!\\d))";
	// As in America; seven digits; as in France; with a country code; any other.
	var numbers = "(?:\\+?1~?)?(?:\\(\\d{3}\\)~?|\\d{3}~)\\d{3}~\\d{4}(?!~?\\d\\d?(?!~?\\d))(?!\\d)" +
		"|\\d{3}[-.\\u2010-\\u2013]\\d{4}(?!\\d)(?!~\\d{1,4}(?!~?\\d))|0\\d(?:~\\d\\d){4}(?!\\d)|(?:\\(\\+\\d{1,4}\\)" +
		"|\\+\\d{1,4})~?(?:\\(\\d{1,5}\\)|\\d+)(?: ?\\/ ?(?!0)\\d+)?(?:\\/?\\d+|~(?!0(?:\\d\\d|\\d{4})(?!\\d))\\d+)*|\\d{10}(?!\\d)" +
		"|(?:[0178]~)?(?:\\(\\d{2,5}\\)|\\d{2,5})(?: ?\\/ ?|~)?\\d{2,}(?:\\/\\d+|~(?!0(?:\\d\\d|\\d{4})(?!\\d))\\d+)*|\\d{7,15}(?!\\d)";
	// What stands between digits.
	var separator = "(?:[ .\\u00a0\\u202f\\u2009]|[ \\u00a0]?[-\\u2010-\\u2015\\u2212][ \\u00a0]?)";
	var pattern = "([a-z_#])?(?:" + others + "|(" + numbers + ")(?=[ .,]*(?:x|ext)[a-z.]* ?\\d|([a-z_])?))";
	var candidates = new RegExp(pattern.split("~").join(separator), "gi");
	var known = {};
	var found = [];
	var match, number, digits;

	while ((match = candidates.exec(text)) !== null) {
		number = match[4] || "";
		if (number.charAt(0) === "(" && number.indexOf(")") < 0) {
			number = number.substring(1);
		}
		digits = number.replace(/\D/g, "").length;
		if (!match[1] && !match[5] && digits >= 7 && digits <= 15 && !known[number]) {
			known[number] = true;
			found.push(number);
		}
	}

	return found.join("\r\n");
}
