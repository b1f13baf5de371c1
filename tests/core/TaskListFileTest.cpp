#include "core/TaskListFile.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/PrivateProfile.h"
#include "core/SCVShchedulerTaskArray.h"
#include "tests/support/FakeFileSystem.h"

namespace {

using Status = IFileSystem::Status;
using Task = CSCVShchedulerTask;

constexpr std::int64_t kNow = 1711850400;
const std::wstring kPath = L"C:\\lists\\tasks.ini";

// A list as it stands on disk, with what the array makes of it.
struct List {
    explicit List(std::string bytes) { files.Put(kPath, std::move(bytes)); }
    [[nodiscard]] const std::string& Bytes() const { return files.Bytes(kPath); }

    CFakeFileSystem files;
    CSCVShchedulerTaskArray tasks;
};

std::vector<std::wstring> Sections(const CSCVShchedulerTaskArray& tasks) {
    std::vector<std::wstring> names;
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        names.push_back(tasks[i]->m_strIniSection);
    }
    return names;
}

std::string Section(int number, const std::string& lines = "") {
    return "[SCVShchedulerTask" + std::to_string(number) + "]\r\nCommandLine='\"C:\\p" +
           std::to_string(number) + ".scvpr\"'\r\n" + lines;
}

std::string Count(const std::string& count) {
    return "[SCVShchedulerTaskList]\r\nTaskCount=" + count + "\r\n";
}

std::vector<std::wstring> Names(const std::vector<int>& numbers) {
    std::vector<std::wstring> names;
    for (const int number : numbers) {
        names.push_back(TaskSectionName(number));
    }
    return names;
}

TEST(TaskListFile, StoredNumbers) {
    using Limits = std::numeric_limits<std::int32_t>;
    const struct {
        std::int32_t number;
        std::vector<std::wstring> texts;
    } cases[] = {{0, {L"", L"   ", L"-", L"abc", L"0x10", L"+-1", L"- 1", L"\xff11"}},
                 {42, {L" \t\r\n42abc", L"+42", L"0042"}},
                 {-1, {L"-1"}},
                 {Limits::max(), {L"2147483647", L"2147483648", L"99999999999999999999999999"}},
                 {Limits::min(), {L"-2147483648", L"-2147483649", L"-99999999999999999999999999"}}};
    for (const auto& c : cases) {
        for (const std::wstring& text : c.texts) {
            EXPECT_EQ(ParseStoredNumber(text), c.number) << testing::PrintToString(text);
        }
    }
}

TEST(TaskListFile, ATaskIsWrittenInTheOrderThatOlderVersionsWrote) {
    List list("; by hand\r\n\r\n[Other]\r\nKeep = me \r\n");
    list.tasks.AddTask(L"C:\\it's.scvpr", kNow);
    Task& task = *list.tasks[0];
    task.m_bDeleteUrls = task.m_bRepeatOnMon = task.m_bEnableEvery = 1;
    task.m_bRepeatOnWen = 5;
    task.m_nEveryValue = -30;
    task.m_nEveryUnit = 0;
    task.m_tStartTime = 4294967296 + 5;
    task.m_tUntilTime = -1;
    task.m_strLastRunResult = L"Failure to run 'C:\\x.exe'";
    EXPECT_EQ(list.tasks.Save(list.files, kPath), 1);
    EXPECT_EQ(list.files.Replacements(), 1);
    EXPECT_EQ(
        list.Bytes(),
        "; by hand\r\n\r\n[Other]\r\nKeep = me \r\n"
        "[SCVShchedulerTaskList]\r\nTaskCount=1\r\n"
        "[SCVShchedulerTask1]\r\nEnable=1\r\nCommandLine='\"C:\\it''s.scvpr\" -dt'\r\nStartTime=5\r\n"
        "UntilTime=4294967295\r\nLastRunTime=0\r\nRepeatOnMon=1\r\nRepeatOnTue=0\r\nRepeatOnWen=5\r\n"
        "RepeatOnThu=0\r\nRepeatOnFri=0\r\nRepeatOnSat=0\r\nRepeatOnSun=0\r\nRepeatOnMonthly=0\r\n"
        "EnableEvery=1\r\nEveryValue=-30\r\nEveryUnit=0\r\nLastRunResult='Failure to run ''C:\\x.exe'''\r\n");
    // Apostrophes double with each load and save.
    list.tasks.Load(list.files, kPath);
    EXPECT_EQ(list.tasks[0]->m_strLastRunResult, L"Failure to run ''C:\\x.exe''");
}

TEST(TaskListFile, WhatASectionMayHold) {
    Task task(kNow);
    const auto load = [&](const std::string& lines) {
        CFakeFileSystem files;
        files.Put(kPath, Section(1, lines));
        EXPECT_EQ(task.LoadFromIni(files, kPath, L"SCVShchedulerTask1"), 1);
        return std::vector<std::int64_t>{task.m_bEnable,      task.m_tStartTime,  task.m_tUntilTime,
                                         task.m_tLastRunTime, task.m_nEveryValue, task.m_nEveryUnit};
    };
    using Numbers = std::vector<std::int64_t>;
    const std::string blanks(253, ' ');
    EXPECT_EQ(load(""), (Numbers{1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(task.m_strProjectPath + task.m_strIniFile + task.m_strIniSection,
              L"C:\\p1.scvpr" + kPath + L"SCVShchedulerTask1");
    EXPECT_EQ(load("Enable=\r\nEveryUnit=\r\n"), (Numbers{1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(load("Enable=0\r\nEnable=1\r\n"), (Numbers{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(load("enable=no\r\n"), (Numbers{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(load("Enable=\" " + blanks + "1\"\r\nEveryValue=\"" + blanks + "1\"\r\n"),
              (Numbers{0, 0, 0, 0, 1, 0}))
        << "a number's buffer takes 254 characters";
    EXPECT_EQ(load("StartTime=4294967295\r\nUntilTime=-5\r\nLastRunTime=soon\r\n"),
              (Numbers{1, 2147483647, -5, 0, 0, 0}));
    EXPECT_EQ(load("RepeatOnMon=1\r\nRepeatOnTue=2\r\nRepeatOnWen=3\r\nRepeatOnThu=4\r\nRepeatOnFri=5\r\n"
                   "RepeatOnSat=6\r\nRepeatOnSun=7\r\nRepeatOnWed=9\r\nRepeatOnMonthly=8\r\nEnableEvery=9\r\n"
                   "EveryValue=10\r\nEveryUnit=11\r\n"),
              (Numbers{1, 0, 0, 0, 10, 11}));
    EXPECT_EQ((std::vector{task.m_bRepeatOnMon, task.m_bRepeatOnTue, task.m_bRepeatOnWen, task.m_bRepeatOnThu,
                           task.m_bRepeatOnFri, task.m_bRepeatOnSat, task.m_bRepeatOnSun,
                           task.m_bRepeatOnMonthly, task.m_bEnableEvery}),
              (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    load("LastRunResult='" + std::string(2000, 'x') + "'\r\n");
    EXPECT_EQ(task.m_strLastRunResult, std::wstring(1023, L'x'));
    // A command line is cut as well: a switch behind its 1023rd character is not there.
    for (const std::size_t length : {1017U, 1018U}) {
        CFakeFileSystem files;
        files.Put(kPath, "[s]\nCommandLine=\"" + std::string(length, 'p') + "\" -dt\n");
        EXPECT_EQ(task.LoadFromIni(files, kPath, L"S"), 1);
        EXPECT_EQ(task.m_bDeleteUrls, length == 1017 ? 1 : 0);
    }
}

TEST(TaskListFile, WhichSectionsALoadTakes) {
    const struct {
        std::string bytes;
        std::vector<int> sections;
    } cases[] = {
        {Count("3") + Section(3) + Section(1), {1, 3}},
        {Count("2") + Section(1) + "[SCVShchedulerTask2]\r\nEnable=1\r\n" + Section(3), {1}},
        {Count("2") + Section(1) + Section(1), {1}},
        {Count("2147483647") + Section(2147483647) + Section(0) + Section(7), {7, 2147483647}},
        {Count("-1") + Section(1), {}},
        {Count("many") + Section(1), {}},
        {Section(1), {}},
        {"[scvshchedulerTASKlist]\r\ntaskcount = \"2\" \r\n[SCVSHCHEDULERTASK2]\r\ncommandline=x\r\n", {2}},
        {Count("99") + "[SCVShchedulerTask01]\nCommandLine=x\n[SCVShchedulerTask 1]\nCommandLine=x\n"
                       "[SCVShchedulerTask+1]\nCommandLine=x\n[SCVShchedulerTask1x]\nCommandLine=x\n"
                       "[SCVShchedulerTask]\nCommandLine=x\n[SCVShchedulerTask4294967297]\nCommandLine=x\n",
         {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.bytes);
        List list(c.bytes);
        list.tasks.AddTask(L"before", kNow);
        EXPECT_EQ(list.tasks.Load(list.files, kPath), 1);
        EXPECT_EQ(Sections(list.tasks), Names(c.sections));
        EXPECT_EQ(list.files.Calls(), 1);
    }
}

TEST(TaskListFile, ASaveRenumbersAndRemovesWhatIsStale) {
    List list("; mine\r\n" + Count("5") + Section(1) + Section(2) + Section(3) + "[Other]\r\nk=v\r\n" +
              Section(4) + Section(5) + Section(6));
    list.tasks.Load(list.files, kPath);
    for (const int index : {3, 1, 0}) {
        list.tasks.RemoveTaskAt(index);
    }
    list.tasks.Save(list.files, kPath);
    EXPECT_EQ(list.files.Replacements(), 1);
    EXPECT_EQ(Sections(list.tasks), Names({1, 2}));
    const CPrivateProfile saved(list.Bytes());
    EXPECT_EQ(FindTaskSections(saved, 1, 99), (std::vector{1, 2, 6}));
    EXPECT_EQ(saved.GetString(L"SCVShchedulerTask1", L"CommandLine"), L"\"C:\\p3.scvpr\"");
    EXPECT_EQ(saved.GetString(L"SCVShchedulerTask2", L"CommandLine"), L"\"C:\\p5.scvpr\"");
    EXPECT_EQ(saved.GetString(L"Other", L"k"), L"v");
    EXPECT_TRUE(list.Bytes().starts_with("; mine\r\n" + Count("2")));

    // One task alone leaves the others as they are in the file now.
    const std::string meanwhile = Section(2, "LastRunTime=77\r\n");
    list.files.Put(kPath, Section(1) + meanwhile);
    Task& task = *list.tasks[0];
    task.m_tLastRunTime = 55;
    EXPECT_EQ(task.SaveToIni(list.files, task.m_strIniFile, task.m_strIniSection), 1);
    EXPECT_EQ(CPrivateProfile(list.Bytes()).GetInt(L"SCVShchedulerTask1", L"LastRunTime", 0), 55);
    EXPECT_TRUE(list.Bytes().ends_with(meanwhile));
}

TEST(TaskListFile, AnEditWritesOnlyWhatItChanged) {
    const std::string odd = "; mine\r\nLastRunResult='it''s'\r\nEnable=1 ; yes\r\nStartTime=-5\r\n";
    List list(Count("3") + Section(1, odd) + Section(3, odd) + "[other]\r\nk=v\r\n");
    const std::string before = list.Bytes();

    EXPECT_TRUE(list.tasks.TryEdit(list.files, kPath, [&] { list.tasks[0]->m_bRepeatOnMonthly = 1; }));
    EXPECT_EQ(list.Bytes(),
              Count("2") + Section(1, odd + "RepeatOnMonthly=1\r\n") +
                  "; mine\r\n[other]\r\nk=v\r\n[SCVShchedulerTask2]\r\nEnable=1 ; yes\r\n"
                  "CommandLine='\"C:\\p3.scvpr\"'\r\nStartTime=-5\r\nUntilTime=0\r\nLastRunTime=0\r\n"
                  "RepeatOnMon=0\r\nRepeatOnTue=0\r\nRepeatOnWen=0\r\nRepeatOnThu=0\r\n"
                  "RepeatOnFri=0\r\nRepeatOnSat=0\r\nRepeatOnSun=0\r\nRepeatOnMonthly=0\r\n"
                  "EnableEvery=0\r\nEveryValue=0\r\nEveryUnit=0\r\nLastRunResult='it''s'\r\n")
        << "a task that moves takes its texts along as they stand";
    EXPECT_EQ(Sections(list.tasks), Names({1, 2}));

    list.files.Put(kPath, before);
    EXPECT_TRUE(list.tasks.TryEdit(list.files, kPath, [&] {
        EXPECT_FALSE(CSCVShchedulerTaskArray().TryEdit(list.files, kPath, [] {})) << "one at a time";
        list.tasks.RemoveTaskAt(0);
        list.tasks.AddTask(L"C:\\new.scvpr", kNow);
    }));
    CSCVShchedulerTaskArray read;
    ASSERT_EQ(read.Load(list.files, kPath), 1);
    ASSERT_EQ(Sections(read), Names({1, 2}));
    EXPECT_EQ(read[0]->m_strProjectPath, L"C:\\p3.scvpr");
    EXPECT_EQ(read[0]->m_strLastRunResult, L"it''s");
    EXPECT_EQ(read[1]->m_tStartTime, kNow + 300);

    list.files.Put(kPath, before);
    EXPECT_THROW((void)list.tasks.TryEdit(list.files, kPath,
                                          [&] {
                                              list.tasks.RemoveAllTasks();
                                              throw std::runtime_error("no");
                                          }),
                 std::runtime_error);
    EXPECT_EQ(list.Bytes(), before);
}

TEST(TaskListFile, TextsOfAnyLanguageSurvive) {
    // Cyrillic, Japanese and an emoji; the longest path; half an emoji; what an ini file knows.
    const std::wstring paths[] = {L"C:\\\x041f\\\x65e5\xd83d\xde00.oslpr",
                                  L"D:\\" + std::wstring(241, L'x') + L".scvpr", L"E:\\caf\xe9\xd800.scvpr",
                                  L"F:\\a=b;c [d].scvpr"};
    for (const std::string start : {"", "\xff\xfe", "\xef\xbb\xbf", "; f\xfcr mich\r\n"}) {
        List list(start);
        for (const std::wstring& path : paths) {
            list.tasks.AddTask(path, kNow);
            list.tasks[list.tasks.GetSize() - 1]->m_strLastRunResult = path;
        }
        ASSERT_TRUE(list.tasks.TrySave(list.files, kPath));
        ASSERT_EQ(list.tasks.Load(list.files, kPath), 1);
        ASSERT_EQ(list.tasks.GetSize(), std::ssize(paths));
        for (std::ptrdiff_t i = 0; i < list.tasks.GetSize(); ++i) {
            EXPECT_EQ(list.tasks[i]->m_strProjectPath, paths[i]);
            EXPECT_EQ(list.tasks[i]->m_strLastRunResult, paths[i]);
        }
    }
}

TEST(TaskListFile, AnUnreadableFileIsNeitherAnEmptyListNorSavedOver) {
    List list(Count("1") + Section(1));
    const std::string old = list.Bytes();
    list.tasks.AddTask(L"C:\\mine.scvpr", kNow);
    list.files.Hold(kPath, CFakeFileSystem::kForever);
    EXPECT_EQ(list.tasks.Load(list.files, kPath), 0);
    EXPECT_EQ(list.tasks.TryLoad(list.files, kPath), Status::Busy);
    ASSERT_EQ(list.tasks.GetSize(), 1);
    EXPECT_EQ(list.tasks[0]->LoadFromIni(list.files, kPath, L"SCVShchedulerTask1"), 0);
    EXPECT_EQ(list.tasks[0]->m_strProjectPath, L"C:\\mine.scvpr");

    list.files.Hold(kPath, 0);
    EXPECT_FALSE(list.tasks.TrySave(list.files, L"C:\\LISTS\\tasks.ini"));
    EXPECT_EQ(list.tasks.Save(list.files, kPath), 1);
    EXPECT_EQ(list.tasks.TryLoad(list.files, L"C:\\other.ini"), Status::Missing);
    EXPECT_FALSE(list.tasks.TrySave(list.files, kPath));
    EXPECT_EQ(list.Bytes(), old);
    EXPECT_EQ(list.tasks[0]->m_strIniSection, L"");

    EXPECT_EQ(list.tasks.Load(list.files, kPath), 1);
    EXPECT_EQ(list.tasks[0]->m_strProjectPath, L"C:\\p1.scvpr");
    list.tasks.RemoveAllTasks();
    EXPECT_TRUE(list.tasks.TrySave(list.files, kPath));
    EXPECT_EQ(list.Bytes(), Count("0"));

    list.files.Hold(kPath, CFakeFileSystem::kForever);
    EXPECT_EQ(list.tasks.TryLoad(list.files, kPath), Status::Busy);
    list.files.Remove(kPath);
    EXPECT_EQ(list.tasks.TryLoad(list.files, kPath), Status::Missing);
    list.files.Hold(kPath, 0);
    EXPECT_TRUE(list.tasks.TrySave(list.files, kPath));
}

TEST(TaskListFile, AFailedSaveKeepsTheRecordsThatMatchTheFile) {
    List list(Count("2") + Section(1) + Section(2));
    list.tasks.Load(list.files, kPath);
    list.tasks.RemoveTaskAt(0);
    list.files.SetReadOnly(kPath);
    EXPECT_EQ(list.tasks.Save(list.files, kPath), 1);
    EXPECT_EQ(Sections(list.tasks), Names({2}));
    EXPECT_EQ(list.tasks.Load(list.files, L"C:\\missing.ini"), 0);
    EXPECT_EQ(list.tasks.GetSize(), 1);

    Task& task = *list.tasks[0];
    EXPECT_EQ(task.SaveToIni(list.files, L"", L""), 1);
    EXPECT_EQ(list.tasks.Save(list.files, L""), 1);
    EXPECT_EQ(task.m_strIniSection, L"SCVShchedulerTask2");
    EXPECT_EQ(task.SaveToIni(list.files, L"C:\\new.ini", L"mine"), 1);
    EXPECT_EQ(task.m_strIniFile + task.m_strIniSection, L"C:\\new.inimine");
    EXPECT_TRUE(list.files.Bytes(L"C:\\new.ini").starts_with("[mine]\r\nEnable=1\r\n"));
}

}  // namespace
