#include "ui/model/PassRecord.h"

#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeFileSystem.h"

namespace {

TEST(PassRecord, GivesBackTheNewerRunOfTheSameTask) {
    const struct {
        const wchar_t* label;
        const wchar_t *ran, *ranIn, *read, *readIn;
        std::int64_t readTime, time;
    } cases[] = {
        {L"older run", L"C:\\a", L"S1", L"c:\\A", L"S1", 9, 10},
        {L"section is another project's now", L"C:\\b", L"S2", L"C:\\other", L"S2", 0, 0},
        {L"newer run", L"C:\\c", L"S3", L"C:\\c", L"S3", 11, 11},
        {L"from no file, and still is", L"C:\\d", L"", L"C:\\d", L"", 0, 10},
        {L"a second task of the project", L"C:\\e", L"S5", L"C:\\e", L"S6", 0, 0},
    };
    CPassRecord record;
    CSCVShchedulerTaskArray read;
    for (const auto& c : cases) {
        CSCVShchedulerTask task;
        task.m_strProjectPath = c.ran;
        task.m_strIniSection = c.ranIn;
        task.m_tLastRunTime = 10;
        task.m_strLastRunResult = L"Success";
        record.Add(task, true);
        CSCVShchedulerTask& later = *read[read.AddTask(c.read, 1'000'000)];
        later.m_strIniSection = c.readIn;
        later.m_tLastRunTime = c.readTime;
    }
    record.ApplyTo(read);
    for (std::ptrdiff_t i = 0; i < read.GetSize(); ++i) {
        EXPECT_EQ(read[i]->m_tLastRunTime, cases[i].time) << cases[i].label;
    }
    EXPECT_EQ(read[0]->m_strLastRunResult, L"Success");
}

TEST(PassRecord, SavesWhatCouldNotBeSaved) {
    const std::wstring list = L"C:\\list.ini";
    CFakeFileSystem files;
    CSCVShchedulerTaskArray tasks;
    for (const wchar_t* project : {L"a", L"b", L"gone"}) {
        tasks.AddTask(project, 1'000'000);
    }
    ASSERT_TRUE(tasks.TrySave(files, list));
    CPassRecord record;
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        tasks[i]->m_tLastRunTime = 10;
        record.Add(*tasks[i], i == 0);
    }
    tasks.RemoveTask(L"gone");
    files.Hold(list, CFakeFileSystem::kForever);
    record.SaveTo(files, tasks);
    EXPECT_TRUE(record.HasUnsaved());
    files.Hold(list, 0);
    record.SaveTo(files, tasks);
    EXPECT_FALSE(record.HasUnsaved());
    CSCVShchedulerTaskArray saved;
    saved.Load(files, list);
    EXPECT_EQ(saved[0]->m_tLastRunTime, 0) << "was not to be saved again";
    EXPECT_EQ(saved[1]->m_tLastRunTime, 10);
    CSCVShchedulerTask added;
    record.Add(added, false);
    EXPECT_FALSE(record.HasUnsaved()) << "a task in no file waits for the whole list";
}

}  // namespace
