#include "util/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::string& bytes, char32_t point) {
    const auto add = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        add(point);
    } else if (point < 0x800) {
        add(0xC0 | (point >> 6));
        add(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        add(0xE0 | (point >> 12));
        add(0x80 | ((point >> 6) & 0x3F));
        add(0x80 | (point & 0x3F));
    } else {
        add(0xF0 | (point >> 18));
        add(0x80 | ((point >> 12) & 0x3F));
        add(0x80 | ((point >> 6) & 0x3F));
        add(0x80 | (point & 0x3F));
    }
}

// The code point at the start of `bytes` and its length; length 1 and U+FFFD for a byte that is not valid.
char32_t DecodePoint(std::string_view bytes, std::size_t& length) {
    const auto byteAt = [bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::uint8_t first = byteAt(0);
    length = 1;
    if (first < 0x80) {
        return first;
    }
    const std::size_t need = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || bytes.size() < need) {
        return kReplacement;
    }
    char32_t point = first & (0xFFU >> (need + 1));
    for (std::size_t i = 1; i < need; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) {
            return kReplacement;
        }
        point = (point << 6) | (byteAt(i) & 0x3F);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (point < kSmallest[need] || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
        return kReplacement;
    }
    length = need;
    return point;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto point = static_cast<char32_t>(text[i]);
        if (IsHighSurrogate(point) && i + 1 < text.size() &&
            IsLowSurrogate(static_cast<char32_t>(text[i + 1]))) {
            point = 0x10000 + ((point - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
            ++i;
        } else if (IsHighSurrogate(point) || IsLowSurrogate(point)) {
            point = kReplacement;
        }
        AppendUtf8(bytes, point);
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t length = 0; !bytes.empty(); bytes.remove_prefix(length)) {
        const char32_t point = DecodePoint(bytes, length);
        if (point < 0x10000) {
            text.push_back(static_cast<wchar_t>(point));
        } else {
            text.push_back(static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10)));
            text.push_back(static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
        }
    }
    return text;
}
