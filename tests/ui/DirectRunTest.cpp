#include "ui/DirectRun.h"

#include <gtest/gtest.h>

TEST(DirectRun, OnlyAnAnswerAboveThirtyTwoIsSuccess) {
    EXPECT_EQ(DirectRunFailure(L"C:\\p.exe", 33), L"");
    EXPECT_EQ(DirectRunFailure(L"C:\\p.exe", 32), L"Failure to run 'C:\\p.exe'. Error: 32");
    EXPECT_EQ(DirectRunFailure(L"", 2), L"Failure to run ''. Error: 2");
}
