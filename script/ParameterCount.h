#pragma once

#include <string_view>

#include "util/StringArray.h"

// The number of parameters of a function, found in the text of its script; 0 for a missing one. It uses the
// first line that contains "Function " (or "function ") and behind it the name and a pair of parentheses. It
// does not parse the language: it misses a declaration over two lines and finds one in a comment.
[[nodiscard]] int CountParameters(const CStringArray& lines, std::wstring_view functionName);
