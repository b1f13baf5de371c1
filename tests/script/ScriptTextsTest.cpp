#include "script/ScriptTexts.h"

#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "tests/support/ScriptLibrary.h"
#include "util/Csv.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

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

TEST(ScriptTexts, HelpersOfTheListedTemplates) {
    using Params = std::vector<std::wstring>;
    const struct {
        const wchar_t* language;
        std::vector<std::pair<const wchar_t*, Params>> helpers;  // of the range's second number and on
    } cases[] = {
        {L"vbscript",
         {{L"Left_String", {L"searchFor", L"reverseSearch"}},
          {L"Sub_String", {L"startSearchFor", L"endSearchFor", L"reverseSearch"}},
          {L"Right_String", {L"searchFor", L"reverseSearch"}},
          {L"Strip_Html_Tags", {}},
          {L"Replace_String", {L"findWhat", L"replaceWith"}},
          {L"Extract_Email_Addresses", {}},
          {L"Split_String", {L"strDelimiter", L"strItemIndex", L"reverseOrder"}},
          {L"Extract_Phone_Numbers", {}},
          {L"Extract_Tag_Attribute_Value", {L"attributeName", L"unique"}},
          {L"Sub_String_RegEx", {L"pattern", L"unique"}},
          {L"Trim_String", {L"searchFor"}},
          {L"Extract_Selected_Text_From_DropDownList", {}},
          {L"Download_URL", {}},
          {L"Replace_String_RegEx", {L"pattern", L"replaceWith"}},
          {L"Unescape_String", {}},
          {L"Strip_Html_Tags_2", {}},
          {L"Extract_Tags_By_Attribute", {L"tagName", L"attributeName", L"attributeValue"}},
          {L"Extract_Tags_Using_CSS_Selector", {L"strCSSSelector"}}}},
        {L"JSCRIPT",
         {{L"Left_String", {L"searchFor", L"reverseSearch"}},
          {L"Sub_String", {L"startSearchFor", L"endSearchFor", L"reverseSearch"}},
          {L"Right_String", {L"searchFor", L"reverseSearch"}},
          {L"Replace_String", {L"findWhat", L"replaceWith"}},
          {L"Split_String", {L"strDelimiter", L"strItemIndex", L"reverseOrder"}},
          {L"Trim_String", {}},
          {L"Sub_String_RegEx", {L"pattern", L"onlyUnique"}},
          {L"Replace_String_RegEx", {L"pattern", L"replacement"}},
          {L"Extract_Email_Addresses", {}},
          {L"Extract_Phone_Numbers", {}},
          {L"Download_URL", {}},
          {L"Strip_Html_Tags", {}},
          {L"Add_String_At_The_Beginning", {L"addWhat"}},
          {L"Add_String_To_The_End", {L"addWhat"}}}},
    };
    const CScriptGenerator generator(ScriptLibrary());
    for (const auto& each : cases) {
        const auto [first, last] = CScriptGenerator::GetTemplateNumbers(each.language);
        ASSERT_EQ(last - first, static_cast<std::int32_t>(each.helpers.size()));
        std::int32_t number = first;
        for (const auto& [name, params] : each.helpers) {
            SCOPED_TRACE(++number);
            EXPECT_EQ(generator.GetTemplateFunctionName(number), name);
            const CStringArray names = generator.GetTemplateParamNames(number, 1);
            EXPECT_EQ(Params(names.begin(), names.end()), params);
            EXPECT_THAT(generator.GetTemplateSignature(number), StartsWith(name + std::wstring(L" ( text")));

            const std::wstring description = generator.GetTemplateDescription(number);
            EXPECT_GT(description.size(), 40U) << "tells a user what the function does";
            const std::wstring text = ScriptLibrary().GetTemplate(number);
            for (std::size_t index = 0; index < 3; ++index) {
                const std::wstring placeholder = L"\"%PARAM_" + std::to_wstring(index + 1) + L"%\"";
                EXPECT_EQ(text.find(placeholder) != std::wstring::npos, index < params.size());
                EXPECT_TRUE(index >= params.size() || description.find(params[index]) != std::wstring::npos);
            }
        }
    }
    const auto none = CScriptGenerator::GetTemplateNumbers(L"Perl");
    EXPECT_GT(none.first, none.last);
    EXPECT_EQ(generator.GetTemplateFunctionName(62101), L"Extract_Url_From_Url_Params");
    EXPECT_EQ(generator.GetTemplateFunctionName(62102), L"Extract_Url_From_Url_Params");
}

// What the editor and the generator rely on in each of them.
TEST(ScriptTexts, EveryTemplateKeepsTheFormat) {
    constexpr std::int32_t kNumbers[] = {
#define SCRIPT_TEMPLATE(number, name, file) number,
#define SCRIPT_CATALOGUE(title, name, file)
#include "script/ScriptTexts.def"
#undef SCRIPT_TEMPLATE
#undef SCRIPT_CATALOGUE
    };
    EXPECT_EQ(std::size(kNumbers), 36U);
    const CScriptGenerator generator(ScriptLibrary());
    for (const std::int32_t number : kNumbers) {
        SCOPED_TRACE(number);
        const std::wstring text = ScriptLibrary().GetTemplate(number);
        const std::wstring helper = generator.GetTemplateSignature(number);
        const std::wstring description = generator.GetTemplateDescription(number);
        const bool isVBScript = number < 62000 || number == 62101;
        EXPECT_THAT(text,
                    StartsWith(isVBScript ? L"\r\nFunction {{MAIN_FUNCTION_NAME}} ( text, url )\r\n"
                                          : L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text, url ) {\r\n"));
        EXPECT_THAT(text, HasSubstr(isVBScript ? L"\r\n\t{{MAIN_FUNCTION_NAME}} = result\r\n"
                                               : L"\r\n\treturn result;\r\n}\r\n"));
        if (!helper.empty()) {
            EXPECT_THAT(
                text,
                HasSubstr(isVBScript
                              ? L"End Function\r\n\r\n' " + description + L"\r\nFunction " + helper + L"\r\n"
                              : L"}\r\n\r\n// " + description + L"\r\nfunction " + helper + L" {\r\n"));
        }
        // In a script of several templates no name means two things.
        const std::wregex defined(L"\r\n(?:[Ff]unction|Sub|Class|Dim|var) (\\w+)");
        for (std::wsregex_iterator each(text.begin(), text.end(), defined), none; each != none; ++each) {
            EXPECT_THAT((*each)[1].str(), StartsWith(generator.GetTemplateFunctionName(number)));
        }
        std::wstring others = text;
        for (std::size_t at = others.find(L"\r\n"); at != std::wstring::npos; at = others.find(L"\r\n", at)) {
            others.erase(at, 2);
        }
        EXPECT_TRUE(std::ranges::all_of(others, [](wchar_t unit) {
            return unit == L'\t' || (unit >= L' ' && unit <= L'~');
        })) << "ASCII, lines end with CR LF";
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
        ASSERT_THAT(text, EndsWith(L"\r\n"));
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
