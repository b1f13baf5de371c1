#include "core/task/NewProject.h"

#include "core/task/ProjectSet.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"

void SetNewProjectDefaults(CSCVShchedulerTask& task) noexcept {
    task.m_bDeleteUrls = 1;
    task.m_bDeleteResults = 1;
    task.m_bStart = 1;
    task.m_bExportResults = 1;
    task.m_bExit = 1;
}

void AddNewProjects(CSCVShchedulerTaskArray& tasks, std::span<const std::wstring> projectPaths,
                    std::int64_t now) {
    CProjectSet listed(tasks);
    for (const std::wstring& path : projectPaths) {
        if (listed.Add(path)) {
            SetNewProjectDefaults(*tasks[tasks.AddTask(path, now)]);
        }
    }
}
