#include "core/TaskListFile.h"

#include <gtest/gtest.h>

#include <functional>
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

std::string Section(int number, const std::string& lines = "") {
    return "[SCVShchedulerTask" + std::to_string(number) + "]\r\nCommandLine='\"C:\\p" +
           std::to_string(number) + ".scvpr\"'\r\n" + lines;
}

std::string Count(const std::string& count) {
    return "[SCVShchedulerTaskList]\r\nTaskCount=" + count + "\r\n";
}

std::vector<std::wstring> Sections(const CSCVShchedulerTaskArray& tasks) {
    std::vector<std::wstring> names;
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        names.push_back(tasks[i]->m_strIniSection);
    }
    return names;
}

std::vector<std::wstring> Names(const std::vector<int>& numbers) {
    std::vector<std::wstring> names;
    for (const int number : numbers) {
        names.push_back(TaskSectionName(number));
    }
    return names;
}

TEST(TaskListFile, StoredNumbers) {
    struct Case {
        std::wstring text;
        std::int32_t number;
    };
    constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
    const Case cases[] = {
        {L"", 0},
        {L"   ", 0},
        {L"-", 0},
        {L"abc", 0},
        {L"0x10", 0},
        {L" \t\r\n42abc", 42},
        {L"+7", 7},
        {L"-1", -1},
        {L"+-1", 0},
        {L"- 1", 0},
        {L"007", 7},
        {L"2147483647", kHighest},
        {L"2147483648", kHighest},
        {L"4294967295", kHighest},
        {L"99999999999999999999999999", kHighest},
        {L"-2147483648", kLowest},
        {L"-2147483649", kLowest},
        {L"-99999999999999999999999999", kLowest},
        {L"\xff11", 0},  // a full-width digit
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ParseStoredNumber(c.text), c.number) << testing::PrintToString(c.text);
    }
}

TEST(TaskListFile, ATaskIsWrittenInTheOrderThatOlderVersionsWrote) {
    List list("; by hand\r\n\r\n[Other]\r\nKeep = me \r\n");
    list.tasks.AddTask(L"C:\\it's.scvpr", kNow);
    Task& task = *list.tasks[0];
    task.m_bDeleteUrls = 1;
    task.m_bRepeatOnMon = 1;
    task.m_bRepeatOnWen = 5;
    task.m_bEnableEvery = 1;
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
}

TEST(TaskListFile, WhatASectionMayHold) {
    using Check = std::function<void(const Task&)>;
    struct Case {
        std::string lines;
        Check check;
    };
    const std::string blanks(254, ' ');
    const Case cases[] = {
        {"",
         [](const Task& t) {
             EXPECT_EQ(t.m_bEnable, 1);
             EXPECT_EQ(t.m_nEveryValue, 0);
             EXPECT_EQ(t.m_nEveryUnit, 0);
             EXPECT_EQ(t.m_tStartTime, 0);
             EXPECT_EQ(t.m_tUntilTime, 0);
             EXPECT_EQ(t.m_strIniFile, kPath);
             EXPECT_EQ(t.m_strIniSection, L"SCVShchedulerTask1");
         }},
        {"Enable=\r\nEveryUnit=\r\n",
         [](const Task& t) {
             EXPECT_EQ(t.m_bEnable, 1);
             EXPECT_EQ(t.m_nEveryUnit, 0);
         }},
        {"Enable=0\r\nEnable=1\r\n", [](const Task& t) { EXPECT_EQ(t.m_bEnable, 0); }},
        {"enable=no\r\n", [](const Task& t) { EXPECT_EQ(t.m_bEnable, 0); }},
        {"Enable=\"" + blanks + "1\"\r\nEveryValue=\"" + blanks.substr(1) + "1\"\r\n",
         [](const Task& t) {
             EXPECT_EQ(t.m_bEnable, 0) << "a number's buffer takes 254 characters";
             EXPECT_EQ(t.m_nEveryValue, 1);
         }},
        {"StartTime=4294967295\r\nUntilTime=-5\r\nLastRunTime=soon\r\n",
         [](const Task& t) {
             EXPECT_EQ(t.m_tStartTime, 2147483647);
             EXPECT_EQ(t.m_tUntilTime, -5);
             EXPECT_EQ(t.m_tLastRunTime, 0);
         }},
        {"RepeatOnMon=1\r\nRepeatOnTue=2\r\nRepeatOnWen=3\r\nRepeatOnThu=4\r\nRepeatOnFri=5\r\nRepeatOnSat="
         "6\r\n"
         "RepeatOnSun=7\r\nRepeatOnWed=9\r\nRepeatOnMonthly=8\r\nEnableEvery=9\r\nEveryValue=10\r\nEveryUnit="
         "11\r\n",
         [](const Task& t) {
             EXPECT_EQ((std::vector{t.m_bRepeatOnMon, t.m_bRepeatOnTue, t.m_bRepeatOnWen, t.m_bRepeatOnThu,
                                    t.m_bRepeatOnFri, t.m_bRepeatOnSat, t.m_bRepeatOnSun,
                                    t.m_bRepeatOnMonthly, t.m_bEnableEvery, t.m_nEveryValue, t.m_nEveryUnit}),
                       (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
         }},
        {"LastRunResult=" + std::string(2000, 'x') + "\r\n",
         [](const Task& t) { EXPECT_EQ(t.m_strLastRunResult, std::wstring(1023, L'x')); }},
        {"LastRunResult='" + std::string(2000, 'x') + "'\r\n",
         [](const Task& t) { EXPECT_EQ(t.m_strLastRunResult, std::wstring(1023, L'x')); }},
        {"LastRunResult='it''s'\r\n", [](const Task& t) { EXPECT_EQ(t.m_strLastRunResult, L"it''s"); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.lines.substr(0, 80));
        CFakeFileSystem files;
        files.Put(kPath, Section(1, c.lines));
        Task task(kNow);
        EXPECT_EQ(task.LoadFromIni(files, kPath, L"SCVShchedulerTask1"), 1);
        EXPECT_EQ(task.m_strProjectPath, L"C:\\p1.scvpr");
        c.check(task);
    }
    // A command line is cut as well: a switch behind its 1023rd character is not there.
    for (const std::size_t length : {1017U, 1018U}) {
        CFakeFileSystem files;
        files.Put(kPath, "[s]\nCommandLine=\"" + std::string(length, 'p') + "\" -dt\n");
        Task task(kNow);
        EXPECT_EQ(task.LoadFromIni(files, kPath, L"S"), 1);
        EXPECT_EQ(task.m_bDeleteUrls, length == 1017 ? 1 : 0);
    }
}

TEST(TaskListFile, ApostrophesDoubleWithEachLoadAndSave) {
    List list(Count("1") + Section(1));
    ASSERT_EQ(list.tasks.Load(list.files, kPath), 1);
    list.tasks[0]->m_strLastRunResult = L"'";
    for (const wchar_t* const expected : {L"''", L"''''"}) {
        list.tasks.Save(list.files, kPath);
        list.tasks.Load(list.files, kPath);
        ASSERT_EQ(list.tasks.GetSize(), 1);
        EXPECT_EQ(list.tasks[0]->m_strLastRunResult, expected);
    }
}

TEST(TaskListFile, WhichSectionsALoadTakes) {
    struct Case {
        std::string bytes;
        std::vector<int> sections;
    };
    const Case cases[] = {
        {Count("3") + Section(1) + Section(3), {1, 3}},
        {Count("3") + Section(3) + Section(2) + Section(1), {1, 2, 3}},
        {Count("2") + Section(1) + "[SCVShchedulerTask2]\r\nEnable=1\r\n" + Section(3), {1}},
        {Count("2") + Section(1) + Section(1), {1}},
        {Count("2147483647") + Section(2147483647) + Section(0) + Section(7), {7, 2147483647}},
        {Count("-1") + Section(1), {}},
        {Count("0") + Section(1), {}},
        {Count("many") + Section(1), {}},
        {Section(1), {}},
        {"[scvshchedulerTASKlist]\r\ntaskcount = \"2\" \r\n[SCVSHCHEDULERTASK2]\r\ncommandline=x\r\n", {2}},
        {Count("99") + "[SCVShchedulerTask01]\nCommandLine=x\n[SCVShchedulerTask 1]\nCommandLine=x\n"
                       "[SCVShchedulerTask+1]\nCommandLine=x\n[SCVShchedulerTask1x]\nCommandLine=x\n"
                       "[SCVShchedulerTask]\nCommandLine=x\n[SCVShchedulerTask4294967297]\nCommandLine=x\n",
         {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bytes);
        List list(c.bytes);
        EXPECT_EQ(list.tasks.Load(list.files, kPath), 1);
        EXPECT_EQ(Sections(list.tasks), Names(c.sections));
        EXPECT_EQ(list.files.Calls(), 1);
    }
}

TEST(TaskListFile, ASaveRenumbersAndRemovesWhatIsStale) {
    List list("; mine\r\n" + Count("5") + Section(1) + Section(2) + Section(3) + "[Other]\r\nk=v\r\n" +
              Section(4) + Section(5) + Section(6));
    list.tasks.Load(list.files, kPath);
    list.tasks.RemoveTaskAt(3);
    list.tasks.RemoveTaskAt(1);
    list.tasks.RemoveTaskAt(0);
    list.files.ResetCounters();
    list.tasks.Save(list.files, kPath);
    EXPECT_EQ(list.files.Replacements(), 1);
    EXPECT_EQ(Sections(list.tasks), Names({1, 2}));
    const CPrivateProfile saved(list.Bytes());
    EXPECT_EQ(saved.GetInt(kTaskListSection, kTaskCountKey, 0), 2);
    EXPECT_EQ(FindTaskSections(saved, 1, 99), (std::vector{1, 2, 6}));
    EXPECT_EQ(saved.GetString(L"SCVShchedulerTask1", L"CommandLine"), L"\"C:\\p3.scvpr\"");
    EXPECT_EQ(saved.GetString(L"SCVShchedulerTask2", L"CommandLine"), L"\"C:\\p5.scvpr\"");
    EXPECT_EQ(saved.GetString(L"Other", L"k"), L"v");
    EXPECT_TRUE(list.Bytes().starts_with("; mine\r\n"));
}

TEST(TaskListFile, SavingOneTaskLeavesTheOthersAsTheyAreInTheFileNow) {
    List list(Count("2") + Section(1) + Section(2));
    list.tasks.Load(list.files, kPath);
    const std::string meanwhile = Count("2") + Section(1) + Section(2, "LastRunTime=77\r\n");
    list.files.Put(kPath, meanwhile);
    Task& task = *list.tasks[0];
    task.m_tLastRunTime = 55;
    EXPECT_EQ(task.SaveToIni(list.files, task.m_strIniFile, task.m_strIniSection), 1);
    EXPECT_EQ(CPrivateProfile(list.Bytes()).GetInt(L"SCVShchedulerTask1", L"LastRunTime", 0), 55);
    EXPECT_TRUE(list.Bytes().ends_with(Section(2, "LastRunTime=77\r\n")));
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
    const std::wstring paths[] = {
        L"C:\\\x041f\x0440\x043e\x0435\x043a\x0442\\\x043f.scvpr",  // Cyrillic
        L"D:\\\x65e5\x672c\x8a9e.oslpr",                            // Japanese
        L"E:\\\xd83d\xde00.scvpr",                                  // an emoji
        L"F:\\caf\xe9.scvpr",
        L"G:\\" + std::wstring(241, L'x') + L".scvpr",  // 250 characters
        L"H:\\lone\xd800.scvpr",
        L"I:\\a=b;c [d].scvpr",
    };
    for (const std::string start : {"", "\xff\xfe", "\xef\xbb\xbf", "; f\xfcr mich\r\n"}) {
        List list(start);
        for (const std::wstring& path : paths) {
            list.tasks.AddTask(path, kNow);
            list.tasks[list.tasks.GetSize() - 1]->m_strLastRunResult = path;
        }
        ASSERT_TRUE(list.tasks.TrySave(list.files, kPath));
        CSCVShchedulerTaskArray loaded;
        ASSERT_EQ(loaded.Load(list.files, kPath), 1);
        ASSERT_EQ(loaded.GetSize(), std::ssize(paths));
        for (std::ptrdiff_t i = 0; i < loaded.GetSize(); ++i) {
            EXPECT_EQ(loaded[i]->m_strProjectPath, paths[i]);
            EXPECT_EQ(loaded[i]->m_strLastRunResult, paths[i]);
            EXPECT_EQ(loaded[i]->m_strIniFile, kPath);
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
    EXPECT_EQ(list.Bytes(), old);
    EXPECT_EQ(list.tasks[0]->m_strIniSection, L"");
    EXPECT_EQ(list.tasks.TryLoad(list.files, L"C:\\other.ini"), Status::Missing);
    EXPECT_FALSE(list.tasks.TrySave(list.files, kPath));

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
    const std::string old = list.Bytes();
    list.tasks.Load(list.files, kPath);
    list.tasks.RemoveTaskAt(0);
    list.files.SetReadOnly(kPath);
    EXPECT_EQ(list.tasks.Save(list.files, kPath), 1);
    EXPECT_EQ(list.Bytes(), old);
    EXPECT_EQ(Sections(list.tasks), Names({2}));

    EXPECT_EQ(list.tasks.Load(list.files, L"C:\\missing.ini"), 0);
    EXPECT_EQ(list.tasks.GetSize(), 1);
    Task& task = *list.tasks[0];
    list.files.ResetCounters();
    EXPECT_EQ(task.SaveToIni(list.files, L"", L""), 1);
    EXPECT_EQ(list.tasks.Save(list.files, L""), 1);
    EXPECT_EQ(list.files.Calls(), 0);
    EXPECT_EQ(task.m_strIniSection, L"SCVShchedulerTask2");
    EXPECT_EQ(task.SaveToIni(list.files, L"C:\\new.ini", L"mine"), 1);
    EXPECT_EQ(task.m_strIniFile, L"C:\\new.ini");
    EXPECT_EQ(task.m_strIniSection, L"mine");
    EXPECT_TRUE(list.files.Bytes(L"C:\\new.ini").starts_with("[mine]\r\nEnable=1\r\n"));
}

TEST(TaskListFile, NoContentStopsALoadOrASave) {
    std::string noise;
    for (std::uint32_t i = 0, state = 1; i < 1'000'000; ++i) {
        state = state * 1664525 + 1013904223;
        noise += "[]=\r\n\"';\0aS=\xff\xfe\xd8"[state >> 16 & 15];
    }
    const std::string list = Count("2147483647") + Section(1) + Section(2, "StartTime=never\r\n");
    const std::string cases[] = {
        "",
        std::string(1, '\0'),
        "\xff\xfe",
        "\xff\xfe[",
        std::string("\xff\xfe\x00\xd8", 4),
        "\xef\xbb\xbf",
        "[",
        noise,
        "\xff\xfe" + noise,
        "\xef\xbb\xbf" + noise,
        std::string(1'000'000, '['),
        std::string(1'000'000, 'k') + "=v",
        list + "[SCVShchedulerTask3]\r\nCommandLine=" + std::string(1'000'000, 'x'),
        list + std::string(100, '\0') + "\r\nk=v\r\n" + noise,
    };
    for (const std::string& bytes : cases) {
        SCOPED_TRACE(testing::Message()
                     << bytes.size() << " bytes: " << testing::PrintToString(bytes.substr(0, 20)));
        List file(bytes);
        EXPECT_EQ(file.tasks.Load(file.files, kPath), 1);
        file.tasks.RemoveAllTasks();
        file.tasks.AddTask(L"C:\\a.scvpr", kNow);
        EXPECT_TRUE(file.tasks.TrySave(file.files, kPath));
        file.tasks.RemoveAllTasks();
        EXPECT_EQ(file.tasks.Load(file.files, kPath), 1);
        ASSERT_EQ(file.tasks.GetSize(), 1);
        EXPECT_EQ(file.tasks[0]->m_strProjectPath, L"C:\\a.scvpr");
    }
}

}  // namespace
