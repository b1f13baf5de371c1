#pragma once

#include <string>
#include <string_view>

// UTF-8 to and from UTF-16 (one code unit a wchar_t on every platform). Never throws for bad text: what is
// not valid becomes U+FFFD, one for each byte or lone surrogate.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);
[[nodiscard]] std::wstring FromUtf8(std::string_view bytes);
