#include "script/ScriptTexts.h"

#include <gmock/gmock.h>

#include <array>
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

constexpr auto kNumbers = std::to_array<std::int32_t>({
#define SCRIPT_TEMPLATE(number, name, file) number,
#define SCRIPT_CATALOGUE(title, name, file)
#include "script/ScriptTexts.def"
#undef SCRIPT_TEMPLATE
#undef SCRIPT_CATALOGUE
});

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

TEST(ScriptTexts, HelpersByNumber) {
    const struct {
        std::wstring name;
        std::vector<std::int32_t> numbers;
        std::vector<std::wstring> params;
    } helpers[] = {
        {L"Left_String", {61319, 62002}, {L"searchFor", L"reverseSearch"}},
        {L"Sub_String", {61320, 62003}, {L"startSearchFor", L"endSearchFor", L"reverseSearch"}},
        {L"Right_String", {61321, 62004}, {L"searchFor", L"reverseSearch"}},
        {L"Strip_Html_Tags", {61322, 62013}, {}},
        {L"Replace_String", {61323, 62005}, {L"findWhat", L"replaceWith"}},
        {L"Extract_Email_Addresses", {61324, 62010}, {}},
        {L"Split_String", {61325, 62006}, {L"strDelimiter", L"strItemIndex", L"reverseOrder"}},
        {L"Extract_Phone_Numbers", {61326, 62011}, {}},
        {L"Extract_Tag_Attribute_Value", {61327}, {L"attributeName", L"unique"}},
        {L"Sub_String_RegEx", {61328}, {L"pattern", L"unique"}},
        {L"Sub_String_RegEx", {62008}, {L"pattern", L"onlyUnique"}},
        {L"Trim_String", {61329}, {L"searchFor"}},
        {L"Trim_String", {62007}, {}},
        {L"Extract_Selected_Text_From_DropDownList", {61330}, {}},
        {L"Download_URL", {61331, 62012}, {}},
        {L"Replace_String_RegEx", {61332}, {L"pattern", L"replaceWith"}},
        {L"Replace_String_RegEx", {62009}, {L"pattern", L"replacement"}},
        {L"Unescape_String", {61333}, {}},
        {L"Strip_Html_Tags_2", {61334}, {}},
        {L"Extract_Tags_By_Attribute", {61335}, {L"tagName", L"attributeName", L"attributeValue"}},
        {L"Extract_Tags_Using_CSS_Selector", {61336}, {L"strCSSSelector"}},
        {L"Add_String_At_The_Beginning", {62014}, {L"addWhat"}},
        {L"Add_String_To_The_End", {62015}, {L"addWhat"}},
        {L"Extract_Url_From_Url_Params", {62101, 62102}, {}},
    };
    const CScriptGenerator generator(ScriptLibrary());
    std::size_t count = 0;
    for (const auto& helper : helpers) {
        for (const std::int32_t number : helper.numbers) {
            SCOPED_TRACE(number);
            ++count;
            EXPECT_EQ(generator.GetTemplateFunctionName(number), helper.name);
            const CStringArray names = generator.GetTemplateParamNames(number, 1);
            EXPECT_EQ(std::vector(names.begin(), names.end()), helper.params);
            EXPECT_THAT(generator.GetTemplateSignature(number), StartsWith(helper.name + L" ( text"));

            const std::wstring description = generator.GetTemplateDescription(number);
            EXPECT_GT(description.size(), 40U) << "tells a user what the function does";
            const std::wstring text = ScriptLibrary().GetTemplate(number);
            for (std::size_t index = 0; index < 3; ++index) {
                const std::wstring placeholder = L"\"%PARAM_" + std::to_wstring(index + 1) + L"%\"";
                const bool isTaken = index < helper.params.size();
                EXPECT_EQ(text.find(placeholder) != std::wstring::npos, isTaken);
                EXPECT_TRUE(!isTaken || description.find(helper.params[index]) != std::wstring::npos);
            }
        }
    }
    EXPECT_EQ(count, kNumbers.size() - 2) << "but the two main functions";
    const struct {
        const wchar_t* language;
        std::int32_t first, last;
    } ranges[] = {{L"vbscript", 61318, 61336}, {L"JSCRIPT", 62001, 62015}};
    for (const auto& range : ranges) {
        const auto [first, last] = CScriptGenerator::GetTemplateNumbers(range.language);
        EXPECT_EQ(first, range.first);
        EXPECT_EQ(last, range.last);
    }
    const auto none = CScriptGenerator::GetTemplateNumbers(L"Perl");
    EXPECT_GT(none.first, none.last);
}

// What the editor and the generator rely on in each of them.
TEST(ScriptTexts, EveryTemplateKeepsTheFormat) {
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
