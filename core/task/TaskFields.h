#pragma once

#include <cstdint>
#include <string>

// The data of a task. Texts are UTF-16. Instants (m_t...) are signed seconds since 1970-01-01 00:00 UTC; 0 is
// not set. A flag (m_b...) is set when it is not 0: the list file may hold any number.
//
// Each command is a flag that writes a switch on the extraction program's command line. Some have
// a text, the switch's argument. kTaskSwitches (core/task/TaskSwitches.h) connects flags and texts.
struct TaskFields {
    std::int32_t m_bEnable = 1;     // when clear, the scheduling pass skips the task
    std::wstring m_strProjectPath;  // full path; identifies the task in its list, without regard to case

    std::wstring m_strUrlsFile;    // argument of m_bAddUrls
    std::wstring m_strScriptFile;  // argument of m_bGenerateUrls
    // Argument of m_bImportInputValues, with the next two. Reset keeps all three.
    std::wstring m_strInputValuesFile;
    // A comma in id or name shifts name, id and file when the command line is read back.
    std::wstring m_strInputElementId;
    std::wstring m_strInputElementName;  // m_bImportInputValues needs the name or the id
    // Argument of m_bExportResults; writes the switch even when that flag is clear.
    std::wstring m_strExportFile;
    std::wstring m_strFailedUrlsFile;  // argument of m_bExportFailedUrls
    std::wstring m_strFilterArgument;  // argument of m_bApplyFilter; only parsing a command line sets it

    std::int32_t m_bResetUrls = 0;
    std::int32_t m_bDeleteUrls = 0;
    std::int32_t m_bDeleteResults = 0;
    std::int32_t m_bAddUrls = 0;
    std::int32_t m_bGenerateUrls = 0;
    std::int32_t m_bImportInputValues = 0;
    std::int32_t m_bStart = 0;
    std::int32_t m_bRestart = 0;
    std::int32_t m_bDdrSwitch = 0;  // only parsing a command line sets it: the window has no box for it
    std::int32_t m_bApplyFilter = 0;
    std::int32_t m_bExportResults = 0;
    std::int32_t m_bExportFailedUrls = 0;
    std::int32_t m_bExit = 0;

    std::int32_t m_bRepeatOnMon = 0;
    std::int32_t m_bRepeatOnTue = 0;
    std::int32_t m_bRepeatOnWen = 0;  // Wednesday, spelled as in the list file
    std::int32_t m_bRepeatOnThu = 0;
    std::int32_t m_bRepeatOnFri = 0;
    std::int32_t m_bRepeatOnSat = 0;
    std::int32_t m_bRepeatOnSun = 0;
    std::int32_t m_bRepeatOnMonthly = 0;  // on day 1 of each month, whatever the day of the start time
    std::int32_t m_bEnableEvery = 0;      // repeat m_nEveryValue after the last run, until m_tUntilTime
    std::int32_t m_nEveryValue = 1;       // in m_nEveryUnit; below 1 the Every rule is inactive
    std::int32_t m_nEveryUnit = 1;        // 1 is hours, every other number minutes
    std::int64_t m_tUntilTime = 0;        // only its local hour and minute count, never its date
    std::int64_t m_tStartTime = 0;    // first run; weekday and monthly runs have its local hour and minute
    std::int64_t m_tLastRunTime = 0;  // time of the last launch, also of a failed one; 0 is never
    std::wstring m_strLastRunResult;  // "Success" or why the last launch failed; empty before the first one

    // Where the task was last loaded from or saved to; empty for a task that never was. The section is empty,
    // too, once another program has removed the project from the file. The scheduling pass saves the task's
    // run there.
    std::wstring m_strIniFile;
    std::wstring m_strIniSection;
    // The last run that the file held then; a later one in the file is another program's.
    std::int64_t m_tStoredRunTime = 0;
    // A pass has launched the project, and the file does not hold that run yet.
    bool m_bIsRunUnsaved = false;

    [[nodiscard]] bool operator==(const TaskFields&) const = default;
};
