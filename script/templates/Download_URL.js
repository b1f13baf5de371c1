
function {{MAIN_FUNCTION_NAME}} ( text, url ) {
	var result;
	
	result = Download_URL ( text );

	return result;
}

// This function downloads the page whose URL is the text and returns its source. Redirections are followed; a connection is awaited for 10 seconds and the whole answer for 60 seconds. The result is empty when the server cannot be reached, does not answer in time or answers with an error.
function Download_URL ( text ) {
	var request = new ActiveXObject("WinHttp.WinHttpRequest.5.1");
	var body = "";

	try {
		request.SetTimeouts(10000, 10000, 60000, 60000);
		request.Open("GET", text.replace(/^\s+|\s+$/g, ""), true);
		request.Send();
		if (!request.WaitForResponse(60)) {
			request.Abort();
		} else if (request.Status >= 200 && request.Status < 300) {
			body = request.ResponseText;
		}
	} catch (error) {
		body = "";
	}

	return body;
}
