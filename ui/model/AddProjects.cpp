#include "ui/model/AddProjects.h"

#include "core/task/NewProject.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"
#include "util/Path.h"

stAddedProjects AddProjects(CSCVShchedulerTaskArray& tasks, const std::vector<std::wstring>& projectPaths,
                            std::int64_t now) {
    const bool wasEmpty = tasks.GetSize() == 0;
    stAddedProjects added;
    AddNewProjects(tasks, projectPaths, now);
    if (!projectPaths.empty()) {
        added.selectPath = projectPaths.back();
    }
    added.isFirstOfList = wasEmpty && tasks.GetSize() > 0;
    return added;
}

bool AcceptsDrop(std::wstring_view path) {
    return EqualNoCase(GetFileExtension(path), L"scvpr");
}
