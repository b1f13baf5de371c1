#include "core/task/NewProject.h"

#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"

void SetNewProjectDefaults(CSCVShchedulerTask& task) noexcept {
    task.m_bDeleteUrls = 1;
    task.m_bDeleteResults = 1;
    task.m_bStart = 1;
    task.m_bExportResults = 1;
    task.m_bExit = 1;
}

void AddProject(CSCVShchedulerTaskArray& tasks, const std::wstring& projectPath, std::int64_t now) {
    if (tasks.FindTask(projectPath) < 0) {
        SetNewProjectDefaults(*tasks[tasks.AddTask(projectPath, now)]);
    }
}
