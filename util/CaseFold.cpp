#include "util/CaseFold.h"

#include <algorithm>

#include "util/UpperCase.h"

wchar_t ToUpper(wchar_t unit) noexcept {
    if (unit < 0x80) {
        return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - (L'a' - L'A')) : unit;
    }
    return SystemUpperCase(unit);
}

std::wstring ToUpperText(std::wstring_view text) {
    std::wstring upper(text.size(), L'\0');
    std::transform(text.begin(), text.end(), upper.begin(), ToUpper);
    return upper;
}

int CompareNoCase(std::wstring_view left, std::wstring_view right) noexcept {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const wchar_t a = left[i];
        const wchar_t b = right[i];
        if (a != b) {
            const wchar_t upperA = ToUpper(a);
            const wchar_t upperB = ToUpper(b);
            if (upperA != upperB) {
                return upperA < upperB ? -1 : 1;
            }
        }
    }
    if (left.size() == right.size()) {
        return 0;
    }
    return left.size() < right.size() ? -1 : 1;
}

bool EqualNoCase(std::wstring_view left, std::wstring_view right) noexcept {
    return left.size() == right.size() && CompareNoCase(left, right) == 0;
}
