#include "ui/model/PassRecord.h"

#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTaskArray.h"

TEST(PassRecord, GivesBackOnlyTheNewerRunOfTheSameProject) {
    const struct {
        const wchar_t *ran, *read, *section;
        std::int64_t readTime, time;
    } cases[] = {{L"C:\\a", L"c:\\A", L"S1", 9, 10},
                 {L"C:\\b", L"C:\\other", L"S2", 0, 0},  // the section is another project's now
                 {L"C:\\c", L"C:\\c", L"S3", 11, 11},
                 {L"C:\\d", L"C:\\d", L"", 0, 0}};  // from no file
    CPassRecord record;
    CSCVShchedulerTaskArray read;
    for (const auto& c : cases) {
        CSCVShchedulerTask task;
        task.m_strProjectPath = c.ran;
        task.m_strIniSection = c.section;
        task.m_tLastRunTime = 10;
        task.m_strLastRunResult = L"Success";
        record.Add(task);
        CSCVShchedulerTask& later = *read[read.AddTask(c.read, 1'000'000)];
        later.m_strIniSection = c.section;
        later.m_tLastRunTime = c.readTime;
    }
    record.ApplyTo(read);
    for (std::ptrdiff_t i = 0; i < read.GetSize(); ++i) {
        EXPECT_EQ(read[i]->m_tLastRunTime, cases[i].time) << i;
    }
    EXPECT_EQ(read[0]->m_strLastRunResult, L"Success");
}
