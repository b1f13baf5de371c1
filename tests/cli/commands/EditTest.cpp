#include "cli/commands/Edit.h"

#include <gmock/gmock.h>

#include "cli/report/Refusal.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "core/task/TaskDays.h"
#include "tests/cli/ConsoleRun.h"
#include "util/Utf8.h"

namespace {

using testing::HasSubstr;

class Edit : public ConsoleRun {
protected:
    const CSCVShchedulerTask& Find(const std::wstring& project) {
        EXPECT_EQ(tasks.Load(files, kList), 1);
        return *tasks[tasks.FindTask(project)];
    }
    // Whether it is enabled, its start and how it repeats.
    std::string Rule(const std::wstring& project) {
        const CSCVShchedulerTask& task = Find(project);
        std::string rule = Join(std::to_string(task.m_bEnable), " ", FormatMinute(task.m_tStartTime), " | ");
        for (const TaskDay& day : kTaskDays) {
            rule += task.*day.flag != 0 ? Join(day.name, " ") : "";
        }
        rule += task.m_bRepeatOnMonthly != 0 ? "monthly " : "";
        rule += task.m_bEnableEvery != 0 ? "every " : "";
        return Join(rule, std::to_string(task.m_nEveryValue), task.m_nEveryUnit == 1 ? "h" : "m", " until ",
                    FormatMinute(task.m_tUntilTime).substr(11));
    }

    CSCVShchedulerTaskArray tasks;
    const std::wstring a = L"C:\\w\\a.scvpr";
    const std::wstring b = L"C:\\w\\b.oslpr";
};

TEST_F(Edit, OptionsBecomeCommands) {
    const struct {
        const char* add;
        const char* set;  // empty: none
        const char* commands;
    } table[] = {
        {"", "", " -dt -dr -s -qe -ex"},
        {" --reset-urls --delete-urls --delete-results --add-urls C:\\\xC3\xA4.csv --generate-urls C:\\s.js"
         " --import-values C:\\v.csv --element-name q --element-id i --start-project --restart-project"
         " --apply-filter --export-results --export-failed-urls C:\\f.htm --exit",
         "",
         " -rt -dt -dr -at\"C:\\\xC3\xA4.csv\" -gt\"C:\\s.js\" -aiv\"q,i,C:\\v.csv\" -s -rs -fr -qe"
         " -eft\"C:\\f.htm\" -ex"},
        {" --export-file o.csv", " --no-export-file", " -qe"},
        {" --export-file o.csv --exit", " --no-export-results", " -ex"},
        {" --import-values v.csv --element-id i", " --element-name q", " -aiv\"q,i,C:\\w\\v.csv\""},
        {" --import-values v.csv --element-id i --exit", " --no-import-values", " -ex"},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(std::string(row.add) + row.set);
        files.Put(kList, "");
        EXPECT_EQ(Run(std::string("add a.scvpr") + row.add), kFine) << err.str();
        EXPECT_TRUE(*row.set == '\0' || Run(std::string("set A.SCVPR") + row.set) == kFine) << err.str();
        EXPECT_EQ(ToUtf8(Find(a).BuildCommandLine().substr(a.size() + 2)), row.commands);
    }
}

TEST_F(Edit, OptionsSetTimesAndRepeats) {
    const std::string fresh = "1 2024-06-03 10:05 | 1h until 23:59";
    EXPECT_EQ(Run("add b.oslpr"), kFine);
    EXPECT_EQ(Rule(b), fresh);
    const std::pair<const char*, const char*> table[] = {
        {"add a.scvpr --disabled --start 2026-11-23T08:00 --days Mon,wed --every 2h --until 18:05",
         "0 2026-11-23 08:00 | Mon Wen every 2h until 18:05"},
        {"set a.scvpr --no-days --every 45m --monthly", "0 2026-11-23 08:00 | monthly every 45m until 18:05"},
        {"set a.scvpr --no-every --no-monthly --days sun", "0 2026-11-23 08:00 | Sun 45m until 18:05"},
    };
    for (const auto& [line, rule] : table) {
        EXPECT_EQ(Run(line), kFine) << err.str();
        EXPECT_EQ(Rule(a), rule) << line;
    }
    EXPECT_EQ(Rule(b), fresh) << "what is not named stays";
    EXPECT_EQ(Run("set a.scvpr --every 45m --until 18:05"), kFine);
    clock.now += kSecondsPerDay;
    EXPECT_EQ(Run("set a.scvpr --every 45m --until 18:05"), kFine);
    EXPECT_EQ(out.str(), "unchanged  C:\\w\\a.scvpr\n") << "the date of the until time does not count";
}

TEST_F(Edit, ChangesAreReported) {
    const struct {
        const char* line;
        int exitCode;
        const char* message;
    } table[] = {
        {"add a.scvpr b.oslpr", kFine,
         "added  C:\\w\\a.scvpr  once, on 3 Jun 2024 at 10:05\nadded  C:\\w\\b.oslpr  once, on 3 Jun 2024 at "
         "10:05\n"},
        {"disable a.scvpr", kFine, "disabled  C:\\w\\a.scvpr\n"},
        {"disable a.scvpr b.oslpr", kFine, "disabled  C:\\w\\b.oslpr\nunchanged  C:\\w\\a.scvpr\n"},
        {"enable B.oslpr", kFine, "enabled  C:\\w\\b.oslpr\n"},
        {"set b.oslpr --monthly", kFine,
         "set  C:\\w\\b.oslpr  first on 3 Jun 2024 at 10:05, then on day 1 of each month at 10:05\n"},
        {"run *", kFine,  // disabled or not
         "2024-06-03 10:00:00  C:\\w\\a.scvpr  Success\n2024-06-03 10:00:00  C:\\w\\b.oslpr  Success\n"},
        {"remove a.scvpr A.scvpr", kFine, "removed  C:\\w\\a.scvpr\n"},
        {"set b.oslpr --every 1h --until 9:00", kUsage, ""},
    };
    for (const auto& row : table) {
        EXPECT_EQ(Run(row.line), row.exitCode) << row.line << err.str();
        EXPECT_EQ(out.str(), row.message) << row.line;
    }
    EXPECT_EQ(shell.starts.size(), 2U);

    shell.missing.insert(b);
    EXPECT_EQ(Run("check"), kFindings);
    EXPECT_EQ(out.str(), "C:\\w\\b.oslpr [SCVShchedulerTask1]: the project file does not exist\n");
    EXPECT_EQ(Run("run b.oslpr"), kFindings);
    EXPECT_EQ(Find(b).m_tLastRunTime, clock.now) << "saved";
    EXPECT_EQ(Run("set b.oslpr --reset-last-run"), kFine);
    EXPECT_EQ(Find(b).m_tLastRunTime, 0);
}

TEST_F(Edit, RemovesEveryTaskOfAProject) {
    files.Put(kList,
              "[SCVShchedulerTaskList]\nTaskCount=3\n"
              "[SCVShchedulerTask1]\nCommandLine='\"C:\\w\\a.scvpr\"'\n"
              "[SCVShchedulerTask2]\nCommandLine='\"C:\\w\\b.oslpr\"'\n"
              "[SCVShchedulerTask3]\nCommandLine='\"C:\\w\\A.scvpr\"'\n");
    EXPECT_EQ(Run("remove a.scvpr"), kFine) << err.str();
    EXPECT_EQ(Find(b).m_strIniSection, L"SCVShchedulerTask1");
    EXPECT_EQ(tasks.GetSize(), 1);
}

TEST_F(Edit, RefusalsNameTheFaultAndChangeNothing) {
    ASSERT_EQ(Run("add a.scvpr b.scvpr"), kFine);
    const std::string before = files.Bytes(kList);
    const std::pair<const char*, const char*> table[] = {
        {"add c.scvpr A.scvpr", "C:\\w\\A.scvpr is in the list already"},
        {"add c.scvpr c.scvpr", "in the list already"},
        {"add c.txt", "c.txt ends in neither"},
        {"add it's.scvpr", "apostrophe"},
        {"add c.scvpr --add-urls a\"b.csv", "cannot keep add-urls 'C:\\w\\a\"b.csv'"},
        {"add c.scvpr --import-values v.csv", "--import-values needs"},
        {"add c.scvpr --element-name q", "--element-name and --element-id need"},
        {"set a.scvpr none.scvpr --exit", "no task of the list has the project C:\\w\\none.scvpr"},
        {"set b.scvpr a.scvpr --exit --until 18:00", "--until needs"},
        {"run a.scvpr none.scvpr", "none.scvpr"},
        {"enable *.oslpr", "no project of the list matches *.oslpr"},
        {"add *.scvpr", "no file matches C:\\w\\*.scvpr"},
    };
    for (const auto& [line, message] : table) {
        EXPECT_EQ(Run(line), kUsage) << line;
        EXPECT_THAT(err.str(), HasSubstr(message)) << line;
        EXPECT_EQ(files.Bytes(kList), before) << line;
    }
}

TEST_F(Edit, AddWarnsOfMissingProjects) {
    found[L"C:\\w\\*.scvpr"] = {a, L"C:\\w\\c.scvpr"};
    shell.missing.insert(b);
    EXPECT_EQ(Run("add *.scvpr b.oslpr --dry-run"), kFine) << err.str();
    EXPECT_FALSE(files.Has(kList));
    EXPECT_EQ(Run("add *.scvpr b.oslpr"), kFine) << err.str();
    EXPECT_EQ(out.str(),
              "added  C:\\w\\a.scvpr  once, on 3 Jun 2024 at 10:05\nadded  C:\\w\\c.scvpr  once, on 3 Jun "
              "2024 at 10:05\nadded  C:\\w\\b.oslpr  once, on 3 Jun 2024 at 10:05\n");
    EXPECT_EQ(err.str(), "scvsched: warning: C:\\w\\b.oslpr does not exist; the task fails until it does\n");
}

TEST_F(Edit, SurprisingSchedulesAreWarnedOf) {
    const std::string start = "scvsched: warning: C:\\w\\a.scvpr: ";
    const std::pair<const char*, std::string> table[] = {
        {"add a.scvpr --start 2024-06-03T12:00 --every 1h --until 18:00",
         start + "ends for good on 2024-06-03 with the run of 18:00\n"},
        {"set a.scvpr --no-exit", ""},  // the schedule is what it was
        {"set a.scvpr --days mon,tue --dry-run", start + "with days ticked, Every begins at 00:00\n"},
    };
    for (const auto& [line, warning] : table) {
        EXPECT_EQ(Run(line), kFine) << line;
        EXPECT_EQ(err.str(), warning) << line;
    }
}

TEST_F(Edit, DryRunsIgnoreClaimsAndChangeNothing) {
    ASSERT_EQ(Run("add a.scvpr"), kFine);
    const std::string before = files.Bytes(kList);
    const auto window = Lock(L".window");
    const auto claim = Lock(L".launch");
    in.str(R"({"tasks": [{"project": "C:\\i.scvpr"}]})");
    for (const char* line : {"add c.scvpr", "set a.scvpr --monthly", "disable a.scvpr", "remove a.scvpr",
                             "run a.scvpr", "import"}) {
        EXPECT_EQ(Run(std::string(line) + " --dry-run"), kFine) << line << err.str();
        EXPECT_THAT(out.str(), testing::StartsWith("would be ")) << line;
        EXPECT_EQ(files.Bytes(kList), before) << line;
    }
    EXPECT_TRUE(shell.starts.empty());
}

TEST_F(Edit, OnlyAddAndImportCreateAList) {
    in.str("{\"tasks\": []}");
    for (const char* line : {"set a.scvpr --exit", "enable a.scvpr", "disable a.scvpr", "remove a.scvpr",
                             "run a.scvpr", "export e.json"}) {
        EXPECT_EQ(Run(line), kNoList) << line;
        EXPECT_FALSE(files.Has(kList)) << line;
    }
    for (const char* line : {"add b.scvpr", "import"}) {
        files.Remove(kList);
        EXPECT_EQ(Run(line), kFine) << line;
        EXPECT_TRUE(files.Has(kList)) << line;
    }
}

TEST_F(Edit, ListsInUseAreOnlyRead) {
    const std::pair<const wchar_t*, const char*> locks[] = {
        {L".window", "the window program keeps C:\\l.ini"},
        {L".watch", "another scvsched watches"},
        {L".launch", "another program launches or edits"}};
    const struct {
        const char* line;
        std::size_t respected;  // how many of the locks
    } table[] = {{"list", 0},
                 {"next", 0},
                 {"check", 0},
                 {"export", 0},
                 {"pass", 3},
                 {"watch", 2},
                 {"run a.scvpr", 3},
                 {"add b.scvpr", 3},
                 {"set a.scvpr --no-exit", 3},
                 {"enable a.scvpr", 3},
                 {"disable a.scvpr", 3},
                 {"remove a.scvpr", 3},
                 {"import", 3}};
    ASSERT_EQ(Run("add a.scvpr"), kFine);
    const std::string before = files.Bytes(kList);
    for (const auto& row : table) {
        for (std::size_t i = 0; i < std::size(locks); ++i) {
            const auto lock = Lock(locks[i].first);
            in.clear();
            in.str("{\"tasks\": []}");
            ticks = 1;
            const bool isRefused = i < row.respected;
            EXPECT_EQ(Run(row.line), isRefused ? kFindings : kFine) << row.line;
            EXPECT_THAT(err.str(), HasSubstr(isRefused ? locks[i].second : "")) << row.line;
            EXPECT_EQ(files.Bytes(kList), before) << row.line;
        }
    }
    EXPECT_TRUE(shell.starts.empty());
}

TEST_F(Edit, RunHasTheClaimWhileItLaunches) {
    ASSERT_EQ(Run("add a.scvpr"), kFine);
    bool isTaken = false;
    shell.whileOpening = [&] {
        std::unique_ptr<IFileSystem::IFile> lock;
        isTaken = files.CreateLock(kList + L".launch", lock) == FileResult::Status::Busy;
    };
    EXPECT_EQ(Run("run a.scvpr"), kFine) << err.str();
    EXPECT_TRUE(isTaken);
}

TEST_F(Edit, FilesThatAreNoListAreNotWritten) {
    const std::string letter = "Dear Ada,\r\n[greetings]\r\nfrom=Eve\r\n";
    in.str(R"({"tasks": [{"project": "C:\\i.scvpr"}]})");
    for (const char* line : {"add a.scvpr", "import", "pass"}) {
        files.Put(kList, letter);
        EXPECT_EQ(Run(line), kUsage) << line;
        EXPECT_EQ(files.Bytes(kList), letter) << line;
    }
    EXPECT_EQ(Run("list"), kFine);
    EXPECT_EQ(err.str(), "scvsched: warning: C:\\l.ini has a text that is no task list\n");
    files.Put(kList, "");
    EXPECT_EQ(Run("add a.scvpr"), kFine) << "an empty file is an empty list";
}

TEST_F(Edit, UnwritableListsAreExportedAndNotChanged) {
    ASSERT_EQ(Run("add a.scvpr"), kFine);
    const std::string before = files.Bytes(kList);
    for (const char* line :
         {"add b.scvpr", "set a.scvpr --no-exit", "disable a.scvpr", "remove a.scvpr", "run a.scvpr"}) {
        files.FailCalls(files.Calls() + 6, CFakeFileSystem::kForever);  // those before the lock
        EXPECT_EQ(Run(line), kFindings) << line;
        EXPECT_THAT(err.str(), HasSubstr("could not be saved: Access denied: C:\\l.ini.lock\n")) << line;
        files.FailCalls(CFakeFileSystem::kForever, CFakeFileSystem::kForever);
        EXPECT_EQ(files.Bytes(kList), before) << line;
    }
    EXPECT_TRUE(shell.starts.empty()) << "nothing is launched from a list that cannot be locked";
    files.SetCapacity(0);
    EXPECT_EQ(Run("run a.scvpr"), kFindings);
    EXPECT_THAT(err.str(), HasSubstr("could not be saved"));
    EXPECT_THAT(out.str(), HasSubstr("Success")) << "it was launched all the same";
    files.SetReadOnly(kList);
    EXPECT_EQ(Run("disable a.scvpr"), kFindings);
    EXPECT_THAT(err.str(), HasSubstr("is read-only"));
    EXPECT_EQ(Run("export"), kFine) << err.str();
}

}  // namespace
