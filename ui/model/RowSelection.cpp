#include "ui/model/RowSelection.h"

#include <algorithm>

#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"

std::ptrdiff_t RowAtProjectsPosition(const CSCVShchedulerTaskArray& tasks,
                                     std::wstring_view projectPath) noexcept {
    return projectPath.empty() ? -1 : tasks.FindTask(projectPath);
}

std::ptrdiff_t FindRowByPath(std::ptrdiff_t rowCount,
                             const std::function<const CSCVShchedulerTask*(std::ptrdiff_t)>& taskOfRow,
                             std::wstring_view projectPath) {
    for (std::ptrdiff_t row = 0; row < rowCount; ++row) {
        const CSCVShchedulerTask* task = taskOfRow(row);
        if (task != nullptr && task->m_strProjectPath == projectPath) {
            return row;
        }
    }
    return -1;
}

std::ptrdiff_t RowAfterDeletion(std::ptrdiff_t lastDeleted, std::ptrdiff_t rowsLeft) noexcept {
    return lastDeleted < 0 ? -1 : std::min(lastDeleted, rowsLeft - 1);
}
