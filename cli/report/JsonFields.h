#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/report/Json.h"

// Reads the fields of one JSON object and refuses (CRefusal) what is not as it should be, saying where.
class CJsonFields {
public:
    // Refuses what is no object and keys that are not `known`. The object has to outlive this.
    CJsonFields(const Json& object, std::string where, const std::vector<std::string_view>& known);

    [[nodiscard]] bool Has(const char* key) const;
    // Null when there is no such field.
    [[nodiscard]] const Json* Find(const char* key) const;
    [[nodiscard]] std::string Where(const char* key) const { return m_where + "." + key; }

    // Nothing when there is no such field.
    [[nodiscard]] std::optional<bool> Bool(const char* key) const;
    [[nodiscard]] std::optional<std::wstring> Text(const char* key) const;
    [[nodiscard]] std::optional<std::int32_t> Number(const char* key) const;  // any of 32 bits
    // Seconds since 1970 or an ISO local time, of those that the list file can hold.
    [[nodiscard]] std::optional<std::int64_t> Time(const char* key) const;

private:
    const Json& m_object;
    std::string m_where;
};
