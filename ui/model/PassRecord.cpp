#include "ui/model/PassRecord.h"

#include <algorithm>

#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

CPassRecord::Key CPassRecord::KeyOf(const CSCVShchedulerTask& task) {
    return {task.m_strIniSection, ToUpperText(task.m_strProjectPath)};
}

void CPassRecord::Add(const CSCVShchedulerTask& task, bool isSaved) {
    m_runs[KeyOf(task)] = {task.m_tLastRunTime, task.m_strLastRunResult, isSaved};
}

void CPassRecord::ApplyTo(const CSCVShchedulerTaskArray& tasks) const {
    for (std::ptrdiff_t i = 0; i < tasks.GetSize() && !m_runs.empty(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        const auto run = m_runs.find(KeyOf(task));
        if (run != m_runs.end() && run->second.time > task.m_tLastRunTime) {
            task.m_tLastRunTime = run->second.time;
            task.m_strLastRunResult = run->second.result;
        }
    }
}

void CPassRecord::SaveTo(IFileSystem& files, CSCVShchedulerTaskArray& tasks) {
    for (std::ptrdiff_t i = 0; i < tasks.GetSize() && HasUnsaved(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        const auto run = m_runs.find(KeyOf(task));
        if (run == m_runs.end() || run->second.isSaved || task.m_strIniSection.empty()) {
            continue;
        }
        run->second.isSaved = bool{tasks.TrySaveRun(files, task)};
        if (!run->second.isSaved) {
            return;
        }
    }
    // What is left belongs to tasks that are no longer in the list.
    for (auto& [key, run] : m_runs) {
        run.isSaved = true;
    }
}

bool CPassRecord::HasUnsaved() const noexcept {
    return std::any_of(m_runs.begin(), m_runs.end(),
                       [](const auto& run) { return !run.second.isSaved && !run.first.first.empty(); });
}
