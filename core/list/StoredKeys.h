#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "core/task/TaskDays.h"
#include "core/task/TaskFields.h"

// The keys of a task's section in the list file, each with the field that it stores.
struct StoredKey {
    std::wstring_view name;
    // The field: one of these, or none for the command line, which stores the project and all commands.
    std::int32_t TaskFields::*number = nullptr;
    std::int64_t TaskFields::*time = nullptr;
    std::wstring TaskFields::*text = nullptr;
    std::int32_t missing = 0;  // the number that a missing or empty value means

    [[nodiscard]] constexpr bool IsCommandLine() const {
        return number == nullptr && time == nullptr && text == nullptr;
    }
};

inline constexpr std::wstring_view kCommandLineKey = L"CommandLine";

// In the order in which they are written.
inline constexpr auto kStoredKeys = [] {
    constexpr StoredKey kBefore[] = {
        {.name = L"Enable", .number = &TaskFields::m_bEnable, .missing = 1},
        {.name = kCommandLineKey},
        {.name = L"StartTime", .time = &TaskFields::m_tStartTime},
        {.name = L"UntilTime", .time = &TaskFields::m_tUntilTime},
        {.name = L"LastRunTime", .time = &TaskFields::m_tLastRunTime},
    };
    constexpr StoredKey kBehind[] = {
        {.name = L"RepeatOnMonthly", .number = &TaskFields::m_bRepeatOnMonthly},
        {.name = L"EnableEvery", .number = &TaskFields::m_bEnableEvery},
        {.name = L"EveryValue", .number = &TaskFields::m_nEveryValue},
        {.name = L"EveryUnit", .number = &TaskFields::m_nEveryUnit},
        {.name = L"LastRunResult", .text = &TaskFields::m_strLastRunResult},
    };
    std::array<StoredKey, std::size(kBefore) + std::size(kTaskDays) + std::size(kBehind)> keys{};
    auto* key = std::copy(std::begin(kBefore), std::end(kBefore), keys.begin());
    key = std::transform(std::begin(kTaskDays), std::end(kTaskDays), key,
                         [](const TaskDay& day) { return StoredKey{.name = day.key, .number = day.flag}; });
    std::copy(std::begin(kBehind), std::end(kBehind), key);
    return keys;
}();
