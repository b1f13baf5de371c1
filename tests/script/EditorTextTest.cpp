#include "script/EditorText.h"

#include <gtest/gtest.h>

#include "script/ScriptTexts.h"

namespace {

using Names = std::vector<std::wstring>;

// Three templates of JScript, the first without a function.
class CTexts : public IScriptTexts {
public:
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override {
        std::wstring main = L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text, url ) {\r\n}\r\n";
        switch (number) {
            case 62001:
                return main;
            case 62003:
            case 62015:
            case 62101:
                return main + L"\r\n// x\r\nfunction f" + std::to_wstring(number % 10) +
                       L" ( text ) {\r\n}\r\n";
            default:
                return {};
        }
    }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view) const override { return {}; }
};

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

TEST(EditorText, CataloguesAndTemplatesAsListsOfferThem) {
    EXPECT_EQ(CatalogueEntries(L"Abs( <<number>> )\r\n\r\n \t \r\n  Chr \r\n"),
              (Names{L"Abs( <<number>> )", L"Chr"}));

    const CTexts texts;
    const CScriptGenerator generator(texts);
    const auto offered = OfferedTemplates(generator, L"jSCRIPT");
    ASSERT_EQ(offered.size(), 2U)
        << "not the main function alone, not what is missing, nothing of another list";
    EXPECT_EQ(offered[0].number, 62003);
    EXPECT_EQ(offered[0].name, L"f3");
    EXPECT_EQ(offered[1].number, 62015);
    EXPECT_TRUE(OfferedTemplates(generator, L"Perl").empty());
}

TEST(EditorText, FileTypesFollowTheExactLanguage) {
    EXPECT_STREQ(ScriptFileType(L"VBScript").filter,
                 L"VBScript (*.vbs)|*.vbs|Script Files(*.txt)|*.txt|All Files(*.*)|*.*||");
    EXPECT_STREQ(ScriptFileType(L"VBScript").extension, L"vbs");
    EXPECT_STREQ(ScriptFileType(L"JScript").filter,
                 L"Java Script (*.js)|*.js|Script Files(*.txt)|*.txt|All Files(*.*)|*.*||");
    EXPECT_STREQ(ScriptFileType(L"JScript").extension, L"js");
    EXPECT_STREQ(ScriptFileType(L"jscript").filter,
                 L"VBScript (*.vbs)|*.vbs|Java Script (*.js)|*.js|Script Files(*.txt)|*.txt|All "
                 L"Files(*.*)|*.*||");
    EXPECT_EQ(ScriptFileType(L"jscript").extension, nullptr);
}

}  // namespace
