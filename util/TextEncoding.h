#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The encodings of a text file. All but Ansi (the system's code page) begin with a byte-order mark.
enum class TextEncoding { Ansi, Utf8, Utf16LE, Utf16BE };

// The encoding by the byte-order mark at the start of `bytes`; Ansi without one.
[[nodiscard]] TextEncoding DetectEncoding(std::string_view bytes) noexcept;

// Empty for Ansi.
[[nodiscard]] std::string_view ByteOrderMark(TextEncoding encoding) noexcept;

// Bytes of one code unit: 1 or 2.
[[nodiscard]] constexpr std::size_t UnitSize(TextEncoding encoding) noexcept {
    return encoding == TextEncoding::Utf16LE || encoding == TextEncoding::Utf16BE ? 2 : 1;
}

// Appends the UTF-16 form of `bytes`, which hold no byte-order mark. Never throws for bad text: a byte that
// is no valid UTF-8 becomes U+FFFD, lone surrogates of UTF-16 are kept, an odd last byte of UTF-16 is
// ignored.
void AppendDecoded(TextEncoding encoding, std::string_view bytes, std::wstring& text);

// Appends `text` in the encoding. False, with the end of `bytes` unspecified, when the encoding cannot hold
// every character exactly. UTF-16 can hold every text.
[[nodiscard]] bool AppendEncoded(TextEncoding encoding, std::wstring_view text, std::string& bytes);
