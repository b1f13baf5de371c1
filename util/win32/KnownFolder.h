#pragma once

#include <string>

// The user's folder of that CSIDL_ number, without a backslash at its end; empty when the system does not
// know it.
[[nodiscard]] std::wstring GetKnownFolder(int csidl);
