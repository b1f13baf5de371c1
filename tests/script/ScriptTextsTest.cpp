#include "script/ScriptTexts.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "tests/support/ScriptLibrary.h"
#include "util/Csv.h"

namespace {

TEST(ScriptTexts, MainFunctions) {
    EXPECT_EQ(ScriptLibrary().GetTemplate(61318),
              L"\r\nFunction {{MAIN_FUNCTION_NAME}} ( text, url )\r\n\r\n\tdim result\r\n\r\n\tresult = "
              L"text\r\n\r\n"
              L"\t{{MAIN_FUNCTION_NAME}} = result\r\n\r\nEnd Function\r\n");
    EXPECT_EQ(ScriptLibrary().GetTemplate(62001),
              L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text, url ) {\r\n\tvar result;\r\n\t\r\n\tresult = "
              L"text;\r\n\r\n"
              L"\treturn result;\r\n}\r\n");
    const CScriptGenerator generator(ScriptLibrary());
    for (const std::int32_t number : {61318, 62001}) {
        EXPECT_EQ(generator.GetTemplateSignature(number), L"");
        EXPECT_EQ(generator.GetTemplateDescription(number), L"");
    }
    for (const std::int32_t number : {-1, 0, 61317, 61337, 62000, 62016, 0x10000 + 62001}) {
        EXPECT_EQ(ScriptLibrary().GetTemplate(number), L"") << number;
    }
}

TEST(ScriptTexts, CataloguesListWhatALanguageHas) {
    const struct {
        const wchar_t* language;
        std::size_t entries;
        const wchar_t* form;
        std::vector<std::wstring> among;
    } cases[] = {
        {L"vbscript",
         128,
         L"[A-Z]([A-Za-z0-9 .,()=]|<<[a-z]+[12]?>>|<<end\\(\\[Step-step\\]\\)>>)*",
         {L"Abs( <<number>> )", L"DateAdd( <<interval>> , <<number>> , <<date>> )",
          L"For <<counter>> = <<start>> To <<end([Step-step])>>"}},
        {L"JSCRIPT", 220, L"[A-Za-z0-9_]+", {L"abs", L"charAt", L"CreateTextFile"}},
    };
    for (const auto& each : cases) {
        const std::wstring text = ScriptLibrary().GetCatalogue(each.language);
        ASSERT_THAT(text, testing::EndsWith(L"\r\n"));
        CCsv lines;
        lines.Split(text.substr(0, text.size() - 2), L'\n', false, false);
        const std::set<std::wstring> entries(lines.begin(), lines.end());
        EXPECT_EQ(entries.size(), each.entries) << "no line twice";
        EXPECT_EQ(lines.GetSize(), static_cast<std::ptrdiff_t>(each.entries));
        EXPECT_EQ(std::ranges::count(text, L'\r'), std::ranges::count(text, L'\n'));
        for (const std::wstring& entry : entries) {
            EXPECT_TRUE(std::regex_match(entry, std::wregex(each.form))) << testing::PrintToString(entry);
        }
        for (const std::wstring& entry : each.among) {
            EXPECT_TRUE(entries.contains(entry)) << testing::PrintToString(entry);
        }
    }
    EXPECT_EQ(ScriptLibrary().GetCatalogue(L"Perl"), L"");
}

}  // namespace
