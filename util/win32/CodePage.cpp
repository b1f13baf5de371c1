#include "util/win32/CodePage.h"

#include <climits>
#include <stdexcept>

#include "util/win32/SystemError.h"

namespace {

int Length(std::size_t size) {
    if (size > INT_MAX) {
        throw std::length_error("text too long for the code page conversion");
    }
    return static_cast<int>(size);
}

std::size_t Converted(int length) {
    if (length == 0) {
        RaiseSystemError(GetLastError());
    }
    return static_cast<std::size_t>(length);
}

}  // namespace

std::wstring DecodeCodePage(UINT codePage, std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');  // no code page decodes to more units than bytes
    if (!bytes.empty()) {
        text.resize(Converted(MultiByteToWideChar(codePage, 0, bytes.data(), Length(bytes.size()),
                                                  text.data(), Length(text.size()))));
    }
    return text;
}

std::string EncodeCodePage(UINT codePage, std::wstring_view text) {
    std::string bytes;
    if (!text.empty()) {
        const int units = Length(text.size());
        bytes.resize(
            Converted(WideCharToMultiByte(codePage, 0, text.data(), units, nullptr, 0, nullptr, nullptr)));
        Converted(WideCharToMultiByte(codePage, 0, text.data(), units, bytes.data(), Length(bytes.size()),
                                      nullptr, nullptr));
    }
    return bytes;
}
