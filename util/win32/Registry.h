#pragma once

#include <windows.h>

#include <string>

// Short settings in the registry. 1 is success, 0 failure of any kind.

// Reads a value of at most 126 characters; a null name is the key's default value. The type is not looked at:
// whatever bytes are stored count as text, less a terminator of two bytes at their end. `text` keeps what it
// held on failure, which includes a longer value.
int RegReadString(HKEY root, const std::wstring& subKey, const wchar_t* valueName, std::wstring& text);

// Writes a text value, creating the key when it is missing. With null data only the key is created.
int RegWriteString(HKEY root, const std::wstring& subKey, const wchar_t* valueName, const wchar_t* data);

// Deletes a value; 0 also when there is none of that name. A missing key is created, and with a null name
// that is all.
int RegRemoveValue(HKEY root, const std::wstring& subKey, const wchar_t* valueName);
