#include "core/check/Check.h"

#include <gmock/gmock.h>

#include "core/list/ProfileFile.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/LocalZone.h"
#include "util/Utf8.h"

namespace {

using Texts = std::vector<std::string>;

class Check : public testing::Test {
protected:
    // The messages about a list of `count` tasks whose sections follow.
    void ExpectFindings(const std::string& count, const std::string& sections, const Texts& expected) {
        const std::wstring list = L"C:\\l.ini";
        CFakeFileSystem files;
        files.Put(list, "[SCVShchedulerTaskList]\nTaskCount=" + count + "\n" + sections);
        CSCVShchedulerTaskArray tasks;
        ASSERT_EQ(tasks.Load(files, list), 1);
        const auto findings = FindProblems(*ReadProfile(files, list).profile, tasks, shell, now);
        ASSERT_EQ(findings.size(), expected.size())
            << sections << (findings.empty() ? "" : ToUtf8(findings[0].message));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_THAT(ToUtf8(findings[i].message), testing::HasSubstr(expected[i])) << sections;
        }
    }
    void ExpectOfTask(const std::string& keys, const Texts& expected) {
        ExpectFindings("1", kTask + keys, expected);
    }

    FakeShell shell;
    std::int64_t now = FromLocalTime(2024, 6, 3, 10, 0, 0);  // a Monday
    const std::string kTask =
        "[SCVShchedulerTask1]\nCommandLine='\"C:\\a.scvpr\" -s'\nStartTime=1717000000\n";
};

TEST_F(Check, SchedulesThatSurpriseAreFound) {
    const std::string every = "EnableEvery=1\nEveryValue=2\nEveryUnit=1\n";
    const auto at = [](int day, int hour) { return std::to_string(FromLocalTime(2024, 6, day, hour, 0, 0)); };
    const std::tuple<const char*, std::string, Texts> tasks[] = {
        {"nothing", "", {}},
        {"past 2038", "UntilTime=4294967295\n", {"until time lies at or past 2038-01-19"}},
        {"every 0", "EnableEvery=1\nEveryValue=0\n", {"inactive, as its count is 0"}},
        {"Every alone",
         every + "UntilTime=" + at(3, 15) + "\nLastRunTime=" + at(3, 9),
         {"the Every rule ends for good on 2024-06-03 with the run of 15:00"}},
        {"Every and monthly",
         every + "RepeatOnMonthly=1\nUntilTime=" + at(3, 15) + "\nLastRunTime=" + at(2, 14),
         {}},
        {"failed",
         "LastRunTime=" + at(2, 9) + "\nLastRunResult='Failure: File does not exist'\n",
         {"the last run (2024-06-02 09:00) failed: Failure: File does not exist"}},
        {"succeeded", "LastRunTime=" + at(2, 9) + "\nLastRunResult='Success'\n", {}},
        {"in the future", "LastRunTime=" + at(4, 9), {"future (2024-06-04 09:00)"}},
        {"apostrophe", "LastRunResult='it''s'\n", {"apostrophe in the last result", "failed: it"}},
    };
    for (const auto& [label, keys, expected] : tasks) {
        SCOPED_TRACE(label);
        ExpectOfTask(keys, expected);
    }
}

TEST_F(Check, WhatTheFileSpoilsIsFound) {
    const std::tuple<const char*, std::string, Texts> commandLines[] = {
        {"too long", R"("C:\a.scvpr" "-at)" + std::string(1100, 'x') + '"', {"of which 1023 are read"}},
        {"apostrophe", R"("C:\it''s.scvpr")", {"apostrophe in the command line"}},
        {"comma", R"("C:\a.scvpr" -aiv"q,1,2,C:\v.txt")", {"comma"}},
        {"no files", R"("C:\a.scvpr" -at -gt -eft -fr -qe)", {"-at ", "-gt ", "-eft "}},
        {"no values", R"("C:\a.scvpr" -aiv)", {"no file", "neither"}},
        {"extension", R"("C:\a.txt")", {"'txt' is neither", "no program"}},
    };
    for (const auto& [label, commandLine, expected] : commandLines) {
        SCOPED_TRACE(label);
        ExpectFindings("1", "[SCVShchedulerTask1]\nCommandLine='" + commandLine + "'\n", expected);
    }
    ExpectFindings("2147483647", kTask, {"up to SCVShchedulerTask2147483647 are missing"});
    ExpectFindings("2", kTask + "[SCVShchedulerTask2]\nStartTime=5\n", {"names no project"});
    ExpectFindings("2", kTask + "[SCVShchedulerTask2]\nCommandLine='\"c:\\A.scvpr\"'\n",
                   {"listed twice, first in SCVShchedulerTask1"});
}

TEST_F(Check, MissingProjectsAndProgramsAreFound) {
    shell.missing.insert(L"C:\\a.scvpr");
    ExpectOfTask("", {"project file does not exist"});
    shell.missing = {L"C:\\scrivane.exe"};
    ExpectOfTask("", {"C:\\scrivane.exe does not exist"});
    shell.programs.clear();
    ExpectOfTask("", {"no program is registered"});
}

#ifndef _WIN32
TEST_F(Check, ATimeOfDayInAClockChangeIsFound) {
    const CLocalZone zone("Europe/Berlin");
    now = FromLocalTime(2026, 1, 5, 0, 0, 0);
    const struct {
        const char* label;
        int hour, minute;
        const char* keys;
        Texts expected;
    } table[] = {
        {"in both changes",
         2,
         30,
         "RepeatOnSun=1\n",
         {"02:30 is skipped in the clock change of 2026-03-29",
          "02:30 comes twice in the clock change of 2026-10-25"}},
        {"another day", 2, 30, "RepeatOnMon=1\n", {}},
        {"after", 3, 0, "RepeatOnSun=1\n", {}},
        {"before", 1, 59, "RepeatOnSun=1\n", {}},
        {"neither is on the first of a month", 2, 30, "RepeatOnMonthly=1\n", {}},
        {"begins at midnight", 2, 30, "RepeatOnSun=1\nEnableEvery=1\nEveryValue=1\n", {}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.label);
        ExpectFindings("1",
                       "[SCVShchedulerTask1]\nCommandLine='\"C:\\a.scvpr\"'\nLastRunTime=1\nStartTime=" +
                           std::to_string(FromLocalTime(2026, 1, 4, row.hour, row.minute, 0)) + "\n" +
                           row.keys,
                       row.expected);
    }
}
#endif

}  // namespace
