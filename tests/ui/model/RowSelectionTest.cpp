#include "ui/model/RowSelection.h"

#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTaskArray.h"
#include "ui/model/AddProjects.h"

namespace {

TEST(RowSelection, RowAfterDeletion) {
    const struct {
        const char* label;
        std::ptrdiff_t lastDeleted, rowsLeft, row;
    } cases[] = {{"nothing selected", -1, 4, -1},
                 {"the row that moved up", 1, 3, 1},
                 {"last row", 3, 3, 2},
                 {"two of four", 1, 2, 1},
                 {"none left", 0, 0, -1}};
    for (const auto& item : cases) {
        EXPECT_EQ(RowAfterDeletion(item.lastDeleted, item.rowsLeft), item.row) << item.label;
    }
}

TEST(RowSelection, OnlyTheFirstOfAListRegisters) {
    CSCVShchedulerTaskArray tasks;
    const stAddedProjects none = AddProjects(tasks, {}, 1'000'000);
    EXPECT_FALSE(none.isFirstOfList) << "nothing chosen";
    const stAddedProjects first = AddProjects(tasks, {L"C:\\b.scvpr", L"C:\\a.scvpr"}, 1'000'000);
    EXPECT_TRUE(first.isFirstOfList);
    EXPECT_EQ(first.selectPath, L"C:\\a.scvpr") << "the last one";
    tasks[0]->m_bStart = 0;
    const stAddedProjects listed = AddProjects(tasks, {L"C:\\c.scvpr", L"C:\\B.scvpr"}, 1'000'000);
    EXPECT_FALSE(listed.isFirstOfList);
    EXPECT_EQ(listed.selectPath, L"C:\\B.scvpr") << "listed before or not";
    EXPECT_EQ(tasks.GetSize(), 3);
    EXPECT_EQ(tasks[0]->m_bStart, 0) << "a listed project keeps its settings";
}

}  // namespace
