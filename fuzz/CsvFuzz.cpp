#include "util/Csv.h"

#include <algorithm>

#include "fuzz/FuzzInput.h"

// The first byte chooses separator and quoting; the rest is the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    constexpr wchar_t kSeparators[] = {L' ', L',', L'\n', L';', L'\r', L'"', L'\'', L'x'};
    const wchar_t separator = kSeparators[data[0] & 7];
    const bool allowQuotes = (data[0] & 8) != 0;
    const bool quotesAnywhere = (data[0] & 16) != 0;
    std::wstring text = TextOf(data + 1, size - 1);

    CCsv fields;
    const std::int32_t count = fields.Split(text, separator, allowQuotes, quotesAnywhere);
    text.resize(std::min(text.size(), text.find(L'\0')));
    Require(count == fields.GetSize());
    Require((count == 0) == text.empty());

    // One field more than there are separators, less those in quotes or swallowed after a carriage return.
    const auto separators = std::ranges::count(text, separator);
    Require(count <= separators + 1);
    Require(allowQuotes || text.empty() || count == separators + 1);
    std::size_t length = 0;
    for (const std::wstring& field : fields) {
        length += field.size();
        Require(allowQuotes || field.find(separator) == std::wstring::npos);
    }
    Require(length <= text.size());

    // Whatever a field holds, it comes back when it is written in quotes.
    if (separator == L'"' || separator == L'\'' || count == 0) {
        return 0;
    }
    std::wstring quoted;
    for (const std::wstring& field : fields) {
        quoted += L'"';
        for (const wchar_t unit : field) {
            quoted.append(unit == L'"' ? 2 : 1, unit);
        }
        quoted += L'"';
        quoted += separator;
    }
    quoted.pop_back();
    CCsv again;
    Require(again.Split(quoted, separator, true, quotesAnywhere) == count);
    Require(std::ranges::equal(again, fields));
    return 0;
}
