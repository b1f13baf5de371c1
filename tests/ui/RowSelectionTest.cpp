#include "ui/RowSelection.h"

#include <gtest/gtest.h>

#include "core/SCVShchedulerTaskArray.h"

TEST(RowSelection, FindsAPathsRowAndTheOneAfterADeletion) {
    CSCVShchedulerTaskArray tasks;
    for (const wchar_t* path : {L"C:\\b", L"C:\\a", L"", L"C:\\A"}) {
        tasks.AddTask(path, 0);
    }
    EXPECT_EQ(RowAtProjectsPosition(tasks, L"c:\\A"), 1) << "any case, first in the array";
    EXPECT_EQ(RowAtProjectsPosition(tasks, L""), -1) << "even with a task of that path";

    const CSCVShchedulerTask* rows[] = {nullptr, tasks[3], tasks[1], tasks[0], tasks[1]};
    const auto taskOfRow = [&](std::ptrdiff_t row) { return rows[row]; };
    EXPECT_EQ(FindRowByPath(5, taskOfRow, L"C:\\a"), 2) << "first row of exactly this path";
    EXPECT_EQ(FindRowByPath(5, taskOfRow, L"c:\\a"), -1);
    EXPECT_EQ(FindRowByPath(2, taskOfRow, L"C:\\b"), -1) << "no further than the last row";

    const struct {
        std::ptrdiff_t lastDeleted, rowsLeft, row;
    } cases[] = {{2, 3, 2}, {3, 3, 2}, {9, 3, 2}, {0, 0, -1}, {-1, 3, -1}};
    for (const auto& c : cases) {
        EXPECT_EQ(RowAfterDeletion(c.lastDeleted, c.rowsLeft), c.row) << c.lastDeleted << ' ' << c.rowsLeft;
    }
}
