
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Download_URL ( text );

	return result;
}

// This function downloads the page whose URL is the text and returns its source. Redirections are followed; a connection is awaited for 10 seconds and the whole answer for 60 seconds. The result is empty when the server cannot be reached, does not answer in time or answers with an error.
function Download_URL ( text ) {
	var request = new ActiveXObject("WinHttp.WinHttpRequest.5.1");
	var body = "", sent;

	try {
		request.SetTimeouts(10000, 10000, 60000, 60000);
		request.Open("GET", text.replace(/^\s+|\s+$/g, ""), true);
		request.Send();
		sent = new Date();
		// Wine also returns false when the answer came before the call.
		if (!request.WaitForResponse(60) && new Date() - sent > 50000) {
			request.Abort();
		} else if (request.Status >= 200 && request.Status < 300) {
			try {
				body = Page_Text(request);
			} catch (error) {
				body = request.ResponseText;
			}
		}
	} catch (error) {
		body = "";
	}

	return body;
}

// The page by the first character set that is known: of the header, a byte-order mark, <meta> or <?xml>, UTF-8 if valid, Windows-1252.
function Page_Text ( request ) {
	var element = new ActiveXObject("MSXML2.DOMDocument").createElement("bytes");
	var bytes, found, text = null, page;

	element.dataType = "bin.hex";
	element.nodeTypedValue = request.ResponseBody;
	bytes = element.text.toLowerCase();
	found = /(?:^|\n)content-type:.*charset\s*=\s*["']?([^\s"';,]+)/i.exec(request.GetAllResponseHeaders());
	if (found) {
		text = Page_Decode(bytes, found[1]);
	}
	if (text === null && /^efbbbf/.test(bytes)) {
		text = Page_Decode(bytes, "utf-8");
	}
	if (text === null && /^(feff|fffe)/.test(bytes)) {
		text = Page_Decode(bytes, "utf-16");
	}
	if (text !== null) {
		return text;
	}

	// A page names it within 16 KB.
	page = Page_Decode(bytes.substr(0, 32768), "windows-1252");
	page = page.replace(/<!--(-?>|[\s\S]*?(--!?>|$))/g, "");
	found = /<meta(?=[\s\/])((?=[^<>]*http-equiv\s*=\s*["']?content-type)[^<>]*?|([^<>"']|"[^"<]*"|'[^'<]*')*?[\s\/"'])charset\s*=\s*["']?\s*([^\s"'>;\/]+)/i.exec(page) ||
		/^\s*<\?xml\s([^>]*\s)?()encoding\s*=\s*["']([^"']+)/.exec(page);
	text = found ? Page_Decode(bytes, found[3].replace(/^utf-16.*/i, "utf-8")) : null;
	if (text === null && Page_Utf8(bytes) == bytes) {
		text = Page_Decode(bytes, "utf-8");
	}
	return text === null ? Page_Decode(bytes, "windows-1252") : text;
}

// The text of bytes such as "3c61", null when the character set is unknown. Windows' XML parser decodes them.
function Page_Decode ( bytes , charset ) {
	var document = new ActiveXObject("MSXML2.DOMDocument"), element = document.createElement("bytes");
	var mark = "", before = "", after = "", repaired;

	charset = Page_Charset(charset.toLowerCase());
	if (charset == "utf-8") {
		bytes = bytes.replace(/^efbbbf/, "");
	} else if (/^utf-16/.test(charset)) {
		mark = charset == "utf-16be" || /^feff/.test(bytes) ? "feff" : "fffe";
		before = mark == "feff" ? "00" : "";
		after = mark == "fffe" ? "00" : "";
		charset = "utf-16";
		bytes = bytes.replace(/^(feff|fffe)/, "");
		bytes = bytes.substr(0, bytes.length - bytes.length % 4);
	}

	element.dataType = "bin.hex";
	element.text = mark + Page_Bytes('<?xml version="1.0" encoding="' + charset + '"?><a>', before, after) + Page_Escape(bytes, mark, before, after) + Page_Bytes("</a>", before, after);
	document.async = false;
	document.preserveWhiteSpace = true;
	if (document.load(element.nodeTypedValue)) {
		return document.documentElement.text;
	}
	repaired = Page_Utf8(bytes);
	return charset == "utf-8" && repaired != bytes ? Page_Decode(repaired, charset) : null;
}

// The name under which the XML parser knows a character set, as pages mean it.
function Page_Charset ( charset ) {
	if (/^iso-2022/.test(charset)) {
		throw charset; // Its characters are made of bytes of markup.
	}
	return charset.replace(/^utf8$/, "utf-8").replace(/^gb2312$/, "gbk").replace(/^(us-ascii|ascii|latin1|iso-?8859-?1)$/, "windows-1252");
}

// The bytes with references for markup and carriage returns, spaces for other control characters. Brackets mark them, runs of others are short.
function Page_Escape ( bytes , mark , before , after ) {
	var special = before + "(?:26|3c|0[0-8bcdef]|1.)" + after + "|" + Page_Bytes("]]>", before, after);
	var escapes = ["&", "&amp;", "<", "&lt;", "]]>", "]]&gt;", "\r", "&#13;"], i;

	bytes = bytes.replace(new RegExp("((?:(?!" + special + ")" + (mark && "..") + "..){1,500})(" + special + ")?|(" + special + ")", "g"), "$1[$2$3]").split("[]").join("");
	for (i = 0; i < escapes.length; i += 2) {
		bytes = bytes.split("[" + Page_Bytes(escapes[i], before, after) + "]").join(Page_Bytes(escapes[i + 1], before, after));
	}
	return bytes.replace(/\[[^\]]*\]/g, Page_Bytes(" ", before, after));
}

// ASCII as such bytes, each between zeros as UTF-16 has it.
function Page_Bytes ( text , before , after ) {
	var i, bytes = "";

	for (i = 0; i < text.length; i++) {
		bytes += before + (256 + text.charCodeAt(i)).toString(16).substr(1) + after;
	}
	return bytes;
}

// The bytes with U+FFFD in the place of each that is not UTF-8. Brackets mark them, runs of others are short.
function Page_Utf8 ( bytes ) {
	return bytes.replace(/((?:[0-7].|(?!e0[89]|ed[ab]|efbfb[ef]|f08|f4[9ab])(?:c[2-9a-f]|d.|e.[89ab].|f[0-4][89ab].[89ab].)[89ab].){1,500})|([89a-f].)/g, "$1[$2]").
		replace(/\[\]/g, "").replace(/\[..\]/g, "efbfbd");
}
