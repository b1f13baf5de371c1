#include "ui/CellText.h"

#include <gmock/gmock.h>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTask.h"

namespace {

// Not a constant: the time zone is taken up only when the test program starts.
std::int64_t Start() {
    return FromLocalTime(2026, 3, 5, 8, 7, 59);
}

TEST(CellText, ShowsTheTaskByColumn) {
    CSCVShchedulerTask task;
    task.m_strProjectPath = L"C:\\Data\\shop.scvpr";
    task.m_tLastRunTime = FromLocalTime(2025, 12, 31, 23, 59, 59);
    task.m_strLastRunResult = L"Success";
    task.m_tStartTime = Start();
    const auto row = [&] {
        std::vector<std::wstring> cells;
        for (int column = -1; column <= 5; ++column) {
            cells.push_back(CellText(task, column, Start() - 1));
        }
        return cells;
    };
    EXPECT_THAT(row(), testing::ElementsAre(L"", L"shop.scvpr", L"31/12/2025 23:59", L"Success",
                                            L"05/03/2026 08:07", L"C:\\Data\\", L""));

    task.m_bEnable = 0;
    task.m_tLastRunTime = 0;
    EXPECT_THAT(row(), testing::ElementsAre(L"", L"shop.scvpr", L"", L"Success", L"", L"C:\\Data\\", L""));
    task.m_tLastRunTime = -1;
    EXPECT_EQ(CellText(task, kLastRunTimeColumn, Start()), L"");
    task.m_tLastRunTime = INT64_MAX;
    EXPECT_EQ(CellText(task, kLastRunTimeColumn, Start()), L"") << "an instant without a local time";
}

TEST(CellText, ATaskThatNeverRunsOrCannotBePlannedShowsNoNextRun) {
    CSCVShchedulerTask task;
    task.m_tStartTime = Start();
    task.m_tLastRunTime = Start();
    EXPECT_EQ(CellText(task, kNextRunTimeColumn, Start()), L"") << "has run and does not repeat";
    EXPECT_EQ(ShownNextRunTime(task, Start()), 0);

    task.m_bRepeatOnMonthly = 1;
    task.m_tLastRunTime = INT64_MAX;
    EXPECT_THROW(static_cast<void>(task.GetNextRunTime(Start())), std::invalid_argument);
    EXPECT_EQ(CellText(task, kNextRunTimeColumn, Start()), L"");
}

TEST(CellText, LongTextsAreCut) {
    CSCVShchedulerTask task;
    for (const std::size_t length : {254u, 255u, 300u}) {
        task.m_strLastRunResult.assign(length, L'r');
        task.m_strProjectPath = std::wstring(length - 1, L'f') + L"\\" + std::wstring(length, L'n');
        for (const int column : {kFileNameColumn, kLastRunResultColumn, kFilePathColumn}) {
            EXPECT_EQ(CellText(task, column, Start()).size(), 254u) << length << " in " << column;
        }
    }
}

}  // namespace
