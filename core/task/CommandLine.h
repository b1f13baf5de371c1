#pragma once

#include <cstdint>
#include <string_view>

// The number of values in the comma list of "-aiv" as ParseCommandLine splits it; 0 without this switch.
// There are three, name, id and file; more mean that one of them contains a comma, which has shifted the
// rest.
[[nodiscard]] std::int32_t CountInputValues(std::wstring_view commandLine);
