#pragma once

#include <string>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;
struct CPlatform;

// What a project's row shows when the mouse rests on it: the whole path, the whole last result, the next five
// runs with their weekdays, and what `scvsched check` finds for this project of the list. Several lines,
// separated by CR LF. Looks for the project's and the program's files. `task` is one of `tasks` and is
// unchanged on return. Never throws, whatever the task's fields hold.
[[nodiscard]] std::wstring HoverText(CSCVShchedulerTask& task, const CSCVShchedulerTaskArray& tasks,
                                     const CPlatform& platform);
