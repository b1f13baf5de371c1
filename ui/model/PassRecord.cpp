#include "ui/model/PassRecord.h"

#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

void CPassRecord::Add(const CSCVShchedulerTask& task) {
    if (!task.m_strIniSection.empty()) {
        m_runs[task.m_strIniSection] = {task.m_strProjectPath, task.m_tLastRunTime, task.m_strLastRunResult};
    }
}

void CPassRecord::ApplyTo(const CSCVShchedulerTaskArray& tasks) const {
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        const auto run = m_runs.find(task.m_strIniSection);
        // Another process may have given the section to another project meanwhile.
        if (run != m_runs.end() && EqualNoCase(run->second.project, task.m_strProjectPath) &&
            run->second.time > task.m_tLastRunTime) {
            task.m_tLastRunTime = run->second.time;
            task.m_strLastRunResult = run->second.result;
        }
    }
}
