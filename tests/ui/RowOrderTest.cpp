#include "ui/RowOrder.h"

#include <gmock/gmock.h>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTaskArray.h"
#include "ui/CellText.h"

namespace {

TEST(RowOrder, ComparesByTheColumnEqualTimesAsLess) {
    const std::int64_t now = FromLocalTime(2026, 3, 5, 8, 0, 0);
    CSCVShchedulerTaskArray tasks;
    const auto add = [&](const wchar_t* path, std::int64_t lastRun, const wchar_t* result, int start,
                         int enable) {
        CSCVShchedulerTask& task = *tasks[tasks.AddTask(path, now)];
        task.m_tLastRunTime = lastRun;
        task.m_strLastRunResult = result;
        task.m_tStartTime = now + start;
        task.m_bEnable = enable;
    };
    add(L"C:\\z\\alpha.scvpr", 20, L"success", 60, 1);
    add(L"C:\\A\\BETA.scvpr", 10, L"Failure", 600, 1);
    add(L"C:\\m\\Alpha.oslpr", 10, L"SUCCESS", 60, 1);
    add(L"C:\\b\\gamma", 30, L"", 60, 0);  // without an extension the whole path is the name

    const struct {
        int column;
        std::vector<int> signs;  // of 0 to 1, 0 to 2, 2 to 0, 1 to 3, 3 to 1
    } cases[] = {{kFileNameColumn, {-1, 0, 0, -1, 1}},
                 {kLastRunResultColumn, {1, 0, 0, 1, -1}},
                 {kFilePathColumn, {1, 1, -1, -1, 1}},
                 {kLastRunTimeColumn, {1, 1, -1, -1, 1}},
                 {kNextRunTimeColumn, {-1, -1, -1, 1, -1}},
                 {-1, {1, 1, 1, 1, 1}},
                 {5, {1, 1, 1, 1, 1}}};
    for (const auto& c : cases) {
        for (const bool ascending : {true, false}) {
            const CRowOrder order(tasks, c.column, ascending, now);
            const auto sign = [&](int left, int right) {
                const int answer = order.Compare(tasks[left], tasks[right]);
                return ((answer > 0) - (answer < 0)) * (ascending ? 1 : -1);
            };
            EXPECT_EQ((std::vector{sign(0, 1), sign(0, 2), sign(2, 0), sign(1, 3), sign(3, 1)}), c.signs)
                << c.column;
            const CSCVShchedulerTask stranger;
            EXPECT_EQ(order.Compare(nullptr, tasks[0]), 0);
            EXPECT_EQ(order.Compare(tasks[0], &stranger), 0);
        }
    }
}

}  // namespace
