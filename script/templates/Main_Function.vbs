
Function {{MAIN_FUNCTION_NAME}} ( text, url )

	dim result

	result = text

	{{MAIN_FUNCTION_NAME}} = result

End Function
