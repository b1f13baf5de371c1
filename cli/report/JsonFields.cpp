#include "cli/report/JsonFields.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>

#include "cli/report/Refusal.h"
#include "core/schedule/TimeText.h"

namespace {

constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void Refuse(const std::string& where, const std::string& wanted) {
    throw CRefusal(where + " has to be " + wanted);
}

bool IsBetween(const Json& value, std::int64_t lowest) {
    if (value.is_number_unsigned()) {
        return value.get<std::uint64_t>() <= static_cast<std::uint64_t>(kHighest);
    }
    return value.is_number_integer() && value.get<std::int64_t>() >= lowest;
}

}  // namespace

CJsonFields::CJsonFields(const Json& object, std::string where, const std::vector<std::string_view>& known)
    : m_object(object), m_where(std::move(where)) {
    if (!object.is_object()) {
        Refuse(m_where, "an object");
    }
    for (const auto& [key, value] : object.items()) {
        if (std::find(known.begin(), known.end(), key) == known.end()) {
            throw CRefusal(m_where + " has the unknown key '" + key + "'");
        }
    }
}

const Json* CJsonFields::Find(const char* key) const {
    const auto field = m_object.find(key);
    return field == m_object.end() ? nullptr : &*field;
}

bool CJsonFields::Has(const char* key) const {
    return Find(key) != nullptr;
}

std::optional<bool> CJsonFields::Bool(const char* key) const {
    const Json* field = Find(key);
    if (field == nullptr) {
        return std::nullopt;
    }
    if (!field->is_boolean()) {
        Refuse(Where(key), "true or false");
    }
    return field->get<bool>();
}

std::optional<std::wstring> CJsonFields::Text(const char* key) const {
    const Json* field = Find(key);
    if (field == nullptr) {
        return std::nullopt;
    }
    if (!field->is_string()) {
        Refuse(Where(key), "a text");
    }
    return field->get<std::wstring>();
}

std::optional<std::int32_t> CJsonFields::Number(const char* key) const {
    const Json* field = Find(key);
    if (field == nullptr) {
        return std::nullopt;
    }
    if (!IsBetween(*field, kLowest)) {
        Refuse(Where(key), "a whole number of 32 bits");
    }
    return field->get<std::int32_t>();
}

std::optional<std::int64_t> CJsonFields::Time(const char* key) const {
    const Json* field = Find(key);
    if (field == nullptr) {
        return std::nullopt;
    }
    std::optional<std::int64_t> time;
    if (field->is_string()) {
        time = ParseTime(field->get_ref<const std::string&>());
    } else if (IsBetween(*field, 0)) {
        time = field->get<std::int64_t>();
    }
    if (!time || *time < 0 || *time > kHighest) {
        Refuse(Where(key), "seconds since 1970 or an ISO local time, up to 2038-01-19");
    }
    return time;
}
