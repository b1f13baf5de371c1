#pragma once

#include <string>
#include <string_view>
#include <vector>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// Names of projects on the command line: a path, or a pattern in which * stands for any text and ? for one
// character. Case does not count.

[[nodiscard]] bool IsPattern(std::wstring_view name) noexcept;

// A pattern without a folder, such as "prices*", is compared with the project's file name alone.
[[nodiscard]] bool NamesProject(std::wstring_view name, std::wstring_view project);

// The tasks that the names select, in the order of the list; all tasks when `names` is empty. The array keeps
// the ownership. Throws CRefusal for a name that selects no task.
[[nodiscard]] std::vector<CSCVShchedulerTask*> SelectTasks(const CSCVShchedulerTaskArray& tasks,
                                                           const std::vector<std::wstring>& names);
