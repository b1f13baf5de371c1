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
    // Throws what FromLocalTime throws when `now` has no local date.
    void Reset(std::int64_t now);

    // The quoted project path followed by the extraction program's switches. (core/CommandLine.cpp)
    [[nodiscard]] std::wstring BuildCommandLine() const;

    // When the task runs next, seen from `now` and with its last run at `lastRun`; 0 is never. The first rule
    // that applies decides (core/schedule/NextRun.cpp):
    //   1. A start still to come is the next run.
    //   2. Without a last run the task is due now, at the start of the current minute.
    //   3. Every: last run plus N, on any day without ticked weekdays, else only while today is ticked. It
    //      counts when its time of day is not later than that of the until time; its date is not looked at.
    //   4. Weekdays: the next ticked date after the last run's, at the start's time of day, with Every at
    //   00:00.
    //      Monthly: day 1 of the month after the last run's, at the start's time of day. The earlier of both.
    //   5. Never again.
    // Start Mon 8 June 08:00, Every 2 hours until 12:00, Mon and Thu ticked, all runs on time:
    //   Mon 08:00, 10:00, 12:00 (14:00 is later than 12:00), Thu 00:00, 02:00, ... 12:00, Mon 00:00 ...
    // The same without ticked days, last run Mon 12:00: 0, also the next morning. With last run Mon 23:30 it
    // is 01:30, because that time of day is not later than 12:00. Throws std::invalid_argument when a rule
    // needs a calendar date that cannot exist, for instance because the start time lies outside what the
    // system can convert.
    [[nodiscard]] std::int64_t GetNextRunTime(std::int64_t now, std::int64_t lastRun) const;
    // The same with the task's own last run.
    [[nodiscard]] std::int64_t GetNextRunTime(std::int64_t now) const;
    // Whether the Every rule counts, and its N in minutes.
    [[nodiscard]] bool IsEveryActive() const noexcept;
    [[nodiscard]] std::int64_t EveryMinutes() const noexcept;
    [[nodiscard]] int HasWeekdayRepeat() const noexcept;
    // Day number 1 is Sunday, 7 is Saturday; any other gives 0.
    [[nodiscard]] int RepeatsOnWeekday(int dayNumber) const noexcept;

    // Reads the task from a section of a task list file. Returns 0, with the task unchanged, when there is no
    // such file or it cannot be read now, else 1. (core/list/TaskSection.cpp)
    int LoadFromIni(IFileSystem& files, const std::wstring& file, const std::wstring& section);
    // Writes the task into its section of the file, replacing the file in one step, and records both names. A
    // failure leaves the old file whole. An empty file name writes and records nothing and is a failure.
    [[nodiscard]] FileResult TrySaveToIni(IFileSystem& files, const std::wstring& file,
                                          const std::wstring& section);

    // Starts the extraction program on the project and records time and result; does not save. Returns 1 when
    // the program was started, else 0. (core/launch/Launcher.cpp)
    int Run(IShell& shell, const IClock& clock);

    // Functions of the program's interface that always return 1.

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
