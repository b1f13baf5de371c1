#pragma once

#include <string>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;
struct CPlatform;

// The text of a row's tooltip: whole path, whole last result, schedule, the next five runs with their
// weekdays, and the findings of `scvsched check` for this project. Several lines, separated by CR LF. Checks
// whether the files of project and program exist. `task` is one of `tasks` and is unchanged on return. Never
// throws, whatever the task's fields hold.
[[nodiscard]] std::wstring HoverText(CSCVShchedulerTask& task, const CSCVShchedulerTaskArray& tasks,
                                     const CPlatform& platform);
