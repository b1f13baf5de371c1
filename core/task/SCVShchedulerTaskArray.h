#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/FileSystem.h"
#include "core/task/SCVShchedulerTask.h"

class CPrivateProfile;

// The ordered list of tasks and its file. Owns its tasks: removing a task deletes it. The tasks are saved in
// this order.
class CSCVShchedulerTaskArray {
public:
    [[nodiscard]] std::ptrdiff_t GetSize() const noexcept {
        return static_cast<std::ptrdiff_t>(m_tasks.size());
    }
    // The array keeps the ownership. Throws std::invalid_argument for an index outside the array.
    [[nodiscard]] CSCVShchedulerTask* GetAt(std::ptrdiff_t index) const;
    [[nodiscard]] CSCVShchedulerTask* operator[](std::ptrdiff_t index) const { return GetAt(index); }

    // Appends a new task (see CSCVShchedulerTask::Reset) for the project and returns its index. Does not look
    // for duplicates.
    std::ptrdiff_t AddTask(const std::wstring& projectPath, std::int64_t now);
    // Appends a task with these fields and returns its index.
    std::ptrdiff_t AddTask(const TaskFields& fields);
    // As AddTask, but inserts the task at `index`. Returns -1, with nothing inserted, when index > GetSize().
    // Throws std::invalid_argument when index < 0.
    std::ptrdiff_t InsertTask(std::ptrdiff_t index, const std::wstring& projectPath, std::int64_t now);
    // Index of the first task with that project path, without regard to case; -1 when there is none.
    [[nodiscard]] std::ptrdiff_t FindTask(std::wstring_view projectPath) const noexcept;
    // 1 when the first task with that project path was removed, 0 when there is none.
    int RemoveTask(std::wstring_view projectPath);
    // As RemoveTask for each of the paths, in one pass over the array. Returns how many tasks were removed.
    std::size_t RemoveTasks(std::span<const std::wstring> projectPaths);
    // Returns the new count. Throws std::invalid_argument for an index outside the array.
    std::ptrdiff_t RemoveTaskAt(std::ptrdiff_t index);
    void RemoveAllTasks() noexcept;

    // Replaces the tasks by those of the file. Returns 0, with the array unchanged, when the file does not
    // exist or cannot be read now; else 1. After a file could not be read, TrySave refuses it until a Load
    // has read it or found it missing. (core/list/TaskListFile.cpp)
    int Load(IFileSystem& files, const std::wstring& file);
    // As Load. Missing when there is no such file, Busy or Failed when it exists and cannot be read.
    FileResult TryLoad(IFileSystem& files, const std::wstring& file);
    // Writes all tasks, removes the sections of deleted tasks, and records file and section in each task. The
    // file is replaced atomically; after a failure the file and these records are unchanged. For a list that
    // could not be read, returns the reason.
    [[nodiscard]] FileResult TrySave(IFileSystem& files, const std::wstring& file);
    // Loads the file, calls `edit` and saves, all under the file's lock. `edit` finds the tasks of the file
    // in the array, none when the file is missing. Unlike Save it writes only the keys that `edit` has
    // changed, so apostrophes elsewhere are not doubled again. The file stays unchanged when it cannot be
    // read or written, or when `edit` throws; the exception passes through.
    [[nodiscard]] FileResult TryEdit(IFileSystem& files, const std::wstring& file,
                                     const std::function<void()>& edit);

    // True when the file that was last loaded or edited has a text and no task list section, so that it is
    // most likely no task list at all.
    [[nodiscard]] bool IsForeign() const noexcept { return m_isForeign; }

    // For a list that other schedulers run as well (core/list/SharedList.cpp): reads the runs that they have
    // saved since the list was last read or saved here, and the sections that its tasks are in now: none for
    // a project that the file does not list any more; of equal projects the second here is the second there.
    // Does not read a file that has not changed since, which may then be in use by another program.
    FileResult TakeOverRuns(IFileSystem& files, const std::wstring& file);
    // Saves one task to the section that its project has in the file now. Missing, with nothing saved, when
    // the file is gone or empty, or does not list the project.
    [[nodiscard]] FileResult TrySaveRun(IFileSystem& files, CSCVShchedulerTask& task);
    // Whether a run that TrySaveRun could not save is still in memory only. A project that the file does not
    // list does not count.
    [[nodiscard]] bool HasUnsavedRun() const;
    // Saves these runs, up to the first failure.
    void SaveUnsavedRuns(IFileSystem& files);
    // Replaces the tasks by copies of the other array's tasks.
    void CopyFrom(const CSCVShchedulerTaskArray& other);

    // The interface form of TrySave. Always returns 1.
    int Save(IFileSystem& files, const std::wstring& file);

private:
    void TakeOverRuns(const CPrivateProfile& profile);
    void ReadFrom(const CPrivateProfile& profile, const std::wstring& file);
    void RecordPlaces(const std::wstring& file);

    std::vector<std::unique_ptr<CSCVShchedulerTask>> m_tasks;
    // Of the file when these tasks last knew all runs that it holds.
    std::optional<FileStamp> m_stamp;
    bool m_isForeign = false;
    FileResult m_unread;  // why the list could not be loaded although it exists; else Ok
};
