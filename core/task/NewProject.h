#pragma once

#include <cstdint>
#include <span>
#include <string>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// How a project comes into the list, whoever adds it.

// Switches on what a new project does: delete its URLs and results, start, export results, close the program.
void SetNewProjectDefaults(CSCVShchedulerTask& task) noexcept;

// Appends a task with those defaults for each project that is not listed yet, in any case of its letters. Of
// equal paths the first counts. Throws what CSCVShchedulerTask::Reset throws.
void AddNewProjects(CSCVShchedulerTaskArray& tasks, std::span<const std::wstring> projectPaths,
                    std::int64_t now);
