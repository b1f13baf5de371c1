#pragma once

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <string>

#include "util/Utf8.h"

// Keys keep the order in which they are set.
using Json = nlohmann::ordered_json;

// Where texts enter and leave JSON: UTF-16 outside, UTF-8 inside. Every source that puts one in includes
// this, for without it the library takes a std::wstring for an array of numbers.
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

// Counts up when a key changes its meaning or is removed, not for a new key.
inline constexpr int kJsonVersion = 1;

// A report's first fields: version, which list, and seen from when.
[[nodiscard]] Json ReportHead(const std::wstring& list, std::int64_t now);
// Sets `key` to the seconds since 1970 and key + "Local" to the ISO local time, null for 0 and for an instant
// that has no local time.
void AddTime(Json& json, const std::string& key, std::int64_t instant);
// A whole report as text in UTF-8, without a line feed at its end. A lone surrogate, which UTF-8 cannot hold,
// has become U+FFFD.
[[nodiscard]] std::string DumpJson(const Json& json);
