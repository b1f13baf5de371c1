#pragma once

#include <cstdint>
#include <string_view>

#include "util/StringArray.h"

// Splits a text into fields at a separator and holds the fields. Every text is accepted: none is malformed.
class CCsv : public CStringArray {
public:
    // Replaces the contents by the fields of `text` and returns their number. The text ends at its first NUL.
    // An empty text has no fields; any other has one more than it has separators outside quotes.
    //
    // With `allowQuotes` a double quote or an apostrophe opens quotes, as the first character of a field or,
    // with `quotesAnywhere`, at any position. Inside quotes separators do not count. A doubled quote does not
    // close them; quotes that are never closed end with the text.
    //
    // If a field begins and ends with the quote that was opened last, these two are removed and doubled
    // quotes inside become single; without `allowQuotes` this applies to double quotes. Every other field is
    // trimmed (see WhiteSpace.h) and keeps its quotes. Example, with `allowQuotes` and commas:
    //
    //     a ,"b, ""c""",'d'    has three fields:   a    b, "c"    d
    //
    // When the separator is a carriage return, a line feed after it is part of the separator.
    std::int32_t Split(std::wstring_view text, wchar_t separator, bool allowQuotes, bool quotesAnywhere);
};
