#include "util/CaseFold.h"

#include <gtest/gtest.h>

TEST(CaseFold, LettersOfAnyScriptCompareWithoutCase) {
    EXPECT_TRUE(EqualNoCase(L"C:\\A.SCVPR", L"c:\\a.scvpr"));
    EXPECT_TRUE(EqualNoCase(L"\u0426\u0435\u043d\u044b", L"\u0446\u0415\u041d\u042b"));
    EXPECT_TRUE(EqualNoCase(L"\u00c4\u00d6", L"\u00e4\u00f6"));
    EXPECT_FALSE(EqualNoCase(L"a", L"ab"));
    EXPECT_FALSE(EqualNoCase(L"\u4fa1", L"\u683c"));
}

TEST(CaseFold, OrderIsThatOfTheUpperCaseUnitsThenOfTheLength) {
    EXPECT_LT(CompareNoCase(L"abc", L"ABD"), 0);
    EXPECT_GT(CompareNoCase(L"abcd", L"ABC"), 0);
    EXPECT_EQ(CompareNoCase(L"", L""), 0);
    EXPECT_LT(CompareNoCase(L"z", L"_"), 0) << "letters stand before the underscore, as their capitals do";
}
