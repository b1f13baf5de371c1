#pragma once

#include <string_view>

#include "util/StringArray.h"

// The number of parameters of a function, found by reading the lines of its script; 0 for one that is not
// there. The first line counts that holds "Function " (or "function ") and behind it the name and a pair of
// brackets. It knows nothing of the language: a declaration over two lines is not found, one in a comment is.
[[nodiscard]] int CountParameters(const CStringArray& lines, std::wstring_view functionName);
