#include "util/AnsiText.h"

#include "util/win32/CodePage.h"

std::wstring DecodeAnsi(std::string_view bytes) {
    return DecodeCodePage(CP_ACP, bytes);
}

// Decoding the result again shows every loss (best fits, default characters, lone surrogates) in any code
// page. The system's flags for this do not work with some code pages, such as UTF-8.
bool EncodeAnsi(std::wstring_view text, std::string& bytes) {
    bytes = EncodeCodePage(CP_ACP, text);
    return DecodeAnsi(bytes) == text;
}
