#include "ui/RowOrder.h"

#include <gmock/gmock.h>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTaskArray.h"
#include "ui/CellText.h"

namespace {

using testing::ElementsAre;

class RowOrder : public testing::Test {
protected:
    RowOrder() {
        Add(L"C:\\z\\alpha.scvpr", 20, L"success", m_now + 60, 1);
        Add(L"C:\\A\\BETA.scvpr", 10, L"Failure", m_now + 600, 1);
        Add(L"C:\\m\\Alpha.oslpr", 10, L"SUCCESS", m_now + 60, 1);
        Add(L"C:\\b\\gamma", 30, L"", m_now + 60, 0);  // without an extension the whole path is the name
    }

    void Add(const wchar_t* path, std::int64_t lastRun, const wchar_t* result, std::int64_t start,
             std::int32_t enable) {
        CSCVShchedulerTask& task = *m_tasks[m_tasks.AddTask(path, m_now)];
        task.m_tLastRunTime = lastRun;
        task.m_strLastRunResult = result;
        task.m_tStartTime = start;
        task.m_bEnable = enable;
    }

    // The signs of 0 to 1, 0 to 2, 2 to 0, 1 to 3, 3 to 1.
    std::vector<int> Signs(int column, bool ascending) {
        const CRowOrder order(m_tasks, column, ascending, m_now);
        const auto sign = [&](int left, int right) {
            const int answer = order.Compare(m_tasks[left], m_tasks[right]);
            return (answer > 0) - (answer < 0);
        };
        return {sign(0, 1), sign(0, 2), sign(2, 0), sign(1, 3), sign(3, 1)};
    }

    std::int64_t m_now = FromLocalTime(2026, 3, 5, 8, 0, 0);
    CSCVShchedulerTaskArray m_tasks;
};

TEST_F(RowOrder, TextsCompareWithoutRegardToCase) {
    EXPECT_THAT(Signs(kFileNameColumn, true), ElementsAre(-1, 0, 0, -1, 1));
    EXPECT_THAT(Signs(kFileNameColumn, false), ElementsAre(1, 0, 0, 1, -1));
    EXPECT_THAT(Signs(kLastRunResultColumn, true), ElementsAre(1, 0, 0, 1, -1));
    EXPECT_THAT(Signs(kFilePathColumn, true), ElementsAre(1, 1, -1, -1, 1));
    EXPECT_THAT(Signs(kFilePathColumn, false), ElementsAre(-1, -1, 1, 1, -1));
}

TEST_F(RowOrder, EqualTimesCompareAsLess) {
    EXPECT_THAT(Signs(kLastRunTimeColumn, true), ElementsAre(1, 1, -1, -1, 1));
    EXPECT_THAT(Signs(kLastRunTimeColumn, false), ElementsAre(-1, -1, 1, 1, -1));
    EXPECT_THAT(Signs(kNextRunTimeColumn, true), ElementsAre(-1, -1, -1, 1, -1));
    EXPECT_THAT(Signs(kNextRunTimeColumn, false), ElementsAre(1, 1, 1, -1, 1));
}

TEST_F(RowOrder, AnUnknownColumnAnswersOneSign) {
    for (const int column : {-1, 5, 99}) {
        EXPECT_THAT(Signs(column, true), ElementsAre(1, 1, 1, 1, 1));
        EXPECT_THAT(Signs(column, false), ElementsAre(-1, -1, -1, -1, -1));
    }
}

TEST_F(RowOrder, ARowWithoutATaskIsEqualToAll) {
    const CSCVShchedulerTask stranger;
    for (const int column : {-1, 0, 1}) {
        const CRowOrder order(m_tasks, column, true, m_now);
        EXPECT_EQ(order.Compare(nullptr, m_tasks[0]), 0);
        EXPECT_EQ(order.Compare(m_tasks[0], nullptr), 0);
        EXPECT_EQ(order.Compare(&stranger, m_tasks[0]), 0);
    }
}

}  // namespace
