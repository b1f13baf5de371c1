#include "util/TextEncoding.h"

#include <algorithm>

#include "util/AnsiText.h"
#include "util/Utf8.h"

TextEncoding DetectEncoding(std::string_view bytes) noexcept {
    for (const auto encoding : {TextEncoding::Utf8, TextEncoding::Utf16LE, TextEncoding::Utf16BE}) {
        if (bytes.starts_with(ByteOrderMark(encoding))) {
            return encoding;
        }
    }
    return TextEncoding::Ansi;
}

std::string_view ByteOrderMark(TextEncoding encoding) noexcept {
    switch (encoding) {
        case TextEncoding::Utf8:
            return "\xef\xbb\xbf";
        case TextEncoding::Utf16LE:
            return "\xff\xfe";
        case TextEncoding::Utf16BE:
            return "\xfe\xff";
        case TextEncoding::Ansi:
            break;
    }
    return {};
}

void AppendDecoded(TextEncoding encoding, std::string_view bytes, std::wstring& text) {
    if (UnitSize(encoding) == 2) {
        const std::size_t high = encoding == TextEncoding::Utf16LE ? 1 : 0;
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
            text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i + high]) << 8 |
                                         static_cast<unsigned char>(bytes[i + 1 - high]));
        }
        return;
    }
    std::size_t ascii = 0;
    while (ascii < bytes.size() && static_cast<unsigned char>(bytes[ascii]) < 0x80) {
        ++ascii;
    }
    const std::size_t old = text.size();
    text.resize(old + ascii);  // append() with iterators of another type would copy the text first
    std::copy_n(bytes.begin(), ascii, text.begin() + static_cast<std::ptrdiff_t>(old));
    bytes.remove_prefix(ascii);
    if (encoding == TextEncoding::Utf8) {
        text += FromUtf8(bytes);
    } else if (!bytes.empty()) {
        text += DecodeAnsi(bytes);
    }
}

bool AppendEncoded(TextEncoding encoding, std::wstring_view text, std::string& bytes) {
    if (UnitSize(encoding) == 2) {
        for (const wchar_t unit : text) {
            const char high = static_cast<char>(unit >> 8 & 0xff);
            const char low = static_cast<char>(unit & 0xff);
            bytes += encoding == TextEncoding::Utf16LE ? low : high;
            bytes += encoding == TextEncoding::Utf16LE ? high : low;
        }
        return true;
    }
    while (!text.empty() && text.front() < 0x80) {
        bytes += static_cast<char>(text.front());
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return true;
    }
    std::string rest;
    if (encoding == TextEncoding::Utf8) {
        rest = ToUtf8(text);
        if (FromUtf8(rest) != text) {
            return false;
        }
    } else if (!EncodeAnsi(text, rest)) {
        return false;
    }
    bytes += rest;
    return true;
}
