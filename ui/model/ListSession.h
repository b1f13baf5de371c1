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

// The tasks of the running window and their file: when it is read, saved and read again, and which project
// may be launched now.
//
// Another program may hold the file at any time. A list that is there but cannot be read is not an empty
// list: nothing is saved over it, and projects that were added meanwhile join what it holds. What could not
// be read or saved stays pending, and OnTick tries again. All calls but Close rely on files that do not wait.
class CListSession {
public:
    // What `platform` refers to outlives the session. `file` is the task list file; from Load on the session
    // keeps it as a window does (CListKeeper).
    CListSession(const CPlatform& platform, std::wstring file);

    [[nodiscard]] CSCVShchedulerTaskArray& Tasks() noexcept { return m_tasks; }

    // Reads the list for the first time.
    void Load();
    // The line to show in place of the rows until the list has been read; then empty.
    [[nodiscard]] std::wstring Notice() const;

    // The user may edit from now on, until Accept or Discard.
    void BeginEditing();
    // Saves all tasks, edits included; they win over a reading that is still pending. Returns true when the
    // tasks were replaced: projects added before the list could be read were then added to those of the file.
    bool Accept();
    // Discards the edits by reading the list again; keeps runs that could not be saved. When the file cannot
    // be read, or an earlier Accept has not been saved yet, the tasks become those of BeginEditing.
    void Discard();
    // Accept for the end of the program, with `files` that may wait for a busy file.
    void Close(IFileSystem& files);

    // Call it every two seconds: tries what is pending at the next tick and then at every second one. Reads
    // the list only if `mayReplaceTasks`. Returns true when reading has replaced the tasks.
    bool OnTick(bool mayReplaceTasks);

    // While a project is being launched the shell may dispatch messages: nothing may be launched a second
    // time then, and no task may be removed.
    [[nodiscard]] bool IsLaunching() const noexcept { return m_bLaunching; }
    // Launches what is due, unless a launch is going on, and calls `onRun` after each launch. Returns the
    // error that ended the pass early. Empty when nothing failed, or when the previous pass failed
    // with the same error: it is reported once, not every two seconds.
    [[nodiscard]] std::wstring RunDueProjects(const std::function<void()>& onRun);
    // For the end of the program: a pass that is going on ends after the project that it is launching.
    void EndPass() noexcept { m_bPassEnds = true; }
    // Launches this task's project without saving the run. Returns false, and does nothing, while another
    // launch is going on.
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
    bool m_bWasRead = false;  // the tasks come from the file, or there was none
    bool m_bReadPending = false;
    FileResult m_readFailure;  // of the last reading that failed
    bool m_bSavePending = false;
    CRetryTicks m_retry;
    bool m_bLaunching = false;
    bool m_bPassEnds = false;
    std::wstring m_strPassError;  // of the last pass; empty when it did not fail
};
