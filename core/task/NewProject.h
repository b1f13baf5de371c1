#pragma once

#include <cstdint>
#include <string>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// How a project comes into the list, whoever adds it.

// Switches on what a new project does: delete its URLs and results, start, export results, close the program.
void SetNewProjectDefaults(CSCVShchedulerTask& task) noexcept;

// Appends a task with those defaults unless the project is listed already, in any case of its letters. Raises
// std::invalid_argument when the array refuses the task.
void AddProject(CSCVShchedulerTaskArray& tasks, const std::wstring& projectPath, std::int64_t now);
