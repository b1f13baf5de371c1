
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Split_String ( text , "%PARAM_1%" , "%PARAM_2%" , "%PARAM_3%" );

	return result;
}

// This function splits the text at every occurrence of the string specified in the strDelimiter parameter and returns one of the items. The strItemIndex parameter is the number of the item: 0 - the first item, 1 - the second item, and so on; when it is empty, all items are returned, one per line. The reverseOrder parameter specifies how items are counted and can have one of the following values: 0 - from the first item to the last, 1 - from the last item to the first. The result is empty when there is no item of that number.
function Split_String ( text , strDelimiter , strItemIndex , reverseOrder ) {
	var items = strDelimiter === "" ? [text] : text.split(strDelimiter);

	if (reverseOrder == "1") {
		items.reverse();
	}
	if (strItemIndex === "") {
		return items.join("\r\n");
	}

	// What is no number is the index of no item.
	return /^\d{1,9}$/.test(strItemIndex) && items[Number(strItemIndex)] || "";
}
