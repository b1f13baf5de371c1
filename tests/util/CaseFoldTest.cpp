#include "util/CaseFold.h"

#include <gtest/gtest.h>

TEST(CaseFold, OrdersByUpperCaseUnitsThenLength) {
    EXPECT_LT(CompareNoCase(L"abc", L"ABCD"), 0);
    EXPECT_LT(CompareNoCase(L"z", L"_"), 0) << "letters come before the underscore, as their capitals do";
}
