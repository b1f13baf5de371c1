#include "ui/model/PassRecord.h"

#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTaskArray.h"

namespace {

TEST(PassRecord, GivesBackTheNewerRunOfTheSameTask) {
    const struct {
        const wchar_t* label;
        const wchar_t *ran, *read;
        std::int64_t ranTime, readTime, time;
    } cases[] = {
        {L"older run", L"C:\\a", L"c:\\A", 10, 9, 10},
        {L"doubled apostrophes", L"C:\\it's", L"C:\\it''s", 10, 0, 10},
        {L"another project is there now", L"C:\\b", L"C:\\other", 10, 0, 0},
        {L"newer run", L"C:\\c", L"C:\\c", 10, 11, 11},
        {L"first task of a project", L"C:\\e", L"C:\\e", 0, 0, 0},
        {L"second task of the project", L"C:\\E", L"C:\\e", 10, 0, 10},
        {L"not the start of another", L"C:\\e'", L"C:\\e'", 10, 0, 10},
        {L"the same with two apostrophes", L"C:\\E''", L"C:\\e'", 10, 0, 10},
        {L"and with one again", L"C:\\e'", L"C:\\e'", 10, 0, 10},
    };
    CPassRecord record;
    CSCVShchedulerTaskArray ran;
    CSCVShchedulerTaskArray read;
    for (const auto& c : cases) {
        CSCVShchedulerTask& task = *ran[ran.AddTask(c.ran, 1'000'000)];
        task.m_tLastRunTime = c.ranTime;
        task.m_strLastRunResult = L"Success";
        record.Add(ran, task);
        read[read.AddTask(c.read, 1'000'000)]->m_tLastRunTime = c.readTime;
    }
    record.ApplyTo(read);
    for (std::ptrdiff_t i = 0; i < read.GetSize(); ++i) {
        EXPECT_EQ(read[i]->m_tLastRunTime, cases[i].time) << cases[i].label;
    }
    EXPECT_EQ(read[0]->m_strLastRunResult, L"Success");
}

}  // namespace
