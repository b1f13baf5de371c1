#include "script/ScriptGenerator.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"

namespace {

using Names = std::vector<std::wstring>;
using Template = CScriptGenerator::stTemplate;

constexpr std::int32_t kUnknown = 0;

class CTexts : public IScriptTexts {
public:
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override {
        const auto found = m_templates.find(number);
        return found == m_templates.end() ? std::wstring() : found->second;
    }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view) const override { return {}; }

    std::map<std::int32_t, std::wstring> m_templates;
};

class ScriptGenerator : public testing::Test {
protected:
    static Template Record(std::int32_t number, const Names& params = {}) {
        Template record{.number = number, .params = {}};
        for (const std::wstring& param : params) {
            record.params.Add(param);
        }
        return record;
    }
    [[nodiscard]] Names ParamNames(std::ptrdiff_t firstIndex) const {
        const CStringArray names = m_generator.GetTemplateParamNames(1, firstIndex);
        return {names.begin(), names.end()};
    }
    // `text` with its placeholders filled, its main function's name included.
    std::wstring Fill(std::wstring_view language, const std::wstring& text, const Names& params) {
        m_texts.m_templates = {{1, text}};
        const Template record = Record(1, params);
        return m_generator.InstantiateTemplate(language, &record, L"Main");
    }
    std::wstring Add(std::wstring_view language, std::wstring_view script) {
        m_texts.m_templates = {{1, L"{{MAIN_FUNCTION_NAME}}(%PARAM_1%)"}};
        const Template record = Record(1, {L"v"});
        return m_generator.AddToScript(language, script, &record);
    }

    CTexts m_texts;
    CScriptGenerator m_generator{m_texts};
};

TEST_F(ScriptGenerator, ValuesBecomeJScriptLiterals) {
    for (const wchar_t* language : {L"JScript", L"vbscript", L""}) {
        EXPECT_EQ(Fill(language, LR"(f("%PARAM_1%") %PARAM_1%)", {LR"(a\"b)"}), LR"(f("a\\\"b") a\\\"b)");
        EXPECT_EQ(Fill(language, LR"("%PARAM_1%")", {L"\r\n\n'\t"}), L"\"\\r\\n\\n'\t\"");
        EXPECT_EQ(Fill(language, LR"("%PARAM_1%")", {L"vbNewLine"}), LR"("vbNewLine")");
    }
}

TEST_F(ScriptGenerator, ValuesBecomeVBScriptLiteralsOrExpressions) {
    const struct {
        const wchar_t* value;
        const wchar_t* written;
    } cases[] = {
        {L"", LR"("")"},
        {LR"(a\"b)", LR"("a\""b")"},
        {L"vbNewLine", L"vbNewLine"},
        {LR"(vbTab + "x")", LR"(vbTab + "x")"},
        {L"VBNEWLINE vbtab", LR"("VBNEWLINE vbtab")"},
        {L"a\r\nb", LR"("a" + vbNewLine + "b")"},
        {L"\r\n", L"vbNewLine"},
        {L"\r", L"vbNewLine"},
        {L"\n\n", L"vbNewLine + vbNewLine"},
        {L"\n\r", L"vbNewLine + vbNewLine"},
        {L"\r\n\r\n\n", L"vbNewLine + vbNewLine + vbNewLine"},
        {L"\na", LR"(vbNewLine + "a")"},
        {L"a\n", LR"("a" + vbNewLine)"},
        {L"a\n\nb", LR"("a" + vbNewLine + vbNewLine + "b")"},
        {L"\na\nb\n\n\nc\n",
         LR"(vbNewLine + "a" + vbNewLine + "b" + vbNewLine + vbNewLine + vbNewLine + "c")"
         L" + vbNewLine"},
        {L"vbTab\nvbNewLine", LR"("vbTab" + vbNewLine + "vbNewLine")"},
        {L"a\"\nb", LR"("a"" + vbNewLine + "b")"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Fill(L"VBScript", LR"(f ( "%PARAM_1%" ))", {each.value}),
                  std::wstring(L"f ( ") + each.written + L" )")
            << testing::PrintToString(each.value);
    }
    EXPECT_EQ(Fill(L"VBScript", L"%PARAM_1%", {L"\"vbTab"}), L"%PARAM_1%")
        << "an expression takes the place of the quotes as well";
    EXPECT_EQ(Fill(L"VBScript", L"%PARAM_1%", {L"\"q\""}), L"\"\"q\"\"");
}

TEST_F(ScriptGenerator, PlaceholdersAreFilledInTurnAndTheNameLast) {
    const std::wstring text = L"{{MAIN_FUNCTION_NAME}} 1%PARAM_1% 2%PARAM_2% 3%PARAM_3% 4%PARAM_4% %PARAM_1%";
    for (const wchar_t* language : {kVBScript, kJScript}) {
        EXPECT_EQ(Fill(language, text, {L"a", L"b", L"c", L"d"}), L"Main 1a 2b 3c 4%PARAM_4% a");
        EXPECT_EQ(Fill(language, text, {L"a"}), L"Main 1a 2 3 4%PARAM_4% a");
        EXPECT_EQ(
            Fill(language, text, {L"%PARAM_1%%PARAM_2%", L"%PARAM_3%%PARAM_1%", L"{{MAIN_FUNCTION_NAME}}"}),
            L"Main 1%PARAM_1%Main%PARAM_1% 2Main%PARAM_1% 3Main 4%PARAM_4% %PARAM_1%Main%PARAM_1%");
    }
    EXPECT_EQ(m_generator.InstantiateTemplate(kJScript, nullptr, L"Main"), L"");
    const Template unknown = Record(kUnknown);
    EXPECT_EQ(m_generator.InstantiateTemplate(kJScript, &unknown, L"Main"), L"");
}

TEST_F(ScriptGenerator, WholeScripts) {
    m_texts.m_templates = {{1, L"\r\n<{{MAIN_FUNCTION_NAME}} %PARAM_1%>\r\n"},
                           {2, L" ({{MAIN_FUNCTION_NAME}})\t"}};
    const std::vector<Template> three{Record(1, {L"v"}), Record(kUnknown), Record(2)};
    EXPECT_EQ(m_generator.GenerateScript(kVBScript, {}), L"");
    EXPECT_EQ(m_generator.GenerateScript(kVBScript, {three.data(), 1}), L"\r\n<Main v>\r\n");
    const std::wstring functions = L"<Main1 v>\r\n\r\n\r\n (Main3)";
    EXPECT_EQ(m_generator.GenerateScript(L"vbscript", three),
              L"\r\nFunction Main ( text, url )\r\n\r\n\tMain = Main3(Main1(text, url), url)\r\n\r\n"
              L"End Function\r\n\r\n" +
                  functions);
    EXPECT_EQ(
        m_generator.GenerateScript(L"JSCRIPT", three),
        L"\r\nfunction Main ( text, url ) {\r\n\r\n\treturn Main3(Main1(text, url), url);\r\n\r\n}\r\n\r\n" +
            functions);
    EXPECT_EQ(m_generator.GenerateScript(L"Perl", three), L"\r\n\r\n\r\n" + functions + L"\t");
}

TEST_F(ScriptGenerator, AddingChainsTheResultOfMain) {
    const struct {
        const wchar_t* language;
        const wchar_t* script;
        const wchar_t* chained;
        const wchar_t* name;
    } cases[] = {
        {L"VBScript", L"", L"", L"Main"},
        {L"VBScript", L" Main = result\r\n", L" Main = Main2 ( result, url ) \r\n", L"Main2"},
        {L"vbSCRIPT", L"\r\nMain =a = b\r\nMain = c\r\n", L"\r\nMain = Main2 (a = b, url ) \r\nMain = c\r\n",
         L"Main2"},
        {L"VBScript", L" Main =\r\n", L" Main = Main2 (, url ) \r\n", L"Main2"},
        {L"VBScript", L" Main = x", L" Main = x", L"Main2"},
        {L"VBScript", L" Main  = x\r\n", L" Main  = x\r\n", L"Main2"},
        {L"VBScript", L" main = x\r\n", L" main = x\r\n", L"Main"},
        {L"VBScript", L" Main2 = x\r\n Main = Main2\r\n", L" Main2 = x\r\n Main = Main3 ( Main2, url ) \r\n",
         L"Main3"},
        {L"VBScript", L"Main2 Main Main4", L"Main2 Main Main4", L"Main"},
        {L"VBScript", L" Main Main3", L" Main Main3", L"Main2"},
        {L"VBScript", L" Main Main10 Main2", L" Main Main10 Main2", L"Main3"},
        {L"VBScript", L"Main = x\r\n Main = y\r\n", L"Main = x\r\n Main = y\r\n", L"Main"},
        {L"JScript", L" Main() { return result; }", L" Main() { return Main2 ( result, url ) ; }", L"Main2"},
        {L"jscript", L"helper() { return a; } Main() { return b; }",
         L"helper() { return Main2 ( a, url ) ; } Main() { return b; }", L"Main2"},
        {L"JScript", L" Main() { return a + b; return a + b; }",
         L" Main() { return Main2 ( a + b, url ) ; return a + b; }", L"Main2"},
        {L"JScript", L" Main() { return(x); }", L" Main() { return Main2 ((x), url ) ; }", L"Main2"},
        {L"JScript", L" Main() { return result }", L" Main() { return result }", L"Main2"},
        {L"JScript", L" Main() { ; }", L" Main() { ; }", L"Main2"},
        {L"JScript", L" no function, return x;", L" no function, return x;", L"Main"},
        {L"JScript", L"Main() { return x; }", L"Main() { return x; }", L"Main"},
        {L"Perl", L" Main = x\r\n return y;", L" Main = x\r\n return y;", L"Main2"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Add(each.language, each.script),
                  std::wstring(each.chained) + L"\r\n\r\n" + each.name + L"(v)")
            << testing::PrintToString(each.script);
    }
    EXPECT_EQ(m_generator.AddToScript(kJScript, L"script", nullptr), L"");
}

TEST_F(ScriptGenerator, ReadsAHelperOutOfATemplate) {
    const struct {
        const wchar_t* text;
        const wchar_t* signature;
        const wchar_t* name;
        Names params;
        const wchar_t* description;
    } cases[] = {
        {L"\r\nFunction {{MAIN_FUNCTION_NAME}} ( text )\r\nEnd Function\r\n\r\n' Says it.\r\n"
         L"Function  Left_String  ( text ,  more )\r\n( x )",
         L"Left_String ( text , more )",
         L"Left_String",
         {L"text", L"more"},
         L"Says it."},
        {L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text ) {\r\n}\r\n\r\n// ''/ It's. \r\nfunction f(){",
         L"f()",
         L"f",
         {},
         L"''/ It's."},
        {L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text ) {\r\n}\r\n", L"", L"", {}, L""},
        {L"{{MAIN_FUNCTION_NAME}}\r\nfunction a ( text )\r\nFunction b ( text )\r\n'''//  d '",
         L"b ( text )",
         L"b",
         {L"text"},
         L"d '"},
        {L"\r\nFunction a ( {{MAIN_FUNCTION_NAME}}\r\nfunction b ) c", L"b )", L"b )", {}, L""},
        {L"\r\nFunction a ( text )\r\n", L"", L"", {}, L""},
        {L"x\r\nFunction a ( text", L"", L"", {}, L""},
        {L"x\r\nFunction (a,)", L"(a,)", L"", {}, L""},
        {L"\r\n' first\r\n// second\r\n", L"", L"", {}, L""},
        {L"x\r\n// second\r\n' first\r\n", L"", L"", {}, L"first"},
        {L"x\r\n'/'\r\n", L"", L"", {}, L"'"},
        {L"x\r\n'\r\n", L"", L"", {}, L""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.text));
        m_texts.m_templates = {{1, each.text}};
        EXPECT_EQ(m_generator.GetTemplateSignature(1), each.signature);
        EXPECT_EQ(m_generator.GetTemplateFunctionName(1), each.name);
        EXPECT_EQ(ParamNames(0), each.params);
        EXPECT_EQ(m_generator.GetTemplateDescription(1), each.description);
    }
    m_texts.m_templates = {{1, L"x\r\nFunction f ( a , b , c )"}};
    EXPECT_EQ(ParamNames(1), (Names{L"b", L"c"}));
    EXPECT_EQ(ParamNames(-1), (Names{L"a", L"b", L"c"}));
    EXPECT_EQ(ParamNames(3), Names{});
}

}  // namespace
