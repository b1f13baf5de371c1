#pragma once

#include "util/StringArray.h"
#include "util/win32/ComHandle.h"

// The texts as a one-dimensional array of VARIANTs, from index 0.
[[nodiscard]] CSafeArray ArrayOfTexts(const CStringArray& texts);

// Appends what a script function returned: the elements of an array of VARIANTs in the order of the memory,
// anything else as one text. What does not convert to a text is skipped. Returns the result of the last
// conversion; S_OK when there was nothing to convert.
HRESULT AppendTexts(VARIANT& value, CStringArray& texts);
