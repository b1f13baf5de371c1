
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Strip_Html_Tags ( text );

	return result;
}

// This function removes all HTML tags, together with comments and the contents of script and style elements, and leaves the text between them as it is; nothing is put in the place of a tag, and entities such as &amp; stay.
function Strip_Html_Tags ( text ) {
	// What follows the name in a tag; quoted values may hold any character, elsewhere < and > end the tag.
	var attributes = "[^<>=]*(?:=(?:\\s*\"[^\"]*\"|\\s*'[^']*'|(?!\\s*\"[^\"]*\"|\\s*'[^']*'))[^<>=]*)*";
	var expression = new RegExp("<!--(?:-?>|[\\s\\S]*?(?:--!?>|$))|<[!?][^>]*>" +
		"|<(script|style)(?=[\\s\\/>])" + attributes + ">[\\s\\S]*?(?:<\\/\\1[^>]*>|$)" +
		"|<\\/?[a-z]" + attributes + ">", "gi");

	return text.replace(expression, "");
}
