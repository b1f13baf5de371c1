#include "ui/PassRecord.h"

#include <gtest/gtest.h>

#include "core/SCVShchedulerTaskArray.h"

namespace {

TEST(PassRecord, GivesBackOnlyTheNewerRunOfTheSameProject) {
    const auto list = [](CSCVShchedulerTaskArray& tasks) {
        for (const wchar_t* path : {L"C:\\a", L"C:\\b", L"C:\\c", L"C:\\d"}) {
            tasks[tasks.AddTask(path, 1'000'000)]->m_strIniSection = std::wstring(L"S") + path[3];
        }
    };
    CSCVShchedulerTaskArray ran;
    list(ran);
    CPassRecord record;
    for (std::ptrdiff_t i = 0; i < 4; ++i) {
        ran[i]->m_tLastRunTime = 10;
        ran[i]->m_strLastRunResult = L"Success";
        ran[i]->m_strIniSection = i == 3 ? L"" : ran[i]->m_strIniSection;
        record.Add(*ran[i]);
    }
    CSCVShchedulerTaskArray read;
    list(read);
    read[0]->m_strProjectPath = L"c:\\A";
    read[1]->m_strProjectPath = L"C:\\other";
    read[2]->m_tLastRunTime = 11;
    read[3]->m_strIniSection = L"";
    record.ApplyTo(read);
    EXPECT_EQ(read[0]->m_tLastRunTime, 10);
    EXPECT_EQ(read[0]->m_strLastRunResult, L"Success");
    EXPECT_EQ(read[1]->m_tLastRunTime, 0) << "the section is another project's now";
    EXPECT_EQ(read[2]->m_tLastRunTime, 11);
    EXPECT_EQ(read[3]->m_tLastRunTime, 0) << "from no file";
    read[0]->m_tLastRunTime = 0;
    record.Clear();
    record.ApplyTo(read);
    EXPECT_EQ(read[0]->m_tLastRunTime, 0);
}

}  // namespace
