#pragma once

#include <string>

// Copies the attributes hidden, system and not indexed, and the access list, to the file that will replace
// `from`. A failure is ignored: a save is worth more than an attribute.
void CopyProtection(const std::wstring& from, const std::wstring& to);
