#pragma once

#include <windows.h>

#include <string>

// Short settings in the registry. 1 is success, 0 failure of any kind.

// Reads a value of at most 126 characters; a null name means the key's default value. The type is ignored:
// the stored bytes count as text, without the last two, which count as terminator. A longer value is a
// failure. On failure `text` stays unchanged.
int RegReadString(HKEY root, const std::wstring& subKey, const wchar_t* valueName, std::wstring& text);

// Writes a text value, creating the key when it is missing. With null data only the key is created.
int RegWriteString(HKEY root, const std::wstring& subKey, const wchar_t* valueName, const wchar_t* data);

// Deletes a value; 0 also when there is none of that name. Creates a missing key. With a null name it only
// creates the key.
int RegRemoveValue(HKEY root, const std::wstring& subKey, const wchar_t* valueName);
