#pragma once

#include "util/StringArray.h"
#include "util/win32/ComHandle.h"

// The texts as a one-dimensional array of VARIANTs, from index 0.
[[nodiscard]] CSafeArray ArrayOfTexts(const CStringArray& texts);

// Appends the result of a script function: the elements of an array of VARIANTs in memory order, any other
// value as one text. Skips values that cannot be converted to a text. Returns the result of the last
// conversion; S_OK when there was nothing to convert.
HRESULT AppendTexts(VARIANT& value, CStringArray& texts);
