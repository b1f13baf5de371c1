#include "core/list/StoredNumbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

#include "util/CaseFold.h"

namespace {

// Removes a sign from the start of the text; returns true for a minus.
bool TakeSign(std::wstring_view& text) noexcept {
    const bool isNegative = text.starts_with(L'-');
    if (isNegative || text.starts_with(L'+')) {
        text.remove_prefix(1);
    }
    return isNegative;
}

// Removes the mark of a base from the start of the text; returns the base.
std::uint32_t TakeBase(std::wstring_view& text) noexcept {
    for (const auto& [mark, base] : {std::pair(L"0x", 16U), std::pair(L"0o", 8U), std::pair(L"0b", 2U)}) {
        if (text.starts_with(mark)) {
            text.remove_prefix(2);
            return base;
        }
    }
    return 10;
}

// 99 for a character that is not a digit of any base.
std::uint32_t DigitOf(wchar_t unit) noexcept {
    const wchar_t upper = ToUpper(unit);
    return static_cast<std::uint32_t>(upper >= L'A' && upper <= L'F' ? upper - L'A' + 10
                                      : unit >= L'0' && unit <= L'9' ? unit - L'0'
                                                                     : 99);
}

}  // namespace

std::int32_t ParseStoredNumber(std::wstring_view text) noexcept {
    constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
    while (!text.empty() && (text.front() == L' ' || (text.front() >= L'\t' && text.front() <= L'\r'))) {
        text.remove_prefix(1);
    }
    const bool isNegative = TakeSign(text);
    std::int64_t number = 0;
    for (const wchar_t unit : text) {
        if (unit < L'0' || unit > L'9') {
            break;
        }
        number = std::min(number * 10 + (unit - L'0'), kHighest + 1);
    }
    return static_cast<std::int32_t>(isNegative ? -number : std::min(number, kHighest));
}

std::int32_t ParseProfileInt(std::wstring_view text) noexcept {
    while (!text.empty() && text.front() <= L' ') {
        text.remove_prefix(1);
    }
    const bool isNegative = TakeSign(text);
    const std::uint32_t base = TakeBase(text);
    std::uint32_t number = 0;
    for (const wchar_t unit : text) {
        const std::uint32_t digit = DigitOf(unit);
        if (digit >= base) {
            break;
        }
        number = number * base + digit;
    }
    return static_cast<std::int32_t>(isNegative ? 0U - number : number);
}

void AppendNumber(std::int64_t number, std::wstring& text) {
    std::array<char, 24> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const std::size_t old = text.size();
    text.resize(old + static_cast<std::size_t>(end - digits.data()));  // append() would copy the digits first
    std::copy(std::as_const(digits).data(), end, text.begin() + static_cast<std::ptrdiff_t>(old));
}
