#include "ui/NewProject.h"

#include "core/SCVShchedulerTask.h"
#include "core/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"
#include "util/Path.h"

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

stAddedProjects AddProjects(CSCVShchedulerTaskArray& tasks, const std::vector<std::wstring>& projectPaths,
                            std::int64_t now) {
    const bool wasEmpty = tasks.GetSize() == 0;
    stAddedProjects added;
    for (const std::wstring& path : projectPaths) {
        AddProject(tasks, path, now);
        added.selectPath = path;
    }
    added.isFirstOfList = wasEmpty && tasks.GetSize() > 0;
    return added;
}

bool AcceptsDrop(std::wstring_view path) {
    return EqualNoCase(GetFileExtension(path), L"scvpr");
}
