#pragma once

#include <string>

// The user's folder with this CSIDL_ number, without a backslash at its end; empty when the system does not
// know it.
[[nodiscard]] std::wstring GetKnownFolder(int csidl);
