#include "cli/commands/Exchange.h"

#include <gmock/gmock.h>

#include "cli/report/Refusal.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/cli/ConsoleRun.h"

namespace {

using testing::HasSubstr;

class Exchange : public ConsoleRun {
protected:
    int Import(const std::string& text) {
        in.clear();
        in.str(text);
        return Run("import");
    }
};

TEST_F(Exchange, ExportsAreImportedUnchanged) {
    // Everything that a list may hold, as an older program or a hand has left it.
    files.Put(
        kList,
        "[SCVShchedulerTaskList]\nTaskCount=4\n"
        "[SCVShchedulerTask1]\nEnable=0\n"
        "CommandLine='\"C:\\it''s.scvpr\" -rt -dt -dr -at\"C:\\u.csv\" -gt\"C:\\s.js\" -aiv\"q,i,C:\\v.csv\" "
        "-s -rs -ddr -fr\"f 1\" -qe\"C:\\o.csv\" -eft\"C:\\f.htm\" -ex'\n"
        "StartTime=1711850400\nUntilTime=1711900000\nLastRunTime=1711850401\nRepeatOnMon=1\nRepeatOnTue=1\n"
        "RepeatOnWen=1\nRepeatOnThu=1\nRepeatOnFri=1\nRepeatOnSat=1\nRepeatOnSun=1\nRepeatOnMonthly=1\n"
        "EnableEvery=0\nEveryValue=-7\nEveryUnit=0\nLastRunResult='Failure to run ''C:\\x.exe'''\n"
        "[SCVShchedulerTask2]\nCommandLine=\"C:\\b.scvpr\" -at -fr\nStartTime=4294967295\nLastRunResult=it's "
        "'''odd'\n"
        "[SCVShchedulerTask4]\nCommandLine='\"C:\\c.oslpr\" -qe "
        "-aiv\"q,,C:\\v.csv\"'\nEveryValue=1\nEveryUnit=1\n");
    ASSERT_EQ(Run("export"), kFine) << err.str();
    const std::string text = out.str();
    for (const char* field : {R"("project": "C:\\it's.scvpr")", "\"ddr\": true", "\"apply-filter\": \"f 1\"",
                              "\"Wen\"", "\"startTime\": 2147483647", "\"export-results\": \"C:\\\\o.csv\"",
                              "\"lastRunTime\": 1711850401"}) {
        EXPECT_THAT(text, HasSubstr(field));
    }

    files.Remove(kList);
    EXPECT_EQ(Import(text), kFine) << err.str();
    ASSERT_EQ(Run("export e.json"), kFine) << err.str();
    EXPECT_EQ(files.Bytes(L"C:\\w\\e.json"), text);
    EXPECT_EQ(Run("set C:\\it''s.scvpr --no-monthly"), kFine) << "what add would refuse stays as it is";
    EXPECT_EQ(Run("export c:\\L.INI"), kUsage) << "the task list itself";
}

TEST_F(Exchange, AListedProjectIsReplacedOnlyWhenAsked) {
    ASSERT_EQ(Run("add C:\\a.scvpr C:\\b.scvpr"), kFine);
    const std::string before = files.Bytes(kList);
    const std::string text = R"({"tasks": [{"project": "C:\\c.scvpr", "startTime": "2026-11-23T08:00"},
                                           {"project": "c:\\A.scvpr", "commands": {}}]})";
    EXPECT_EQ(Import(text), kUsage);
    EXPECT_THAT(err.str(), HasSubstr("tasks[1]: the project c:\\A.scvpr is in the list already"));
    EXPECT_EQ(files.Bytes(kList), before);

    std::string wide = "\xFF\xFE";
    for (const char c : text) {
        wide += {c, '\0'};
    }
    for (const std::string& encoded : {text, "\xEF\xBB\xBF" + text, wide}) {
        files.Put(kList, before);
        files.Put(L"C:\\w\\in.json", encoded);
        EXPECT_EQ(Run("import in.json --replace"), kFine) << err.str();
        EXPECT_EQ(out.str(),
                  "added  C:\\c.scvpr  once, on 23 Nov 2026 at 08:00\nreplaced  c:\\A.scvpr  once, on 3 Jun "
                  "2024 at 10:05\n");
    }
    CSCVShchedulerTaskArray tasks;
    ASSERT_EQ(tasks.Load(files, kList), 1);
    EXPECT_EQ(tasks[0]->BuildCommandLine(), L"\"c:\\A.scvpr\"") << "in its place, without what it had";
    EXPECT_EQ(tasks[2]->BuildCommandLine(), L"\"C:\\c.scvpr\" -dt -dr -s -qe -ex") << "as add makes it";
    EXPECT_EQ(tasks[2]->m_tStartTime, FromLocalTime(2026, 11, 23, 8, 0, 0));
}

// A list of which the second task has these fields.
std::string WithFields(const std::string& fields) {
    return R"({"tasks": [{"project": "C:\\a.scvpr"}, {"project": "C:\\b.scvpr", )" + fields + "}]}";
}

const struct {
    const char* label;
    std::string text;
    const char* message;
} kRefusedTexts[] = {
    {"empty", "", "not JSON: parse error at line 1"},
    {"lone surrogate in UTF-16", std::string("\xFF\xFE\x00\xD8", 4), "half of a surrogate pair"},
    {"array", "[]", "the text has to be an object"},
    {"unknown key of the list", R"({"tasks": [], "more": 1})", "unknown key 'more'"},
    {"version", R"({"tasks": [], "version": 2})", "later version"},
    {"type of the project", R"({"tasks": [{"project": 5}]})", "tasks[0].project has to be a text"},
    {"relative project", R"({"tasks": [{"project": "a.scvpr"}]})",
     "tasks[0].project: 'a.scvpr' is no full path"},
    {"doubled key", WithFields(R"("enabled": true, "enabled": false)"),
     "the key 'enabled' appears twice in tasks[1]"},
    {"doubled key of repeat", WithFields(R"("repeat": {"monthly": true, "monthly": true})"),
     "appears twice in tasks[1].repeat"},
    {"relative file", WithFields(R"("commands": {"add-urls": "u.csv"})"),
     "tasks[1].commands.add-urls: 'u.csv' is no full path"},
    {"every 0", WithFields(R"("repeat": {"every": {"value": 0}})"),
     "tasks[1].repeat.every.value has to be 1 or more"},
    {"two names for days", WithFields(R"("repeat": {"days": ["Mon"], "weekdays": ["tue"]})"),
     "weekdays differ"},
    {"case of a key", WithFields(R"("Enabled": true)"), "tasks[1] has the unknown key 'Enabled'"},
    {"type of a flag", WithFields(R"("enabled": 1)"), "tasks[1].enabled has to be true or false"},
    {"negative time", WithFields(R"("startTime": -1)"), "tasks[1].startTime has to be seconds"},
    {"time past 2038", WithFields(R"("startTime": 2147483648)"), "tasks[1].startTime"},
    {"date past 2038", WithFields(R"("startTime": "2038-01-20T00:00")"), "tasks[1].startTime"},
    {"time past 64 bits", WithFields(R"("untilTime": 99999999999999999999)"), "tasks[1].untilTime"},
    {"NUL in a text", WithFields(R"("lastRunResult": "a\u0000b")"), "control character"},
    {"unknown day", WithFields(R"("repeat": {"days": ["Mon", "Fun"]})"), "tasks[1].repeat.days has \"Fun\""},
    {"unknown unit", WithFields(R"("repeat": {"every": {"unit": "days"}})"),
     "every.unit has to be \"hours\" or \"minutes\""},
    {"values without an element", WithFields(R"("commands": {"import-values": "C:\\v.csv"})"),
     "import-values needs"},
};

TEST_F(Exchange, ErrorsNameTheirPlace) {
    for (const auto& row : kRefusedTexts) {
        EXPECT_EQ(Import(row.text), kUsage) << row.label;
        EXPECT_THAT(err.str(), HasSubstr(row.message)) << row.label;
        EXPECT_FALSE(files.Has(kList)) << row.label;
    }
    EXPECT_EQ(Run("import none.json"), kUsage);
    EXPECT_THAT(err.str(), HasSubstr("C:\\w\\none.json does not exist"));
}

}  // namespace
