
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Extract_Phone_Numbers ( text );

	return result;
}

// This function extracts every phone number, one per line and each once, as it is written. A phone number has 7 to 15 digits, may begin with + and may have single spaces, dots, hyphens, slashes and parentheses between its digits. Dates and IP addresses are left out. The result is empty when there is no phone number.
function Extract_Phone_Numbers ( text ) {
	// A letter before, a number, and a letter after it that is not the x of an extension.
	var candidates = /([a-z_#]?)(\+?\(?\d(?:(?: ?[\/-] ?| |\.| ?\(|\)[ .-]?)?\d)*)(?=x\d|([a-z_]?))/gi;
	// What looks like a number and is a date or an IP address.
	var dates = /^(?:\d{4}([.\/-])\d\d?\1\d\d?|\d\d?([.\/-])\d\d?\2\d{4})(?: |$)|^\d{1,3}(?:\.\d{1,3}){3}$/;
	var known = {};
	var found = [];
	var match, number, digits;

	while ((match = candidates.exec(text)) !== null) {
		number = match[2];
		if (number.charAt(0) === "(" && number.indexOf(")") < 0) {
			number = number.substring(1);
		}
		digits = number.replace(/\D/g, "").length;
		if (!match[1] && !match[3] && digits >= 7 && digits <= 15 && !dates.test(number) && !known[number]) {
			known[number] = true;
			found.push(number);
		}
	}

	return found.join("\r\n");
}
