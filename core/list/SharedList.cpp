// The functions of the task array for a list that other programs also save.

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "core/list/PrivateProfile.h"
#include "core/list/ProfileFile.h"
#include "core/list/Storable.h"
#include "core/list/TaskSection.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

// Copies the section of the stored task, and its run if another program has run the project since the task
// was last read or saved. A last run that is merely later in the file does not prove that: the user may
// have reset it here.
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
    CSCVShchedulerTaskArray stored;
    stored.ReadFrom(profile, {});
    std::multimap<std::wstring, const CSCVShchedulerTask*> places;  // equal projects in the file's order
    for (const auto& task : stored.m_tasks) {
        places.emplace(ProjectKey(task->m_strProjectPath), task.get());
    }
    for (const auto& task : m_tasks) {
        if (task->m_strIniFile.empty()) {
            continue;
        }
        if (const auto place = places.extract(ProjectKey(task->m_strProjectPath))) {
            TakeOverRun(*task, *place.mapped());
        } else {
            task->m_strIniSection.clear();
        }
    }
}

FileResult CSCVShchedulerTaskArray::TrySaveRun(IFileSystem& files, CSCVShchedulerTask& task) {
    bool isThere = false;
    std::optional<FileStamp> stamp;
    const std::wstring file = task.m_strIniFile;
    const auto write = [&](CPrivateProfile& profile) {
        if (profile.IsEmpty()) {
            return;
        }
        // Another program has saved since, and the task's section can be another project's now.
        if (files.Stamp(file) != m_stamp) {
            TakeOverRuns(profile);
        }
        isThere = !task.m_strIniSection.empty();
        if (isThere) {
            CTaskWriter(profile).Write(task, task.m_strIniSection);
        }
    };
    FileResult saved = LockAndEditProfile(files, file, write, &stamp);
    if (saved && !isThere) {
        saved = {.status = FileResult::Status::Missing, .path = file};
    }
    // A task that is in no file waits for the next save of the whole list.
    task.m_bIsRunUnsaved = !saved && !task.m_strIniSection.empty();
    if (saved) {
        task.m_tStoredRunTime = StoredInstant(task.m_tLastRunTime);
        m_stamp = stamp;
    }
    return saved;
}

void CSCVShchedulerTaskArray::SaveUnsavedRuns(IFileSystem& files) {
    for (const auto& task : m_tasks) {
        if (task->m_bIsRunUnsaved && !TrySaveRun(files, *task) && task->m_bIsRunUnsaved) {
            return;
        }
    }
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
