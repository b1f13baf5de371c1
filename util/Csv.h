#pragma once

#include <cstdint>
#include <string_view>

#include "util/StringArray.h"

// Splits one text into fields at a separator and holds the fields. Deliberately forgiving: there is no
// malformed text.
class CCsv : public CStringArray {
public:
    // Replaces the contents by the fields of `text` and returns their number. The text ends at its first NUL;
    // an empty text has no fields, any other has one more than it has separators outside quotes.
    //
    // With `allowQuotes` a double quote or an apostrophe as a field's first character (with `quotesAnywhere`
    // at any position) opens a stretch in which separators do not count; a doubled quote does not close it,
    // and one that is never closed runs to the end of the text.
    //
    // A field that begins and ends with the quote that opened its last stretch loses both, and its doubled
    // quotes become single; without `allowQuotes` this happens to a field in double quotes. Every other field
    // is trimmed (see WhiteSpace.h) and keeps its quotes.
    //
    // With a carriage return as the separator, a line feed after it belongs to it.
    std::int32_t Split(std::wstring_view text, wchar_t separator, bool allowQuotes, bool quotesAnywhere);
};
