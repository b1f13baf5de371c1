#include "script/EditorText.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::wstring>;

TEST(EditorText, TheFirstLinesColumnsLagByOne) {
    const struct {
        std::int64_t position, column;
    } cases[] = {{-1, 1}, {0, 1}, {1, 1}, {2, 2}, {3, 3}, {4, 1}, {5, 2}, {6, 3}, {7, 4}, {8, 1}, {99, 92}};
    for (const auto& item : cases) {
        EXPECT_EQ(CaretColumn(L"ab\r\ncd\r\n", item.position), item.column) << item.position;
    }
    EXPECT_EQ(CaretText(12, 3), L"Ln 12, Col 3");
}

TEST(EditorText, ResultsStandOneALineWithoutEmptyOnes) {
    const struct {
        Names results;
        const wchar_t* text;
    } cases[] = {{{}, L""},
                 {{L"a"}, L"a"},
                 {{L"a", L"b c"}, L"a\r\nb c"},
                 {{L"", L"", L"a", L"", L"b", L""}, L"a\r\nb"}};
    for (const auto& item : cases) {
        CStringArray results;
        for (const std::wstring& result : item.results) {
            results.Add(result);
        }
        EXPECT_EQ(JoinResults(results), item.text);
    }
}

TEST(EditorText, LineBreaksAreTypedAsFourCharacters) {
    const struct {
        const wchar_t* value;
        const wchar_t* field;
    } cases[] = {
        {L"", L""}, {L"\r\n\r\n", L"\\r\\n\\r\\n"}, {L"a\r\nb", L"a\\r\\nb"}, {L"\n\ra\\n", L"\n\ra\\n"}};
    for (const auto& item : cases) {
        EXPECT_EQ(ToParameterField(item.value), item.field);
        EXPECT_EQ(FromParameterField(item.field), item.value);
    }
    EXPECT_EQ(FromParameterField(L"\\\\r\\n"), L"\\\r\n") << "no escape of the backslash";
}

TEST(EditorText, CataloguesAsListsOfferThem) {
    EXPECT_EQ(CatalogueEntries(L"Abs( <<number>> )\r\n\r\n \t \r\n  Chr \r\n"),
              (Names{L"Abs( <<number>> )", L"Chr"}));
}

}  // namespace
