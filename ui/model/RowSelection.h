#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// Which row of the project list an operation selects. Rows count from 0; -1 is none.

// The row that is selected when the window is shown for a project: the row whose number is the project's
// index in the array. Kept on purpose, although after a sort another project can be in this row. Adding and
// dropping use FindRowByPath instead.
[[nodiscard]] std::ptrdiff_t RowAtProjectsPosition(const CSCVShchedulerTaskArray& tasks,
                                                   std::wstring_view projectPath) noexcept;

// The first row whose task has exactly this project path; unlike in the array's FindTask case counts.
// `taskOfRow` may return null.
[[nodiscard]] std::ptrdiff_t FindRowByPath(
    std::ptrdiff_t rowCount, const std::function<const CSCVShchedulerTask*(std::ptrdiff_t)>& taskOfRow,
    std::wstring_view projectPath);

// The row to select after rows were deleted. `lastDeleted` is the highest of them, counted before the
// deletion (-1 for none); `rowsLeft` is the number of rows now.
[[nodiscard]] std::ptrdiff_t RowAfterDeletion(std::ptrdiff_t lastDeleted, std::ptrdiff_t rowsLeft) noexcept;
