#include "ui/model/ProjectColumns.h"

#include <gtest/gtest.h>

#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTask.h"

namespace {

TEST(ProjectColumns, CellsShowTheTask) {
    const std::int64_t now = FromLocalTime(2026, 2, 25, 10, 0, 0);
    CSCVShchedulerTask task(now);  // starts in five minutes
    task.m_strProjectPath = L"C:\\folder\\a.scvpr";
    task.m_tLastRunTime = FromLocalTime(2026, 2, 3, 4, 5, 6);
    task.m_strLastRunResult = L"Success";
    const struct {
        const char* label;
        int column;
        const wchar_t* text;
    } cells[] = {
        {"name", kFileNameColumn, L"a.scvpr"},        {"last run", kLastRunTimeColumn, L"03/02/2026 04:05"},
        {"result", kLastRunResultColumn, L"Success"}, {"folder", kFilePathColumn, L"C:\\folder\\"},
        {"no such column", kProjectColumnCount, L""}, {"no column", -1, L""}};
    for (const auto& cell : cells) {
        EXPECT_EQ(CellText(task, cell.column, now), cell.text) << cell.label;
    }
    task.m_tLastRunTime = 0;
    EXPECT_EQ(CellText(task, kNextRunTimeColumn, now), L"25/02/2026 10:05");
    task.m_bEnable = 0;
    EXPECT_EQ(CellText(task, kNextRunTimeColumn, now), L"") << "off";
    for (const std::int64_t never : {INT64_MIN, std::int64_t{-1}, std::int64_t{0}, INT64_MAX}) {
        task.m_tLastRunTime = never;
        EXPECT_EQ(CellText(task, kLastRunTimeColumn, now), L"") << never;
    }
}

}  // namespace
