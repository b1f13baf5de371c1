#include "util/Csv.h"

#include "util/WhiteSpace.h"

namespace {

std::wstring FieldValue(std::wstring_view field, wchar_t quote) {
    if (field.size() < 2 || field.front() != quote || field.back() != quote) {
        return std::wstring(Trim(field));
    }
    const std::wstring_view inner = field.substr(1, field.size() - 2);
    std::wstring value;
    value.reserve(inner.size());
    for (std::size_t i = 0; i < inner.size(); ++i) {
        value += inner[i];
        if (inner[i] == quote && i + 1 < inner.size() && inner[i + 1] == quote) {
            ++i;
        }
    }
    return value;
}

}  // namespace

std::int32_t CCsv::Split(std::wstring_view text, wchar_t separator, bool allowQuotes, bool quotesAnywhere) {
    RemoveAll();
    text = text.substr(0, text.find(L'\0'));
    if (text.empty()) {
        return 0;
    }

    const auto unitAt = [text](std::size_t i) { return i < text.size() ? text[i] : L'\0'; };
    wchar_t quote = L'"';
    bool quoted = false;
    std::size_t start = 0;
    std::int32_t count = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const wchar_t unit = unitAt(i);
        if (quoted) {
            if (unit == quote) {
                if (unitAt(i + 1) == quote) {
                    ++i;
                    continue;
                }
                quoted = false;
            }
        } else if (allowQuotes && (unit == L'"' || unit == L'\'') && (quotesAnywhere || i == start)) {
            quote = unit;
            quoted = true;
        }
        if (i < text.size() && (quoted || unit != separator)) {
            continue;
        }
        Add(FieldValue(text.substr(start, i - start), quote));
        ++count;
        if (unit == L'\r' && unitAt(i + 1) == L'\n') {
            ++i;
        }
        start = i + 1;
    }
    return count;
}
