#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CPrivateProfile;

// The layout of the task list file: one section that counts the tasks and a numbered section for each.

inline constexpr std::wstring_view kTaskListSection = L"SCVShchedulerTaskList";
inline constexpr std::wstring_view kTaskCountKey = L"TaskCount";
[[nodiscard]] std::wstring TaskSectionName(std::int32_t number);

// The numbers from `first` to `last` that have a section, ascending. Takes one pass over the text, whatever
// the size of the range.
[[nodiscard]] std::vector<std::int32_t> FindTaskSections(const CPrivateProfile& profile, std::int32_t first,
                                                         std::int32_t last);
