#include "script/ScriptGenerator.h"

#include <gtest/gtest.h>

#include <vector>

#include "script/ScriptLanguages.h"
#include "script/ScriptTexts.h"

namespace {

using Names = std::vector<std::wstring>;
using Template = CScriptGenerator::stTemplate;

// Each template, but for number 0, is the same text.
struct CTexts : IScriptTexts {
    [[nodiscard]] std::wstring GetTemplate(std::int32_t number) const override {
        return number == 0 ? std::wstring() : text;
    }
    [[nodiscard]] std::wstring GetCatalogue(std::wstring_view) const override { return {}; }

    std::wstring text;
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
    std::wstring Fill(std::wstring_view language, const std::wstring& text, const Names& params) {
        m_texts.text = text;
        const Template record = Record(1, params);
        return m_generator.InstantiateTemplate(language, &record, L"Main");
    }

    CTexts m_texts;
    CScriptGenerator m_generator{m_texts};
};

TEST_F(ScriptGenerator, ValuesBecomeLiteralsOrExpressions) {
    const struct {
        const char* label;
        const wchar_t* language;
        const wchar_t* value;
        const wchar_t* written;
    } cases[] = {
        {"JScript: what a literal escapes", L"JScript", L"a\\\"b\r\n\n'\t", L"\"a\\\\\\\"b\\r\\n\\n'\t\""},
        {"JScript: vbNewLine is text", L"JScript", L"vbNewLine", LR"("vbNewLine")"},
        {"quotes are doubled", L"VBScript", LR"(a\"b)", LR"("a\""b")"},
        {"vbNewLine is an expression", L"VBScript", L"vbNewLine", L"vbNewLine"},
        {"vbTab is an expression", L"VBScript", LR"(vbTab + "x")", LR"(vbTab + "x")"},
        {"line break inside", L"VBScript", L"a\r\nb", LR"("a" + vbNewLine + "b")"},
        {"line breaks alone", L"VBScript", L"\r\n\r\n\n", L"vbNewLine + vbNewLine + vbNewLine"},
        {"line breaks around", L"VBScript", L"\na\n\nb\n",
         LR"(vbNewLine + "a" + vbNewLine + vbNewLine + "b" + vbNewLine)"},
        {"words beside a line break are text", L"VBScript", L"vbTab\nvbNewLine",
         LR"("vbTab" + vbNewLine + "vbNewLine")"},
        {"quotes beside a line break stay single", L"VBScript", L"a\"\nb", LR"("a"" + vbNewLine + "b")"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Fill(each.language, LR"(f ( "%PARAM_1%" ))", {each.value}),
                  std::wstring(L"f ( ") + each.written + L" )")
            << each.label;
    }
}

TEST_F(ScriptGenerator, FillsPlaceholdersInTurnAndTheNameLast) {
    const std::wstring text = L"{{MAIN_FUNCTION_NAME}} 1%PARAM_1% 2%PARAM_2% 3%PARAM_3% 4%PARAM_4% %PARAM_1%";
    for (const wchar_t* language : {kVBScript, kJScript}) {
        EXPECT_EQ(Fill(language, text, {L"a", L"b", L"c", L"d"}), L"Main 1a 2b 3c 4%PARAM_4% a");
        EXPECT_EQ(Fill(language, text, {L"%PARAM_1%%PARAM_2%", L"{{MAIN_FUNCTION_NAME}}"}),
                  L"Main 1%PARAM_1%Main 2Main 3 4%PARAM_4% %PARAM_1%Main");
    }
}

TEST_F(ScriptGenerator, WholeScripts) {
    m_texts.text = L"\r\n<{{MAIN_FUNCTION_NAME}} %PARAM_1%>\r\n";
    const std::vector<Template> three{Record(1, {L"v"}), Record(0), Record(2)};
    EXPECT_EQ(m_generator.GenerateScript(kVBScript, {}), L"");
    EXPECT_EQ(m_generator.GenerateScript(kVBScript, {three.data(), 1}), L"\r\n<Main v>\r\n");
    const std::wstring functions = L"<Main1 v>\r\n\r\n\r\n\r\n<Main3 >";
    EXPECT_EQ(m_generator.GenerateScript(L"vbscript", three),
              L"\r\nFunction Main ( text, url )\r\n\r\n\tMain = Main3(Main1(text, url), url)\r\n\r\n"
              L"End Function\r\n\r\n" +
                  functions);
    EXPECT_EQ(
        m_generator.GenerateScript(L"JSCRIPT", three),
        L"\r\nfunction Main ( text, url ) {\r\n\r\n\treturn Main3(Main1(text, url), url);\r\n\r\n}\r\n\r\n" +
            functions);
}

TEST_F(ScriptGenerator, AddingChainsTheResultOfMain) {
    const struct {
        const char* label;
        const wchar_t* language;
        const wchar_t* script;
        const wchar_t* chained;
        const wchar_t* name;
    } cases[] = {
        {"empty script", L"VBScript", L"", L"", L"Main"},
        {"first statement of two", L"vbSCRIPT", L"\r\nMain =a = b\r\nMain = c\r\n",
         L"\r\nMain = Main2 (a = b, url ) \r\nMain = c\r\n", L"Main2"},
        {"no line break behind it", L"VBScript", L" Main = x", L" Main = x", L"Main2"},
        {"Main2 is taken", L"VBScript", L" Main2 = x\r\n Main = Main2\r\n",
         L" Main2 = x\r\n Main = Main3 ( Main2, url ) \r\n", L"Main3"},
        {"Main10 is none of those tried", L"VBScript", L" Main Main10 Main2", L" Main Main10 Main2",
         L"Main3"},
        {"JScript: first return, a helper's", L"jscript", L"helper() { return a; } Main() { return b; }",
         L"helper() { return Main2 ( a, url ) ; } Main() { return b; }", L"Main2"},
        {"JScript: bracket", L"JScript", L" Main() { return(x); }", L" Main() { return Main2 ((x), url ) ; }",
         L"Main2"},
        {"JScript: no semicolon", L"JScript", L" Main() { return result }", L" Main() { return result }",
         L"Main2"},
    };
    m_texts.text = L"{{MAIN_FUNCTION_NAME}}(%PARAM_1%)";
    const Template record = Record(1, {L"v"});
    for (const auto& each : cases) {
        EXPECT_EQ(m_generator.AddToScript(each.language, each.script, &record),
                  std::wstring(each.chained) + L"\r\n\r\n" + each.name + L"(v)")
            << each.label;
    }
}

TEST_F(ScriptGenerator, ReadsAHelperOutOfATemplate) {
    const struct {
        const char* label;
        const wchar_t* text;
        const wchar_t* name;
        Names params;
        const wchar_t* description;
    } cases[] = {
        {"VBScript",
         L"\r\nFunction {{MAIN_FUNCTION_NAME}} ( text )\r\nEnd Function\r\n\r\n' Says it.\r\n"
         L"Function  Left_String  ( text ,  more )\r\n( x )",
         L"Left_String",
         {L"text", L"more"},
         L"Says it."},
        {"JScript",
         L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text ) {\r\n}\r\n\r\n// ''/ It's. \r\nfunction f(){",
         L"f",
         {},
         L"''/ It's."},
        {"no helper", L"\r\nfunction {{MAIN_FUNCTION_NAME}} ( text ) {\r\n}\r\n", L"", {}, L""},
        {"no name", L"x\r\nFunction (a,)", L"", {}, L""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.label);
        m_texts.text = each.text;
        EXPECT_EQ(m_generator.GetTemplateFunctionName(1), each.name);
        const CStringArray params = m_generator.GetTemplateParamNames(1, -1);
        EXPECT_EQ(Names(params.begin(), params.end()), each.params);
        EXPECT_EQ(m_generator.GetTemplateDescription(1), each.description);
    }
}

}  // namespace
