#pragma once

#include <functional>
#include <string>

#include "core/launch/LaunchClaim.h"
#include "core/platform/Platform.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "ui/model/PassRecord.h"

// The tasks of the running window and their file: when it is read, saved and read again, and which project
// may be launched now.
//
// A list that is there but cannot be read is not an empty list. Nothing is saved over it, and it is tried
// again until it can be read; what was added meanwhile then joins what it holds.
class CListSession {
public:
    // What `platform` refers to outlives the session. `file` is the task list file.
    CListSession(const CPlatform& platform, std::wstring file);

    [[nodiscard]] CSCVShchedulerTaskArray& Tasks() noexcept { return m_tasks; }

    // Reads the list, at the start and to discard edits. Runs that could not be saved are kept. A list that
    // cannot be read leaves the tasks as they are, and ReadPending tries again.
    void Load();
    // True when a list that could not be read before has now replaced the tasks.
    bool ReadPending();
    // Saves all tasks. A failure is not reported.
    void Save();

    // While a project is being launched the shell may dispatch messages: nothing may be launched a second
    // time then, and no task may be removed.
    [[nodiscard]] bool IsLaunching() const noexcept { return m_bLaunching; }
    // Launches what is due, unless a launch is going on, and calls `onRun` after each launch. Returns what
    // ended the pass early, in UTF-8; empty when nothing did, and when that was returned for the pass before:
    // a pass that fails is reported once and not every two seconds.
    [[nodiscard]] std::string RunDueProjects(const std::function<void()>& onRun);
    // Launches this task's project unless a launch is going on, and does not save it. False when it was not
    // tried.
    bool RunProject(CSCVShchedulerTask& task);

private:
    CPlatform m_platform;
    std::wstring m_strFile;
    CSCVShchedulerTaskArray m_tasks;
    CPassRecord m_passRecord;
    CLaunchClaim m_claim;
    bool m_bWasRead = false;      // the tasks come from the file, or there was none
    bool m_bReadPending = false;  // the file is there and could not be read
    bool m_bLaunching = false;
    std::string m_strPassError;  // what the last pass failed with
};
