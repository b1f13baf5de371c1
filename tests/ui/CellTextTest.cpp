#include "ui/CellText.h"

#include <gmock/gmock.h>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTask.h"

TEST(CellText, ShowsTheTaskByColumn) {
    const std::int64_t start = FromLocalTime(2026, 3, 5, 8, 7, 59);
    CSCVShchedulerTask task;
    task.m_strProjectPath = L"C:\\Data\\shop.scvpr";
    task.m_tLastRunTime = FromLocalTime(2025, 12, 31, 23, 59, 59);
    task.m_strLastRunResult = L"Success";
    task.m_tStartTime = start;
    const auto row = [&] {
        std::vector<std::wstring> cells;
        for (int column = -1; column <= 5; ++column) {
            cells.push_back(CellText(task, column, start - 1));
        }
        return cells;
    };
    EXPECT_THAT(row(), testing::ElementsAre(L"", L"shop.scvpr", L"31/12/2025 23:59", L"Success",
                                            L"05/03/2026 08:07", L"C:\\Data\\", L""));
    task.m_bEnable = 0;
    task.m_tLastRunTime = 0;
    EXPECT_THAT(row(), testing::ElementsAre(L"", L"shop.scvpr", L"", L"Success", L"", L"C:\\Data\\", L""));
    task.m_tLastRunTime = -1;
    EXPECT_EQ(CellText(task, kLastRunTimeColumn, start), L"");
    task.m_tLastRunTime = INT64_MAX;
    EXPECT_EQ(CellText(task, kLastRunTimeColumn, start), L"") << "an instant without a local time";

    // Neither a task that has run and does not repeat nor one that cannot be planned shows a next run.
    task.m_bEnable = 1;
    EXPECT_EQ(CellText(task, kNextRunTimeColumn, start), L"");
    task.m_bRepeatOnMonthly = 1;
    EXPECT_THROW(static_cast<void>(task.GetNextRunTime(start)), std::invalid_argument);
    EXPECT_EQ(CellText(task, kNextRunTimeColumn, start), L"");

    task.m_strLastRunResult.assign(255, L'r');
    task.m_strProjectPath = std::wstring(255, L'f') + L"\\" + std::wstring(255, L'n');
    for (const int column : {kFileNameColumn, kLastRunResultColumn, kFilePathColumn}) {
        EXPECT_EQ(CellText(task, column, start).size(), 254u) << column;
    }
}
