#include "core/list/TaskListFile.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "core/list/PrivateProfile.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeFileSystem.h"

namespace {

using Status = IFileSystem::Status;

const std::wstring kPath = L"C:\\lists\\tasks.ini";

// A list on disk, with what the array makes of it.
struct List {
    explicit List(const std::string& bytes) { files.Put(kPath, bytes); }
    [[nodiscard]] const std::string& Bytes() const { return files.Bytes(kPath); }
    // The numbers of the tasks' sections.
    [[nodiscard]] std::wstring Sections() const {
        std::wstring numbers;
        for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
            numbers += L' ' + tasks[i]->m_strIniSection.substr(std::size("SCVShchedulerTask") - 1);
        }
        return numbers;
    }

    CFakeFileSystem files;
    CSCVShchedulerTaskArray tasks;
};

std::string Section(int number, const std::string& lines = "") {
    return "[SCVShchedulerTask" + std::to_string(number) + "]\r\nCommandLine='\"C:\\p" +
           std::to_string(number) + ".scvpr\"'\r\n" + lines;
}

std::string Count(const std::string& count) {
    return "[SCVShchedulerTaskList]\r\nTaskCount=" + count + "\r\n";
}

TEST(TaskListFile, WritesKeysInTheEstablishedOrder) {
    List list("; by hand\r\n\r\n[Other]\r\nKeep = me \r\n");
    list.tasks.AddTask(L"C:\\it's.scvpr", 0);
    CSCVShchedulerTask& task = *list.tasks[0];
    task.m_bDeleteUrls = task.m_bRepeatOnMon = task.m_bEnableEvery = 1;
    task.m_bRepeatOnWen = 5;
    task.m_nEveryValue = -30;
    task.m_nEveryUnit = 0;
    task.m_tStartTime = 4294967296 + 5;
    task.m_tUntilTime = -1;
    task.m_strLastRunResult = L"Failure to run 'C:\\x.exe'";
    EXPECT_EQ(list.tasks.Save(list.files, kPath), 1);
    EXPECT_EQ(
        list.Bytes(),
        "; by hand\r\n\r\n[Other]\r\nKeep = me \r\n"
        "[SCVShchedulerTaskList]\r\nTaskCount=1\r\n"
        "[SCVShchedulerTask1]\r\nEnable=1\r\nCommandLine='\"C:\\it''s.scvpr\" -dt'\r\nStartTime=5\r\n"
        "UntilTime=4294967295\r\nLastRunTime=0\r\nRepeatOnMon=1\r\nRepeatOnTue=0\r\nRepeatOnWen=5\r\n"
        "RepeatOnThu=0\r\nRepeatOnFri=0\r\nRepeatOnSat=0\r\nRepeatOnSun=0\r\nRepeatOnMonthly=0\r\n"
        "EnableEvery=1\r\nEveryValue=-30\r\nEveryUnit=0\r\nLastRunResult='Failure to run ''C:\\x.exe'''\r\n");
}

TEST(TaskListFile, WhatASectionMayHold) {
    const std::tuple<const char*, std::string, std::vector<std::int64_t>> cases[] = {
        {"nothing", "", {1, 0, 0, 0, 0}},  // enabled, start, until, every and its unit
        {"the first key counts", "enable=no\r\nEnable=1\r\n", {0, 0, 0, 0, 0}},
        {"beyond the buffer", "EveryValue=\"" + std::string(254, ' ') + "1\"\r\n", {1, 0, 0, 0, 0}},
        {"past 31 bits", "StartTime=4294967295\r\nUntilTime=-5\r\n", {1, 2147483647, -5, 0, 0}},
        {"text behind a number", "EveryValue= 42abc\r\nEveryUnit=+11\r\n", {1, 0, 0, 42, 11}},
        {"past 32 bits", "EveryValue=-2147483649\r\nEveryUnit=0x10\r\n", {1, 0, 0, INT32_MIN, 0}},
    };
    CFakeFileSystem files;
    CSCVShchedulerTask task(0);
    for (const auto& [label, lines, numbers] : cases) {
        files.Put(kPath, Section(1, lines));
        EXPECT_EQ(task.LoadFromIni(files, kPath, L"SCVShchedulerTask1"), 1) << label;
        EXPECT_EQ((std::vector<std::int64_t>{task.m_bEnable, task.m_tStartTime, task.m_tUntilTime,
                                             task.m_nEveryValue, task.m_nEveryUnit}),
                  numbers)
            << label;
    }
    files.Put(kPath,
              "[s]\nRepeatOnMon=1\nRepeatOnTue=2\nRepeatOnWen=3\nRepeatOnThu=4\nRepeatOnFri=5\n"
              "RepeatOnSat=6\nRepeatOnSun=-7\nRepeatOnMonthly=8\nEnableEvery=9\n");
    EXPECT_EQ(task.LoadFromIni(files, kPath, L"s"), 1);
    EXPECT_EQ((std::vector{task.m_bRepeatOnMon, task.m_bRepeatOnTue, task.m_bRepeatOnWen, task.m_bRepeatOnThu,
                           task.m_bRepeatOnFri, task.m_bRepeatOnSat, task.m_bRepeatOnSun,
                           task.m_bRepeatOnMonthly, task.m_bEnableEvery}),
              (std::vector{1, 2, 3, 4, 5, 6, -7, 8, 9}));
    files.Put(kPath,
              "[s]\nCommandLine=" + std::string(2000, 'x') + "\nLastRunResult=" + std::string(2000, 'x'));
    EXPECT_EQ(task.LoadFromIni(files, kPath, L"S"), 1);
    EXPECT_EQ(task.m_strProjectPath.size(), 1023U) << "texts are cut";
    EXPECT_EQ(task.m_strLastRunResult.size(), 1023U);
}

TEST(TaskListFile, LoadsSectionsUpToTheCount) {
    const std::tuple<const char*, std::string, const wchar_t*> cases[] = {
        {"any order, one twice", Count("3") + Section(3) + Section(1) + Section(1), L" 1 3"},
        {"without a project", Count("2") + Section(1) + "[SCVShchedulerTask2]\r\nEnable=1\r\n" + Section(3),
         L" 1"},
        {"the highest number", Count("2147483647") + Section(2147483647) + Section(0) + Section(7),
         L" 7 2147483647"},
        {"no count", Section(1), L""},
        {"any case",
         "[scvshchedulerTASKlist]\r\ntaskcount = \"2\" \r\n[SCVSHCHEDULERTASK2]\r\ncommandline=x\r\n", L" 2"},
        {"not as numbers are written",
         Count("99") + "[SCVShchedulerTask01]\nCommandLine=x\n[SCVShchedulerTask1x]\nCommandLine=x\n", L""},
    };
    for (const auto& [label, bytes, sections] : cases) {
        List list(bytes);
        list.tasks.AddTask(L"before", 0);
        EXPECT_EQ(list.tasks.Load(list.files, kPath), 1) << label;
        EXPECT_EQ(list.Sections(), sections) << label;
    }
}

TEST(TaskListFile, ForeignFilesAreRecognised) {
    const struct {
        const char* label;
        std::string bytes;
        bool isForeign;
    } cases[] = {
        {"empty", "", false},
        {"no tasks", Count("0"), false},
        {"other spelling", "[scvSHCHEDULERtasklist]", false},
        {"a text", "Dear reader,\r\n", true},
        {"tasks that nothing counts", Section(1), true},
    };
    for (const auto& c : cases) {
        List list(c.bytes);
        EXPECT_EQ(list.tasks.Load(list.files, kPath), 1) << c.label;
        EXPECT_EQ(list.tasks.IsForeign(), c.isForeign) << c.label;
    }
}

TEST(TaskListFile, ASaveRenumbersAndRemovesWhatIsStale) {
    List list("; mine\r\n" + Count("5") + Section(1) + Section(2) + Section(3) + "[Other]\r\nk=v\r\n" +
              Section(4) + Section(5) + Section(6));
    list.tasks.Load(list.files, kPath);
    for (const int index : {3, 1, 0}) {
        list.tasks.RemoveTaskAt(index);
    }
    list.files.SetReadOnly(kPath);
    list.tasks.Save(list.files, kPath);
    EXPECT_EQ(list.Sections(), L" 3 5") << "as in the file, or a run would be saved over another task";
    List saved(list.Bytes());
    list.tasks.Save(saved.files, kPath);
    EXPECT_EQ(saved.files.Replacements(), 1);
    EXPECT_EQ(list.Sections(), L" 1 2");
    const CPrivateProfile profile(saved.Bytes());
    EXPECT_EQ(FindTaskSections(profile, 1, 99), (std::vector{1, 2, 6}));
    EXPECT_EQ(profile.GetString(L"SCVShchedulerTask2", L"CommandLine"), L"\"C:\\p5.scvpr\"");
    EXPECT_TRUE(saved.Bytes().starts_with("; mine\r\n" + Count("2")));

    // One task alone leaves the others as they are in the file now.
    const std::string meanwhile = Section(2, "LastRunTime=77\r\n");
    saved.files.Put(kPath, Section(1) + meanwhile);
    CSCVShchedulerTask& task = *list.tasks[0];
    task.m_tLastRunTime = 55;
    EXPECT_EQ(task.SaveToIni(saved.files, L"", L""), 1);
    EXPECT_EQ(task.SaveToIni(saved.files, task.m_strIniFile, task.m_strIniSection), 1);
    EXPECT_EQ(CPrivateProfile(saved.Bytes()).GetInt(L"SCVShchedulerTask1", L"LastRunTime", 0), 55);
    EXPECT_TRUE(saved.Bytes().ends_with(meanwhile));
}

TEST(TaskListFile, AnEditWritesOnlyWhatItChanged) {
    const std::string odd = "; mine\r\nLastRunResult='it''s'\r\nEnable=1 ; yes\r\nStartTime=-5\r\n";
    List list(Count("3") + Section(1, odd) + Section(3, odd) + "[other]\r\nk=v\r\n");
    EXPECT_TRUE(list.tasks.TryEdit(list.files, kPath, [&] { list.tasks[0]->m_bRepeatOnMonthly = 1; }));
    EXPECT_EQ(list.Bytes().substr(0, list.Bytes().find("UntilTime")),
              Count("2") + Section(1, odd + "RepeatOnMonthly=1\r\n") +
                  "; mine\r\n[other]\r\nk=v\r\n[SCVShchedulerTask2]\r\n"
                  "Enable=1 ; yes\r\nCommandLine='\"C:\\p3.scvpr\"'\r\nStartTime=-5\r\n");
    EXPECT_TRUE(list.Bytes().ends_with("EveryUnit=0\r\nLastRunResult='it''s'\r\n"))
        << "a task that moves keeps its texts as they are";
    EXPECT_EQ(list.Sections(), L" 1 2");
    const std::string before = list.Bytes();
    EXPECT_THROW((void)list.tasks.TryEdit(list.files, kPath, [&] { (void)list.tasks[7]; }),
                 std::invalid_argument);
    EXPECT_EQ(list.Bytes(), before);
}

TEST(TaskListFile, NeverSavesOverAnUnreadFile) {
    List list(Count("1") + Section(1));
    list.tasks.AddTask(L"C:\\mine.scvpr", 0);
    list.files.Hold(kPath, CFakeFileSystem::kForever);
    EXPECT_EQ(list.tasks.TryLoad(list.files, kPath), Status::Busy);
    EXPECT_EQ(list.tasks[0]->LoadFromIni(list.files, kPath, L"SCVShchedulerTask1"), 0);
    EXPECT_EQ(list.tasks[0]->m_strProjectPath, L"C:\\mine.scvpr");

    list.files.Hold(kPath, 0);
    EXPECT_FALSE(list.tasks.TrySave(list.files, L"C:\\LISTS\\tasks.ini"));
    EXPECT_EQ(list.tasks.TryLoad(list.files, L"C:\\other.ini"), Status::Missing);
    EXPECT_FALSE(list.tasks.TrySave(list.files, kPath));
    EXPECT_EQ(list.Bytes(), Count("1") + Section(1));

    EXPECT_EQ(list.tasks.Load(list.files, kPath), 1);
    list.tasks.RemoveAllTasks();
    EXPECT_TRUE(list.tasks.TrySave(list.files, kPath)) << "but when it has been read";
    EXPECT_EQ(list.Bytes(), Count("0"));

    list.files.Hold(kPath, CFakeFileSystem::kForever);
    EXPECT_EQ(list.tasks.TryLoad(list.files, kPath), Status::Busy);
    list.files.Hold(kPath, 0);
    list.files.Remove(kPath);
    EXPECT_EQ(list.tasks.TryLoad(list.files, kPath), Status::Missing);
    EXPECT_TRUE(list.tasks.TrySave(list.files, kPath)) << "or is gone";
}

}  // namespace
