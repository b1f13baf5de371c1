#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "util/Utf8.h"

// Keys keep the order in which they are set.
using Json = nlohmann::ordered_json;

// Converts texts between UTF-16 and JSON's UTF-8. Include this in every source that puts a std::wstring into
// JSON: without it the library would make an array of numbers.
template <>
struct nlohmann::adl_serializer<std::wstring> {
    template <typename AnyJson>
    static void to_json(AnyJson& json, const std::wstring& text) {
        json = ToUtf8(text);
    }
    template <typename AnyJson>
    static void from_json(const AnyJson& json, std::wstring& text) {
        text = FromUtf8(json.template get_ref<const std::string&>());
    }
};

// Increase it when a key changes its meaning or is removed, not for a new key.
inline constexpr int kJsonVersion = 1;

// The first fields of a report: version, path of the list, and `now`.
[[nodiscard]] Json ReportHead(const std::wstring& list, std::int64_t now);
// Sets `key` to the seconds since 1970 and key + "Local" to the ISO local time, null for 0 and for an instant
// that has no local time.
void AddTime(Json& json, const std::string& key, std::int64_t instant);
// A whole report as UTF-8 text, without a line feed at its end. A lone surrogate, which UTF-8 cannot hold,
// becomes U+FFFD.
[[nodiscard]] std::string DumpJson(const Json& json);
