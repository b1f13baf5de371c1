#include "script/EditorText.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::wstring>;

TEST(EditorText, TheFirstLinesColumnsLagByOne) {
    const std::int64_t columns[] = {1, 1, 2, 3, 1, 2, 3, 4, 1};
    for (std::ptrdiff_t position = 0; position < std::ssize(columns); ++position) {
        EXPECT_EQ(CaretColumn(L"ab\r\ncd\r\n", position), columns[position]) << position;
    }
}

TEST(EditorText, ResultsAreJoinedWithoutEmptyOnes) {
    CStringArray results;
    EXPECT_EQ(JoinResults(results), L"");
    for (const wchar_t* result : {L"", L"a", L"", L"b c", L""}) {
        results.Add(result);
    }
    EXPECT_EQ(JoinResults(results), L"a\r\nb c");
}

TEST(EditorText, LineBreaksAreTypedAsFourCharacters) {
    EXPECT_EQ(ToParameterField(L"a\r\n\r\nb\n\r\\n"), L"a\\r\\n\\r\\nb\n\r\\n");
    EXPECT_EQ(FromParameterField(L"a\\r\\n\\r\\nb\n\r\\n"), L"a\r\n\r\nb\n\r\\n");
    EXPECT_EQ(FromParameterField(L"\\\\r\\n"), L"\\\r\n") << "no escape of the backslash";
}

TEST(EditorText, CataloguesAsListsOfferThem) {
    EXPECT_EQ(CatalogueEntries(L"Abs( <<number>> )\r\n\r\n \t \r\n  Chr \r\n"),
              (Names{L"Abs( <<number>> )", L"Chr"}));
}

}  // namespace
