#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>

// Keys stand in the order in which they are set.
using Json = nlohmann::ordered_json;

// A report's first fields: which list, and seen from when.
[[nodiscard]] Json ReportHead(const std::wstring& list, std::int64_t now);
// A whole report as text in UTF-8, without a line feed at its end. A lone surrogate, which UTF-8 cannot hold,
// has become U+FFFD.
[[nodiscard]] std::string DumpJson(const Json& json);
