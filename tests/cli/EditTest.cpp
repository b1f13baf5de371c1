#include "cli/Edit.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/ExitCode.h"
#include "cli/TaskDays.h"
#include "cli/TimeText.h"
#include "core/SCVShchedulerTaskArray.h"
#include "tests/cli/ConsoleRun.h"
#include "util/Utf8.h"

namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

class Edit : public ConsoleRun {
protected:
    // What the list makes of the task now: its command line without the project.
    std::string Commands(const std::wstring& project) {
        const CSCVShchedulerTask& task = Find(project);
        return ToUtf8(task.BuildCommandLine().substr(project.size() + 2));
    }
    const CSCVShchedulerTask& Find(const std::wstring& project) {
        EXPECT_EQ(tasks.Load(files, kList), 1);
        return *tasks[tasks.FindTask(project)];
    }

    // Whether it is enabled, its start and how it repeats.
    std::string Rule(const std::wstring& project) {
        const CSCVShchedulerTask& task = Find(project);
        std::string rule = std::to_string(task.m_bEnable) + " " + FormatMinute(task.m_tStartTime) + " | ";
        for (const TaskDay& day : kTaskDays) {
            rule += task.*day.flag != 0 ? std::string(day.name) + " " : "";
        }
        rule += task.m_bRepeatOnMonthly != 0 ? "monthly " : "";
        rule += task.m_bEnableEvery != 0 ? "every " : "";
        return rule + std::to_string(task.m_nEveryValue) + (task.m_nEveryUnit == 1 ? "h" : "m") + " until " +
               FormatMinute(task.m_tUntilTime).substr(11);
    }

    CSCVShchedulerTaskArray tasks;
    const std::wstring a = L"C:\\w\\a.scvpr";
};

TEST_F(Edit, OptionsBecomeCommands) {
    const struct {
        Words add;
        Words set;  // empty: none
        const char* commands;
    } table[] = {
        {{}, {}, " -dt -dr -s -qe -ex"},
        {{"--no-exit", "--monthly"}, {}, " -dt -dr -s -qe"},
        {{"--restart-project"}, {}, " -rs"},
        {{"--reset-urls",
          "--delete-urls",
          "--delete-results",
          "--add-urls",
          "C:\\u \xC3\xA4.csv",
          "--generate-urls",
          "C:\\s.js",
          "--import-values",
          "C:\\v.csv",
          "--element-name",
          "q",
          "--element-id",
          "i",
          "--start-project",
          "--restart-project",
          "--apply-filter",
          "--export-results",
          "--export-failed-urls",
          "C:\\f.htm",
          "--exit"},
         {},
         " -rt -dt -dr -at\"C:\\u \xC3\xA4.csv\" -gt\"C:\\s.js\" -aiv\"q,i,C:\\v.csv\" -s -rs -fr -qe "
         "-eft\"C:\\f.htm\" "
         "-ex"},
        {{"--export-file", "o.csv"}, {}, " -qe\"C:\\w\\o.csv\""},
        {{"--export-file", "o.csv"}, {"--no-export-file"}, " -qe"},
        {{"--export-file", "o.csv", "--exit"}, {"--no-export-results"}, " -ex"},
        {{"--export-file", "o.csv"}, {"--export-results"}, " -qe\"C:\\w\\o.csv\""},
        {{"--add-urls", "u.csv", "--exit"}, {"--no-add-urls", "--start-project"}, " -s -ex"},
        {{"--import-values", "v.csv", "--element-id", "i"},
         {"--element-name", "q"},
         " -aiv\"q,i,C:\\w\\v.csv\""},
        {{"--import-values", "v.csv", "--element-id", "i", "--exit"}, {"--no-import-values"}, " -ex"},
    };
    for (const auto& row : table) {
        files.Put(kList, "");
        Words words = {"add", "a.scvpr"};
        words.insert(words.end(), row.add.begin(), row.add.end());
        EXPECT_EQ(Run(words), kFine) << err.str();
        if (!row.set.empty()) {
            words = {"set", "A.SCVPR"};
            words.insert(words.end(), row.set.begin(), row.set.end());
            EXPECT_EQ(Run(words), kFine) << err.str();
        }
        EXPECT_EQ(Commands(a), row.commands) << testing::PrintToString(row.add);
    }
}

TEST_F(Edit, OptionsBecomeTimesAndRepeats) {
    EXPECT_EQ(Run({"add", "b.oslpr"}), kFine);
    EXPECT_EQ(Rule(L"C:\\w\\b.oslpr"), "1 2024-06-03 10:05 | 1h until 23:59");
    const struct {
        Words words;
        const char* rule;
    } table[] = {
        {{"add", "--disabled", "--start", "2026-11-23T08:00", "--days", "Mon,wed", "--every", "2h", "--until",
          "18:05"},
         "0 2026-11-23 08:00 | Mon Wen every 2h until 18:05"},
        {{"set", "--no-days", "--every", "45m", "--monthly"},
         "0 2026-11-23 08:00 | monthly every 45m until 18:05"},
        {{"set", "--no-every", "--no-monthly", "--days", "sun"}, "0 2026-11-23 08:00 | Sun 45m until 18:05"},
    };
    for (const auto& row : table) {
        Words words = row.words;
        words.insert(words.begin() + 1, "a.scvpr");
        EXPECT_EQ(Run(words), kFine) << err.str();
        EXPECT_EQ(Rule(a), row.rule);
    }
    EXPECT_EQ(Rule(L"C:\\w\\b.oslpr"), "1 2024-06-03 10:05 | 1h until 23:59") << "what is not named stays";
}

TEST_F(Edit, SwitchingRemovingAndRunningTellWhatChanged) {
    ASSERT_EQ(Run({"add", "a.scvpr", "b.scvpr", "c.scvpr"}), kFine);
    const struct {
        Words words;
        int exitCode;
        const char* told;
    } table[] = {
        {{"disable", "a.scvpr", "c.scvpr"}, kFine, "disabled  C:\\w\\a.scvpr\ndisabled  C:\\w\\c.scvpr\n"},
        {{"disable", "a.scvpr", "b.scvpr"}, kFine, "disabled  C:\\w\\b.scvpr\n"},
        {{"enable", "B.scvpr"}, kFine, "enabled  C:\\w\\b.scvpr\n"},
        {{"set", "b.scvpr", "--monthly"}, kFine, "set  C:\\w\\b.scvpr\n"},
        {{"set", "b.scvpr", "--monthly"}, kFine, ""},
        {{"run", "a.scvpr"}, kFine, "2024-06-03 10:00:00  C:\\w\\a.scvpr  Success\n"},
        {{"remove", "a.scvpr", "A.scvpr"}, kFine, "removed  C:\\w\\a.scvpr\n"},
        {{"list"}, kFine, nullptr},
    };
    for (const auto& row : table) {
        EXPECT_EQ(Run(row.words), row.exitCode) << err.str();
        if (row.told != nullptr) {
            EXPECT_EQ(out.str(), row.told);
        }
    }
    EXPECT_EQ(shell.starts.size(), 1U) << "a disabled task runs when it is told to";
    ASSERT_EQ(tasks.Load(files, kList), 1);
    ASSERT_EQ(tasks.GetSize(), 2);
    EXPECT_EQ(tasks[0]->m_bEnable * 10 + tasks[1]->m_bEnable, 10);

    shell.missing.insert(L"C:\\w\\b.scvpr");
    EXPECT_EQ(Run({"run", "b.scvpr", "--json"}), kFindings);
    const auto json = nlohmann::json::parse(out.str());
    EXPECT_EQ(json["changes"][0]["change"], "run");
    EXPECT_EQ(json["changes"][0]["task"]["lastRunResult"], "Failure: File does not exist");
    EXPECT_EQ(json["changes"][0]["task"]["section"], "SCVShchedulerTask1");
    EXPECT_EQ(Find(L"C:\\w\\b.scvpr").m_tLastRunTime, clock.now) << "saved";
    EXPECT_EQ(Run({"set", "b.scvpr", "--reset-last-run"}), kFine);
    EXPECT_EQ(Find(L"C:\\w\\b.scvpr").m_tLastRunTime, 0);
    EXPECT_EQ(Run({"remove", "b.scvpr", "--json"}), kFine);
    EXPECT_EQ(nlohmann::json::parse(out.str())["changes"][0]["task"]["project"], "C:\\w\\b.scvpr");
}

TEST_F(Edit, WhatIsRefusedNamesTheFaultAndChangesNothing) {
    ASSERT_EQ(Run({"add", "a.scvpr", "b.scvpr"}), kFine);
    const std::string before = files.Bytes(kList);
    const std::string longName(1000, 'x');
    const struct {
        Words words;
        const char* told;
    } table[] = {
        {{"add", "c.scvpr", "A.scvpr"}, "C:\\w\\A.scvpr is in the list already"},
        {{"add", "c.scvpr", "c.scvpr"}, "in the list already"},
        {{"add", "c.txt"}, "c.txt ends in neither"},
        {{"add", "it's.scvpr"}, "apostrophe"},
        {{"add", "c.scvpr", "--add-urls", "it's.csv"}, "apostrophe"},
        {{"add", "c.scvpr", "--add-urls", "a\"b.csv"}, "cannot keep add-urls 'C:\\w\\a\"b.csv'"},
        {{"add", "c.scvpr", "--add-urls", "a\nb.csv"}, "control character"},
        {{"add", "c.scvpr", "--add-urls", longName}, "of which the list keeps 1023"},
        {{"add", "c.scvpr", "--until", "18:00"}, "--until goes with"},
        {{"add", "c.scvpr", "--import-values", "v.csv"}, "--import-values wants"},
        {{"add", "c.scvpr", "--import-values", "v.csv", "--element-name", "p,q"}, "cannot keep"},
        {{"add", "c.scvpr", "--element-name", "q"}, "--element-name and --element-id go with"},
        {{"set", "a.scvpr", "none.scvpr", "--exit"}, "no task of the list has the project C:\\w\\none.scvpr"},
        {{"set", "b.scvpr", "a.scvpr", "--exit", "--until", "18:00"}, "--until goes with"},
        {{"enable", "none.scvpr"}, "none.scvpr"},
        {{"disable", "a.scvpr", "none.scvpr"}, "none.scvpr"},
        {{"remove", "a.scvpr", "none.scvpr"}, "none.scvpr"},
        {{"run", "none.scvpr"}, "none.scvpr"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(Run(row.words), kUsage) << testing::PrintToString(row.words);
        EXPECT_THAT(err.str(), HasSubstr(row.told));
        EXPECT_EQ(err.str().find('\n'), err.str().size() - 1) << err.str();
        EXPECT_EQ(out.str(), "");
        EXPECT_EQ(files.Bytes(kList), before) << testing::PrintToString(row.words);
    }
}

TEST_F(Edit, NothingChangesWhileTheTasksAreInUseOrTheListIsNotToBeHad) {
    in.str("{\"tasks\": []}");
    const Words commands[] = {
        {"add", "b.scvpr"},    {"set", "a.scvpr", "--exit"}, {"enable", "a.scvpr"}, {"disable", "a.scvpr"},
        {"remove", "a.scvpr"}, {"run", "a.scvpr"},           {"export", "e.json"},  {"import"}};
    for (const Words& words : commands) {
        files.Remove(kList);
        const bool makesAList = words[0] == "add" || words[0] == "import";
        EXPECT_EQ(Run(words), makesAList ? kFine : kNoList) << words[0];
        EXPECT_EQ(files.Has(kList), makesAList) << words[0];

        ASSERT_EQ((files.Remove(kList), Run({"add", "a.scvpr"})), kFine);
        const std::string before = files.Bytes(kList);
        whyNot = "the window program runs";
        in.seekg(0);
        EXPECT_EQ(Run(words), kFindings) << words[0];
        EXPECT_EQ(err.str(), "scvsched: the window program runs\n");
        EXPECT_EQ(in.rdbuf()->in_avail() > 0, words[0] != "import") << "read before anything is claimed";
        whyNot.clear();
        files.FailCalls(files.Calls() + 3, CFakeFileSystem::kForever);  // not IsReadOnly and the first read
        if (words[0] != "export" && words[0] != "import") {
            EXPECT_EQ(Run(words), kFindings) << words[0];
            EXPECT_THAT(err.str(), HasSubstr("could not be saved"));
        }
        files.FailCalls(CFakeFileSystem::kForever, CFakeFileSystem::kForever);
        EXPECT_EQ(files.Bytes(kList), before) << words[0];
        EXPECT_FALSE(files.Has(L"C:\\w\\e.json"));
    }
    EXPECT_TRUE(shell.starts.empty()) << "nothing is launched from a list that cannot be locked";
    files.SetCapacity(0);
    EXPECT_EQ(Run({"run", "a.scvpr"}), kFindings);
    EXPECT_THAT(err.str(), HasSubstr("could not be saved"));
    EXPECT_THAT(out.str(), HasSubstr("Success")) << "it was launched all the same";
    files.SetReadOnly(kList);
    EXPECT_EQ(Run({"run", "a.scvpr"}), kFindings);
    EXPECT_THAT(err.str(), HasSubstr("read-only"));
    EXPECT_EQ(shell.starts.size(), 1U) << "no run that could not be recorded";
}

}  // namespace
