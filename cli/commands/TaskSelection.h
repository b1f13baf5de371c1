#pragma once

#include <string>
#include <string_view>
#include <vector>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// Projects as the command line names them: by their path, or by a pattern in which * stands for any text and
// ? for one character. Case does not count.

[[nodiscard]] bool IsPattern(std::wstring_view name) noexcept;

// A pattern without a folder, such as "prices*", is compared with the project's file name alone.
[[nodiscard]] bool NamesProject(std::wstring_view name, std::wstring_view project);

// The tasks that one of the names selects (all when `names` is empty), in the order of the list; they stay
// the array's. Throws CRefusal for a name that selects none.
[[nodiscard]] std::vector<CSCVShchedulerTask*> SelectTasks(const CSCVShchedulerTaskArray& tasks,
                                                           const std::vector<std::wstring>& names);
