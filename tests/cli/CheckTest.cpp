#include "cli/Check.h"

#include <gmock/gmock.h>

#include "cli/TextReport.h"
#include "core/LocalTime.h"
#include "core/ProfileFile.h"
#include "core/SCVShchedulerTaskArray.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/LocalZone.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::wstring kList = L"C:\\l.ini";
constexpr const char* kTask =
    "[SCVShchedulerTask1]\r\nCommandLine='\"C:\\a.scvpr\" -s'\r\nStartTime=1717000000\r\n";

// The messages about a list whose only task has `keys` after the usual ones.
std::vector<std::string> Messages(const std::string& file, FakeShell& shell, std::int64_t now) {
    CFakeFileSystem files;
    files.Put(kList, file);
    CSCVShchedulerTaskArray tasks;
    EXPECT_EQ(tasks.Load(files, kList), 1);
    std::vector<std::string> messages;
    for (const Finding& finding : FindProblems(*ReadProfile(files, kList).profile, tasks, shell, now)) {
        messages.push_back(finding.message);
    }
    return messages;
}

class Check : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> OfTask(const std::string& keys) {
        return Messages("[SCVShchedulerTaskList]\r\nTaskCount=1\r\n" + (kTask + keys), shell, now);
    }
    [[nodiscard]] std::vector<std::string> OfCommandLine(const std::string& commandLine) {
        return Messages(
            "[SCVShchedulerTaskList]\nTaskCount=1\n[SCVShchedulerTask1]\nCommandLine='" + commandLine + "'\n",
            shell, now);
    }

    FakeShell shell;
    const std::int64_t now = FromLocalTime(2024, 6, 3, 10, 0, 0);  // a Monday
};

TEST_F(Check, ATaskThatWorksHasNoFinding) {
    EXPECT_THAT(OfTask(""), IsEmpty());
    EXPECT_THAT(OfTask("EnableEvery=1\nEveryValue=15\nEveryUnit=0\nUntilTime=" +
                       std::to_string(FromLocalTime(2024, 6, 2, 23, 59, 59))),
                IsEmpty())
        << "the repeats run over into the next day";
}

TEST_F(Check, WhatCannotBeLaunchedIsFound) {
    shell.missing.insert(L"C:\\a.scvpr");
    EXPECT_THAT(OfTask(""), ElementsAre(HasSubstr("project file does not exist")));
    shell.missing = {L"C:\\scrivane.exe"};
    EXPECT_THAT(OfTask(""), ElementsAre(HasSubstr("C:\\scrivane.exe does not exist")));
    shell.missing.clear();
    shell.programs.clear();
    EXPECT_THAT(OfTask(""), ElementsAre(HasSubstr("no program is registered")));
    EXPECT_THAT(OfCommandLine(R"("C:\a.txt")"),
                ElementsAre(HasSubstr("'txt' is neither"), HasSubstr("no program")));
}

TEST_F(Check, WhatDoesNotSurviveTheFileIsFound) {
    const std::string longPath = R"("C:\a.scvpr" "-at)" + std::string(1100, 'x') + '"';
    EXPECT_THAT(OfCommandLine(longPath), testing::Contains(HasSubstr("of which 1023 are read")));
    EXPECT_THAT(OfCommandLine(R"("C:\it''s.scvpr")"),
                ElementsAre(HasSubstr("apostrophe in the command line")));
    EXPECT_THAT(OfTask("LastRunResult='Failure to run ''''\n"),
                ElementsAre(HasSubstr("apostrophe in the last result")));
    EXPECT_THAT(OfCommandLine(R"("C:\a.scvpr" -aiv"q,1,2,C:\v.txt")"), ElementsAre(HasSubstr("comma")));
    EXPECT_THAT(OfCommandLine(R"("C:\a.scvpr" -aiv"q,,C:\v.txt")"), IsEmpty());
    EXPECT_THAT(OfTask("UntilTime=4294967295\n"),
                ElementsAre(HasSubstr("until time lies at or past 2038-01-19")));
}

TEST_F(Check, ASwitchWithoutItsArgumentIsFound) {
    EXPECT_THAT(OfCommandLine(R"("C:\a.scvpr" -at -gt -eft -fr -qe)"),
                ElementsAre(HasSubstr("-at "), HasSubstr("-gt "), HasSubstr("-eft ")));
    EXPECT_THAT(OfCommandLine(R"("C:\a.scvpr" -aiv)"),
                ElementsAre(HasSubstr("no file"), HasSubstr("neither")));
}

TEST_F(Check, RulesThatStopOrWaitAreFound) {
    EXPECT_THAT(OfTask("EnableEvery=1\nEveryValue=0\n"),
                ElementsAre(HasSubstr("inactive, as its count is 0")));
    const std::string every = "EnableEvery=1\nEveryValue=2\nEveryUnit=1\nStartTime=1000000\n";
    const auto at = [](int day, int hour) { return std::to_string(FromLocalTime(2024, 6, day, hour, 0, 0)); };
    EXPECT_THAT(OfTask(every + "UntilTime=" + at(3, 15) + "\nLastRunTime=" + at(3, 9)),
                ElementsAre(HasSubstr("ends for good today with the run of 2024-06-03 15:00")));
    EXPECT_THAT(OfTask(every + "UntilTime=" + at(3, 15) + "\nLastRunTime=" + at(2, 14)),
                ElementsAre(HasSubstr("has ended for good")));
    EXPECT_THAT(OfTask(every + "UntilTime=" + at(3, 15) + "\nRepeatOnMon=1\nLastRunTime=" + at(3, 9)),
                IsEmpty());
    EXPECT_THAT(OfTask("LastRunTime=" + at(4, 9)), ElementsAre(HasSubstr("future (2024-06-04 09:00)")));
}

TEST_F(Check, TheListsOwnFaultsAreFoundAndNamed) {
    EXPECT_THAT(Messages("[SCVShchedulerTaskList]\nTaskCount=2\n" + std::string(kTask), shell, now),
                ElementsAre(HasSubstr("section is missing")));
    EXPECT_THAT(Messages("[SCVShchedulerTaskList]\nTaskCount=2147483647\n" + std::string(kTask), shell, now),
                ElementsAre(HasSubstr("up to SCVShchedulerTask2147483647 are missing")));
    EXPECT_THAT(Messages("[SCVShchedulerTaskList]\nTaskCount=2\n" + std::string(kTask) +
                             "[SCVShchedulerTask2]\nCommandLine='\"c:\\A.scvpr\"'\n",
                         shell, now),
                ElementsAre(HasSubstr("listed twice, first in SCVShchedulerTask1")));
    EXPECT_EQ(FindingsAsText(
                  kList, {{L"C:\\a.scvpr", L"SCVShchedulerTask1", "m"}, {L"", L"SCVShchedulerTask2", "n"}}),
              "C:\\a.scvpr [SCVShchedulerTask1]: m\nC:\\l.ini [SCVShchedulerTask2]: n\n");
}

#ifndef _WIN32
TEST_F(Check, ATimeOfDayInAClockChangeIsFound) {
    const CLocalZone zone("Europe/Berlin");
    const std::int64_t from = FromLocalTime(2026, 1, 5, 0, 0, 0);
    const auto ofStart = [&](int hour, int minute, const std::string& keys) {
        return Messages(
            "[SCVShchedulerTaskList]\nTaskCount=1\n[SCVShchedulerTask1]\nCommandLine='\"C:\\a.scvpr\"'\n"
            "LastRunTime=1\nStartTime=" +
                std::to_string(FromLocalTime(2026, 1, 4, hour, minute, 0)) + "\n" + keys,
            shell, from);
    };
    EXPECT_THAT(ofStart(2, 30, "RepeatOnSun=1\n"),
                ElementsAre(HasSubstr("02:30 is skipped in the clock change of 2026-03-29"),
                            HasSubstr("02:30 comes twice in the clock change of 2026-10-25")));
    EXPECT_THAT(ofStart(2, 30, "RepeatOnMon=1\n"), IsEmpty());
    EXPECT_THAT(ofStart(3, 0, "RepeatOnSun=1\n"), IsEmpty());
    EXPECT_THAT(ofStart(1, 59, "RepeatOnSun=1\n"), IsEmpty());
    EXPECT_THAT(ofStart(2, 30, "RepeatOnMonthly=1\n"), IsEmpty())
        << "neither change is on the first of a month";
    EXPECT_THAT(ofStart(2, 30, "RepeatOnSun=1\nEnableEvery=1\nEveryValue=1\n"), IsEmpty())
        << "begins at midnight";
}
#endif

}  // namespace
