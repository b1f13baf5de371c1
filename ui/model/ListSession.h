#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/launch/LaunchClaim.h"
#include "core/launch/ListKeeper.h"
#include "core/list/RetryTicks.h"
#include "core/platform/Platform.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "ui/model/PassRecord.h"

// The tasks of the running window and their file: when the file is read and saved, and when projects may be
// launched.
//
// Another program may have the file open at any time. A list that exists but cannot be read is not an empty
// list: nothing is saved over it, and projects that were added meanwhile are later added to its tasks. A
// reading or saving that failed stays pending, and OnTick tries it again. All calls except Close use files
// that do not wait.
class CListSession {
public:
    // The objects of `platform` outlive the session. `file` is the task list file. Load also marks it as kept
    // by a window (CListKeeper).
    CListSession(const CPlatform& platform, std::wstring file);

    [[nodiscard]] CSCVShchedulerTaskArray& Tasks() noexcept { return m_tasks; }

    // Reads the list for the first time.
    void Load();
    // The line to show in place of the rows until the list has been read; then empty.
    [[nodiscard]] std::wstring Notice() const;

    // The user may edit from now on, until Accept or Discard.
    void BeginEditing();
    // Saves all tasks with the user's edits. Returns true when the tasks were replaced: the list could then
    // be read for the first time, and the projects added before were added to its tasks.
    bool Accept();
    // Discards the edits by reading the list again, but keeps runs that could not be saved. When the file
    // cannot be read, or an earlier Accept is not saved yet, restores the tasks from BeginEditing.
    void Discard();
    // As Accept, at the end of the program, with `files` that may wait for a busy file.
    void Close(IFileSystem& files);

    // Call it every two seconds. It tries what is pending at the next tick and then at every second one, and
    // reads the list only if `mayReplaceTasks`. Returns true when reading has replaced the tasks.
    bool OnTick(bool mayReplaceTasks);

    // True while a project is being launched. The shell may dispatch messages meanwhile: do not launch
    // anything or remove a task then.
    [[nodiscard]] bool IsLaunching() const noexcept { return m_bLaunching; }
    // Launches what is due, unless a launch is in progress, and calls `onRun` after each launch. Returns the
    // error that ended the pass early; empty without an error, or when the previous pass failed with the same
    // error, so that it is reported once and not every two seconds.
    [[nodiscard]] std::wstring RunDueProjects(const std::function<void()>& onRun);
    // For the end of the program: a pass in progress ends after the project that it is launching.
    void EndPass() noexcept { m_bPassEnds = true; }
    // Launches this task's project without saving the run. Returns false, and does nothing, while another
    // launch is in progress.
    bool RunProject(CSCVShchedulerTask& task);

private:
    bool Read(IFileSystem& files, bool joins);
    bool AcceptInto(IFileSystem& files);
    void Save(IFileSystem& files);
    bool TryPending(IFileSystem& files, bool mayReplaceTasks);

    CPlatform m_platform;
    std::wstring m_strFile;
    CSCVShchedulerTaskArray m_tasks;
    std::optional<CSCVShchedulerTaskArray> m_beforeEditing;
    CPassRecord m_passRecord;
    CLaunchClaim m_claim;
    CListKeeper m_keeper;
    bool m_bWasRead = false;  // true once the list was read or found missing
    bool m_bReadPending = false;
    FileResult m_readFailure;  // of the last reading that failed
    bool m_bSavePending = false;
    CRetryTicks m_retry;
    bool m_bLaunching = false;
    bool m_bPassEnds = false;
    std::wstring m_strPassError;  // of the last pass; empty when it did not fail
};
