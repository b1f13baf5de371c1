// The functions of the task array for a list that other programs save as well.

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "core/list/PrivateProfile.h"
#include "core/list/ProfileFile.h"
#include "core/list/TaskSection.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

namespace {

// The same for all spellings of a project's path in memory and in the file: in upper case, and a row of
// apostrophes, which each save and load doubles, as one.
std::wstring ProjectKey(const std::wstring& path) {
    std::wstring key = ToUpperText(path);
    key.erase(std::unique(key.begin(), key.end(),
                          [](wchar_t left, wchar_t right) { return left == L'\'' && right == L'\''; }),
              key.end());
    return key;
}

// Takes the task's section from the file, and the run of another program if there was one since the task was
// last read or saved. The user may have reset the last run meanwhile, so that it is older
// here than in the file although nobody has run the project.
void TakeOverRun(CSCVShchedulerTask& task, const CSCVShchedulerTask& stored) {
    task.m_strIniSection = stored.m_strIniSection;
    if (stored.m_tLastRunTime > task.m_tStoredRunTime && stored.m_tLastRunTime > task.m_tLastRunTime) {
        task.m_tLastRunTime = stored.m_tLastRunTime;
        task.m_strLastRunResult = stored.m_strLastRunResult;
    }
    task.m_tStoredRunTime = stored.m_tLastRunTime;
}

}  // namespace

FileResult CSCVShchedulerTaskArray::TakeOverRuns(IFileSystem& files, const std::wstring& file) {
    const auto stamp = files.Stamp(file);
    if (stamp && stamp == m_stamp) {
        return {};
    }
    ProfileRead read = ReadProfile(files, file);
    if (read.profile) {
        TakeOverRuns(*read.profile);
        m_stamp = stamp;
    }
    return std::move(read.result);
}

void CSCVShchedulerTaskArray::TakeOverRuns(const CPrivateProfile& profile) {
    // Section by project; filled when the first task is not in its old section, because another program has
    // renumbered the sections.
    std::optional<std::map<std::wstring, std::wstring>> sections;
    for (const auto& task : m_tasks) {
        if (task->m_strIniSection.empty()) {
            continue;
        }
        const std::wstring key = ProjectKey(task->m_strProjectPath);
        CSCVShchedulerTask stored;
        stored.ReadFrom(profile, {}, task->m_strIniSection);
        if (ProjectKey(stored.m_strProjectPath) == key) {
            TakeOverRun(*task, stored);
            continue;
        }
        if (!sections) {
            CSCVShchedulerTaskArray list;
            list.ReadFrom(profile, {});
            sections.emplace();
            for (const auto& listed : list.m_tasks) {
                sections->emplace(ProjectKey(listed->m_strProjectPath), listed->m_strIniSection);
            }
        }
        if (const auto found = sections->find(key); found != sections->end()) {
            stored.ReadFrom(profile, {}, found->second);
            TakeOverRun(*task, stored);
        }
    }
}

FileResult CSCVShchedulerTaskArray::TrySaveRun(IFileSystem& files, CSCVShchedulerTask& task) {
    bool isKnown = false;
    std::optional<FileStamp> stamp;
    const std::wstring file = task.m_strIniFile;
    FileResult saved = LockAndEditProfile(
        files, file,
        [&](CPrivateProfile& profile) {
            isKnown = files.Stamp(file) == m_stamp;
            CTaskWriter(profile).Write(task, task.m_strIniSection);
        },
        &stamp);
    task.m_bIsRunUnsaved = !saved && !file.empty();
    if (saved) {
        task.m_tStoredRunTime = StoredInstant(task.m_tLastRunTime);
        // Otherwise another program has saved in between, and its runs are still to be read.
        m_stamp = isKnown ? stamp : std::nullopt;
    }
    return saved;
}

bool CSCVShchedulerTaskArray::HasUnsavedRun() const {
    return std::any_of(m_tasks.begin(), m_tasks.end(),
                       [](const auto& task) { return task->m_bIsRunUnsaved; });
}

void CSCVShchedulerTaskArray::CopyFrom(const CSCVShchedulerTaskArray& other) {
    RemoveAllTasks();
    for (const auto& task : other.m_tasks) {
        m_tasks.push_back(std::make_unique<CSCVShchedulerTask>());
        static_cast<TaskFields&>(*m_tasks.back()) = static_cast<const TaskFields&>(*task);
    }
    m_stamp = other.m_stamp;
}
