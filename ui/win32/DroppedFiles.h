#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

// The dropped files that are projects, in the order of the drop; `drop` is what WM_DROPFILES brings and is
// released. Paths of 260 characters and more are cut, as the system's own buffers are, and so hardly ever
// count as projects.
[[nodiscard]] std::vector<std::wstring> TakeDroppedProjects(HDROP drop);
