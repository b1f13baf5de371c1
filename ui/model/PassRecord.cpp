#include "ui/model/PassRecord.h"

#include "core/list/Storable.h"
#include "core/task/SCVShchedulerTaskArray.h"

void CPassRecord::Add(const CSCVShchedulerTaskArray& tasks, const CSCVShchedulerTask& task) {
    Key key{ProjectKey(task.m_strProjectPath), 0};
    for (std::ptrdiff_t i = 0; tasks[i] != &task; ++i) {
        key.second += IsSameProject(tasks[i]->m_strProjectPath, task.m_strProjectPath) ? 1U : 0U;
    }
    m_runs[key] = {task.m_tLastRunTime, task.m_strLastRunResult, task.m_bIsRunUnsaved};
}

void CPassRecord::ApplyTo(const CSCVShchedulerTaskArray& tasks) const {
    std::map<std::wstring, std::size_t> counts;  // of the tasks so far, by project
    for (std::ptrdiff_t i = 0; i < tasks.GetSize() && !m_runs.empty(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        const std::wstring project = ProjectKey(task.m_strProjectPath);
        const auto run = m_runs.find({project, counts[project]++});
        if (run != m_runs.end() && run->second.time > task.m_tLastRunTime) {
            task.m_tLastRunTime = run->second.time;
            task.m_strLastRunResult = run->second.result;
            task.m_bIsRunUnsaved = run->second.isUnsaved;
        }
    }
}
