#pragma once

#include <cstdint>
#include <span>
#include <string>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// Adding a project to the list, for the window and the console.

// Switches on the commands of a new project: delete URLs and results, start, export results, close the
// program.
void SetNewProjectDefaults(CSCVShchedulerTask& task) noexcept;

// Appends a task with those commands for each project that is not listed yet; case does not count. A path
// that is given twice is added once. Throws what CSCVShchedulerTask::Reset throws.
void AddNewProjects(CSCVShchedulerTaskArray& tasks, std::span<const std::wstring> projectPaths,
                    std::int64_t now);
