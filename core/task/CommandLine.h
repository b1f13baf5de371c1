#pragma once

#include <cstdint>
#include <string_view>

// The number of values in the comma list of "-aiv", as reading the command line sees it; 0 without that
// switch. More than three, name, id and file, mean that a comma inside one of them has shifted the rest.
[[nodiscard]] std::int32_t CountInputValues(std::wstring_view commandLine);
