#include "util/AnsiText.h"

#include "util/win32/CodePage.h"

std::wstring DecodeAnsi(std::string_view bytes) {
    return DecodeCodePage(CP_ACP, bytes);
}

// Reading back what was written shows every loss (best fits, default characters, lone surrogates) whatever
// the code page; the flags that would say so are refused by some, UTF-8 among them.
bool EncodeAnsi(std::wstring_view text, std::string& bytes) {
    bytes = EncodeCodePage(CP_ACP, text);
    return DecodeAnsi(bytes) == text;
}
