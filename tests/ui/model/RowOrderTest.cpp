#include "ui/model/RowOrder.h"

#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTaskArray.h"
#include "ui/model/ProjectColumns.h"

TEST(RowOrder, EqualTextsAreEqualAndTimesNever) {
    CSCVShchedulerTaskArray tasks;
    tasks.AddTask(L"C:\\a.scvpr", 1'772'000'000);
    tasks.AddTask(L"C:\\A.oslpr", 1'772'000'000);
    for (const bool ascending : {true, false}) {
        for (const int column : {kLastRunTimeColumn, kNextRunTimeColumn}) {
            const CRowOrder order(tasks, column, ascending, 1'772'000'000);
            EXPECT_EQ(order.Compare(tasks[0], tasks[1]), ascending ? -1 : 1);
            EXPECT_EQ(order.Compare(tasks[1], tasks[0]), ascending ? -1 : 1);
        }
        const CRowOrder order(tasks, kFileNameColumn, ascending, 0);
        EXPECT_EQ(order.Compare(tasks[0], tasks[1]), 0);
        EXPECT_EQ(order.Compare(tasks[0], nullptr), 0);
    }
}
