#include <algorithm>
#include <iterator>

#include "util/AnsiText.h"

namespace {

// Windows-1252 differs from Latin-1 in 0x80 to 0x9F; the five bytes without a character become the control
// characters of that number.
constexpr wchar_t kHigh[32] = {0x20ac, 0x81,   0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021,
                               0x02c6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8d,   0x017d, 0x8f,
                               0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022, 0x2013, 0x2014,
                               0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x9d,   0x017e, 0x0178};

}  // namespace

std::wstring DecodeAnsi(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += byte >= 0x80 && byte < 0xa0 ? kHigh[byte - 0x80] : static_cast<wchar_t>(byte);
    }
    return text;
}

bool EncodeAnsi(std::wstring_view text, std::string& bytes) {
    bytes.clear();
    for (const wchar_t unit : text) {
        if (unit < 0x80 || (unit >= 0xa0 && unit <= 0xff)) {
            bytes += static_cast<char>(unit);
            continue;
        }
        const auto* const found = std::find(std::begin(kHigh), std::end(kHigh), unit);
        if (found == std::end(kHigh)) {
            return false;
        }
        bytes += static_cast<char>(0x80 + (found - kHigh));
    }
    return true;
}
