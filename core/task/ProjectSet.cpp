#include "core/task/ProjectSet.h"

#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

CProjectSet::CProjectSet(const CSCVShchedulerTaskArray& tasks) {
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        Add(tasks[i]->m_strProjectPath);
    }
}

bool CProjectSet::Add(std::wstring_view projectPath) {
    return m_paths.insert(ToUpperText(projectPath)).second;
}
