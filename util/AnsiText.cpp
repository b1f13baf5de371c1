#include "util/AnsiText.h"

#include <climits>
#include <stdexcept>

#include <windows.h>

namespace {

int Length(std::size_t size) {
    if (size > INT_MAX) {
        throw std::length_error("text too long for the code page conversion");
    }
    return static_cast<int>(size);
}

}  // namespace

std::wstring DecodeAnsi(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');  // no code page makes more units than it has bytes
    const int length =
        MultiByteToWideChar(CP_ACP, 0, bytes.data(), Length(bytes.size()), text.data(), Length(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// Reading back what was written shows every loss (best fits, default characters, lone surrogates) whatever
// the code page; the flags that would say so are refused by some, UTF-8 among them.
bool EncodeAnsi(std::wstring_view text, std::string& bytes) {
    bytes.clear();
    if (text.empty()) {
        return true;
    }
    const int units = Length(text.size());
    const int length = WideCharToMultiByte(CP_ACP, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(length));
    WideCharToMultiByte(CP_ACP, 0, text.data(), units, bytes.data(), length, nullptr, nullptr);
    return DecodeAnsi(bytes) == text;
}
