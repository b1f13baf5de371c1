#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/task/TaskFields.h"

class CPrivateProfile;
struct FileResult;
class IClock;
class IFileSystem;
class IShell;

// One scheduled project: which file to run, with which commands, when, how it repeats and what happened last.
// Never copied; what can be copied are its fields.
class CSCVShchedulerTask : public TaskFields {
public:
    // Everything empty, zero or at its plain default; for tasks whose fields are all read from somewhere.
    CSCVShchedulerTask() noexcept = default;
    // A new project's task: see Reset.
    explicit CSCVShchedulerTask(std::int64_t now);
    CSCVShchedulerTask(const CSCVShchedulerTask&) = delete;
    CSCVShchedulerTask& operator=(const CSCVShchedulerTask&) = delete;
    virtual ~CSCVShchedulerTask() = default;

    // Enabled, without commands or repeats, first run 300 seconds after `now`, until 23:59:59 of `now`'s
    // local day. The texts of the input values command (m_strInputValuesFile, -Id, -Name) keep their value.
    // Raises what FromLocalTime raises when `now` has no local date.
    void Reset(std::int64_t now);

    // The quoted project path followed by the extraction program's switches. (core/CommandLine.cpp)
    [[nodiscard]] std::wstring BuildCommandLine() const;
    // Sets project path, all command flags and the arguments of the switches present; the arguments of absent
    // switches stay. Always 1.
    int ParseCommandLine(std::wstring_view text);

    // When the task runs next, seen from `now`; 0 is never. (core/NextRun.cpp)
    // Raises std::invalid_argument when a rule needs a calendar date that cannot exist, for instance because
    // a stored time lies outside what the system can convert.
    [[nodiscard]] std::int64_t GetNextRunTime(std::int64_t now) const;
    [[nodiscard]] int HasWeekdayRepeat() const noexcept;
    // Day number 1 is Sunday, 7 is Saturday; any other gives 0.
    [[nodiscard]] int RepeatsOnWeekday(int dayNumber) const noexcept;

    // Reads the task from a section of a task list file. 0 when there is no such file or it cannot be read
    // now (the task is untouched then), else 1. (core/TaskListFile.cpp)
    int LoadFromIni(IFileSystem& files, const std::wstring& file, const std::wstring& section);
    // Writes the task into its section of the file, replacing the file in one step, and records both names.
    // An empty file name writes and records nothing. Always 1: a failed write leaves the old file whole and
    // is not reported.
    int SaveToIni(IFileSystem& files, const std::wstring& file, const std::wstring& section);
    // As SaveToIni; Ok when the file now holds the task.
    [[nodiscard]] FileResult TrySaveToIni(IFileSystem& files, const std::wstring& file,
                                          const std::wstring& section);

    // Starts the extraction program on the project, and records time and result; does not save. 1 when the
    // program was started, else 0. (core/Launcher.cpp)
    int Run(IShell& shell, const IClock& clock);

private:
    friend class CSCVShchedulerTaskArray;
    void ReadFrom(const CPrivateProfile& profile, const std::wstring& file, const std::wstring& section);
    void WriteTo(CPrivateProfile& profile, const std::wstring& section) const;
    void ClearCommands() noexcept;
};
