#include "script/ParameterCount.h"

#include <algorithm>

#include "util/WhiteSpace.h"

namespace {

// Removes the text up to and including the first `part`; false when there is none.
bool SkipPast(std::wstring_view& text, std::wstring_view part) {
    const std::size_t at = text.find(part);
    if (at == std::wstring_view::npos) {
        return false;
    }
    text.remove_prefix(at + part.size());
    return true;
}

}  // namespace

int CountParameters(const CStringArray& lines, std::wstring_view functionName) {
    for (std::wstring_view line : lines) {
        if (!SkipPast(line, L"unction ") || !SkipPast(line, functionName) || !SkipPast(line, L"(")) {
            continue;
        }
        const std::size_t end = line.find(L')');
        if (end == std::wstring_view::npos) {
            continue;
        }
        const std::wstring_view parameters = line.substr(0, end);
        const auto commas = std::count(parameters.begin(), parameters.end(), L',');
        return commas > 0 ? static_cast<int>(commas) + 1 : Trim(parameters).empty() ? 0 : 1;
    }
    return 0;
}
