#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "util/Utf8.h"

// std::exception::what() is narrow. A text that is meant for the user stands there in UTF-8: ToWhat puts it
// in, FromWhat takes it out.

//     throw std::invalid_argument(ToWhat(L"The project " + path + L" cannot start on that date."));
[[nodiscard]] inline std::string ToWhat(std::wstring_view text) {
    return ToUtf8(text);
}
[[nodiscard]] inline std::wstring FromWhat(const std::exception& error) {
    return FromUtf8(error.what());
}
