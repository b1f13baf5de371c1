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
// Only its fields can be copied.
class CSCVShchedulerTask : public TaskFields {
public:
    // With the defaults of TaskFields; for a task whose fields are then all set.
    CSCVShchedulerTask() noexcept = default;
    // A new project's task, see Reset.
    explicit CSCVShchedulerTask(std::int64_t now);
    CSCVShchedulerTask(const CSCVShchedulerTask&) = delete;
    CSCVShchedulerTask& operator=(const CSCVShchedulerTask&) = delete;
    virtual ~CSCVShchedulerTask() = default;

    // Enabled, without commands or repeats, first run 300 seconds after `now`, until 23:59:59 of `now`'s
    // local day. The texts of the input values command (m_strInputValuesFile, -Id, -Name) keep their value.
    // Throws what FromLocalTime throws when `now` has no local date.
    void Reset(std::int64_t now);

    // The quoted project path followed by the extraction program's switches. (core/task/CommandLine.cpp)
    [[nodiscard]] std::wstring BuildCommandLine() const;

    // When the task runs next, seen from `now` and with its last run at `lastRun`; 0 is never. The first rule
    // that gives a run decides (core/schedule/NextRun.cpp):
    //   1. Start: a start after `now` is the next run.
    //   2. Never run: without a last run the task is due at the start of the current minute.
    //   3. Every: the last run plus N, if its time of day is not later than that of the until time, whatever
    //      its date. When weekdays are flagged, only if `now` is on a flagged one.
    //   4. Weekdays: the next flagged date after that of the last run, at the start's time of day; with Every
    //      at 00:00. Monthly: day 1 of the month after the last run, at the start's time of day. Of both the
    //      earlier one.
    //   5. Otherwise it never runs again.
    //
    // Example 1: start Mon 8 June 08:00, every 2 hours until 12:00, Mon and Thu flagged, all runs on time:
    //   Mon 08:00 (rule 1), Mon 10:00, Mon 12:00 (rule 3; 14:00 is later than 12:00), Thu 00:00 (rule 4),
    //   Thu 02:00 ... Thu 12:00 (rule 3), Mon 00:00 (rule 4) ...
    // Example 2: the same without flagged days. After the run of Mon 12:00 the result is 0 (rule 5), also on
    //   Tue morning. If the last run was at Mon 23:30, the result is Tue 01:30 (rule 3).
    //
    // Throws std::invalid_argument when a rule needs a calendar date that cannot exist, for instance because
    // the start time is outside the range that the system can convert.
    [[nodiscard]] std::int64_t GetNextRunTime(std::int64_t now, std::int64_t lastRun) const;
    // The same with the task's own last run.
    [[nodiscard]] std::int64_t GetNextRunTime(std::int64_t now) const;
    // Whether the Every rule is active (flag set, N at least 1), and its N in minutes.
    [[nodiscard]] bool IsEveryActive() const noexcept;
    [[nodiscard]] std::int64_t EveryMinutes() const noexcept;
    [[nodiscard]] int HasWeekdayRepeat() const noexcept;
    // Day number 1 is Sunday, 7 is Saturday; any other gives 0.
    [[nodiscard]] int RepeatsOnWeekday(int dayNumber) const noexcept;

    // Reads the task from a section of a task list file. Returns 0, with the task unchanged, when the file is
    // missing or cannot be read now, else 1. (core/list/TaskSection.cpp)
    int LoadFromIni(IFileSystem& files, const std::wstring& file, const std::wstring& section);
    // Writes the task into its section of the file, with an atomic replace of the file. A failure leaves the
    // old file whole. Records both names in the task, even after a failure. An empty file name is a failure
    // and is not recorded.
    [[nodiscard]] FileResult TrySaveToIni(IFileSystem& files, const std::wstring& file,
                                          const std::wstring& section);

    // Starts the extraction program for the project and records time and result, but does not save them.
    // Returns 1 when the program was started, else 0. (core/launch/Launcher.cpp)
    int Run(IShell& shell, const IClock& clock);

    // The interface forms. They always return 1.

    // Sets project path, all command flags and the arguments of the switches present; the arguments of absent
    // switches stay. (core/task/CommandLine.cpp)
    int ParseCommandLine(std::wstring_view text);
    // TrySaveToIni without its result.
    int SaveToIni(IFileSystem& files, const std::wstring& file, const std::wstring& section);

private:
    friend class CSCVShchedulerTaskArray;
    void ReadFrom(const CPrivateProfile& profile, const std::wstring& file, const std::wstring& section);
    void ClearCommands() noexcept;
};
