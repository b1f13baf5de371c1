#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/report/Json.h"

// Reads the fields of one JSON object. Throws CRefusal, with the place, for a field that is not valid.
class CJsonFields {
public:
    // Refuses a value that is no object and keys that are not in `known`. The value outlives this object.
    CJsonFields(const Json& object, std::string where, const std::vector<std::string_view>& known);

    [[nodiscard]] bool Has(const char* key) const;
    // Null when there is no such field.
    [[nodiscard]] const Json* Find(const char* key) const;
    [[nodiscard]] std::string Where(const char* key) const { return m_where + "." + key; }

    // Nothing when there is no such field.
    [[nodiscard]] std::optional<bool> Bool(const char* key) const;
    [[nodiscard]] std::optional<std::wstring> Text(const char* key) const;
    [[nodiscard]] std::optional<std::int32_t> Number(const char* key) const;  // a number of 32 bits
    // Seconds since 1970, or an ISO local time. Refuses a time that the list file cannot hold.
    [[nodiscard]] std::optional<std::int64_t> Time(const char* key) const;

private:
    const Json& m_object;
    std::string m_where;
};
