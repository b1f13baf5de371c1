#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CPrivateProfile;

// The layout of the task list file: one section that counts the tasks and a numbered section for each.

inline constexpr std::wstring_view kTaskListSection = L"SCVShchedulerTaskList";
inline constexpr std::wstring_view kTaskCountKey = L"TaskCount";
// Values longer than this many UTF-16 units are cut when they are read: texts, and numbers.
inline constexpr std::size_t kLongestText = 1023;
inline constexpr std::size_t kLongestNumber = 254;

[[nodiscard]] std::wstring TaskSectionName(std::int32_t number);

// The numbers from `first` to `last` that have a section, ascending. Costs one pass over the text, however
// large the range.
[[nodiscard]] std::vector<std::int32_t> FindTaskSections(const CPrivateProfile& profile, std::int32_t first,
                                                         std::int32_t last);

// What is read back of an instant that is written: from 2038-01-19 03:14:08 UTC on that limit.
[[nodiscard]] std::int64_t StoredInstant(std::int64_t instant);
