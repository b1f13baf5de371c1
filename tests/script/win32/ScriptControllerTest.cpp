// Both hosts in both languages, in the real engines.
#include <gmock/gmock.h>

#include <memory>
#include <thread>

#include "script/ScriptLanguages.h"
#include "script/win32/ActiveScriptController.h"
#include "script/win32/ComError.h"
#include "script/win32/MSScriptController.h"
#include "script/win32/ScriptControllerFactory.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/ProcessUse.h"
#include "util/win32/ComApartment.h"

namespace {

using testing::IsEmpty;
using Texts = std::vector<std::wstring>;

// Whether the host is the Script Control or Active Scripting, and the language JScript or VBScript.
class ScriptController : public testing::TestWithParam<std::tuple<bool, bool>> {
protected:
    ScriptController() { EXPECT_EQ(m_controller->Create(m_language), 1); }

    [[nodiscard]] std::unique_ptr<IScriptController> Make() const {
        if (m_isControl) {
            return std::make_unique<CMSScriptController>();
        }
        return std::make_unique<CActiveScriptController>();
    }
    // The one of two scripts that is in the language tested.
    [[nodiscard]] std::wstring Script(const wchar_t* jscript, const wchar_t* vbscript) const {
        return m_isJScript ? jscript : vbscript;
    }
    // The flag and the results.
    std::pair<int, Texts> Run(const std::wstring& function, const Texts& arguments) {
        CStringArray list;
        for (const std::wstring& argument : arguments) {
            list.Add(argument);
        }
        CStringArray results;
        const int flag = m_controller->Run(function, &list, results);
        return {flag, Texts(results.begin(), results.end())};
    }
    CScriptErrorInfo LastError() {
        CScriptErrorInfo error{L"stale", L"stale", -1, -1, L"stale"};
        m_controller->GetErrorInfo(error.source, error.description, error.line, error.column, error.text);
        return error;
    }

    const bool m_isControl = std::get<0>(GetParam());
    const bool m_isJScript = std::get<1>(GetParam());
    const std::wstring m_language = Script(kJScript, kVBScript);
    const std::wstring m_other = Script(kVBScript, kJScript);
    const int m_missing = m_isControl ? -1 : 0;  // the number of parameters of a function that does not exist
    const std::wstring m_sample =
        Script(L"function Main ( text, url ) {\r\n  return text + '|' + url;\r\n}\r\nfunction None() {}\r\n",
               L"Function Main ( text, url )\r\n  Main = text & \"|\" & url\r\nEnd Function\r\n"
               L"Function None()\r\nEnd Function\r\n");
    CComApartment m_apartment;
    MessageRecorder m_boxes;
    std::unique_ptr<IScriptController> m_controller = Make();
};

INSTANTIATE_TEST_SUITE_P(Hosts, ScriptController, testing::Combine(testing::Bool(), testing::Bool()));

TEST_P(ScriptController, ResultsBecomeTexts) {
    const struct {
        const wchar_t* jscript;  // what the function does; null where the language has nothing like it
        const wchar_t* vbscript;
        int flag;
        Texts results;
    } cases[] = {
        {L"return c.length + b + a.length;", L"F = Len(c) & b & Len(a)", 1, {L"3\"'\\\r\n\u4fa1\U0001F6000"}},
        {L"", L"", 1, {L""}},
        {L"return -7;", L"F = -7", 1, {L"-7"}},
        {L"return true;", L"F = True", 1, {L"-1"}},
        {L"return null;", L"F = Null", 0, {}},
        {L"return [1, 'x'];", nullptr, 1, {L"1,x"}},
        {nullptr, L"F = Array(1, Null, \"x\", Empty)", 1, {L"1", L"x", L""}},
        {nullptr, L"F = Array(\"x\", Null)", 0, {L"x"}},
        {nullptr, L"F = Array()", 1, {}},
        {nullptr, L"Dim d(1, 1)\nd(0, 0) = 1\nd(1, 0) = 2\nd(0, 1) = 3\nF = d", 1, {L"1", L"2", L"3", L""}},
    };
    for (const auto& each : cases) {
        const wchar_t* const body = m_isJScript ? each.jscript : each.vbscript;
        if (body != nullptr) {
            ASSERT_EQ(m_controller->AddCode(Script(L"function F(a, b, c) {", L"Function F(a, b, c)\n") +
                                            body + Script(L"}", L"\nEnd Function")),
                      1);
            EXPECT_EQ(Run(L"F", {L"", L"\"'\\\r\n\u4fa1\U0001F600", std::wstring(L"a\0b", 3)}),
                      std::pair(each.flag, each.results))
                << testing::PrintToString(std::wstring(body));
        }
    }
}

TEST_P(ScriptController, CountsParametersInItsOwnWay) {
    ASSERT_EQ(m_controller->AddCode(m_sample), 1);
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), 2);
    EXPECT_EQ(m_controller->GetParamCount(L"None"), 0);
    EXPECT_EQ(m_controller->GetParamCount(L"main"), m_missing);
    // The Script Control asks the engine, which has all code; the other host reads the lines of the last
    // code.
    ASSERT_EQ(m_controller->AddCode(Script(L"// function Main(a)", L"' Function Main(a)")), 1);
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), m_isControl ? 2 : 1);
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

TEST_P(ScriptController, ReportsWhereTheScriptIsWrong) {
    ASSERT_EQ(m_controller->AddCode(m_sample), 1);
    const std::wstring wrong =
        Script(L"function A() {\n}\nfunction B({\n", L"Function A\nEnd Function\nFunction B( = 3\n");
    EXPECT_EQ(m_controller->AddCode(wrong), 0);
    const CScriptErrorInfo error = LastError();
    EXPECT_EQ(error.line, 3);
    EXPECT_GT(error.column, 10);
    EXPECT_THAT(error.source, testing::HasSubstr(m_language));
    if (m_isJScript) {  // not every VBScript engine reports the text
        EXPECT_EQ(error.text, L"function B({");
    }
    EXPECT_THAT(m_boxes.texts, testing::ElementsAre(testing::AllOf(
                                   testing::StartsWith(L"Error Source: " + error.source + L"\r\n"),
                                   testing::HasSubstr(L"\r\nError on Line: 3\r\n"))));
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), 2) << "refused code changes nothing";
    EXPECT_EQ(m_controller->AddCode(Script(L"\r\nmissing();", L"\r\nErr.Raise 5")), 0);
    EXPECT_EQ(LastError().line, 2) << "code outside functions runs at once";
}

TEST_P(ScriptController, ReportsWhatFailedInARun) {
    ASSERT_EQ(m_controller->AddCode(Script(L"function F() {\n  throw new Error('own text');\n}",
                                           L"Function F\n  Err.Raise 5, \"own source\", \"own text\"\n"
                                           L"End Function")),
              1);
    EXPECT_EQ(Run(L"F", {}), std::pair(0, Texts()));
    EXPECT_EQ(LastError().description, L"own text");
    EXPECT_EQ(LastError().line, 2);
    ASSERT_EQ(m_boxes.texts.size(), 1U);
    EXPECT_THAT(m_boxes.texts[0], testing::HasSubstr(L"own text"));
    // No script ran, so the control's error object still has the error of the last one. The box does not show
    // it.
    EXPECT_EQ(Run(L"Missing", {}), std::pair(0, Texts()));
    ASSERT_EQ(m_boxes.texts.size(), m_isControl ? 2U : 1U);
    EXPECT_EQ(m_boxes.texts.back().find(L"own text") == std::wstring::npos, m_isControl);
}

TEST_P(ScriptController, AnotherLanguageIsAnotherEngine) {
    ASSERT_EQ(m_controller->AddCode(m_sample), 1);
    EXPECT_EQ(m_controller->SetLanguage(m_language), 1);
    EXPECT_EQ(Run(L"None", {}).first, 1) << "the same language leaves the engine alone";
    EXPECT_EQ(m_controller->SetLanguage(m_other), 1);
    EXPECT_EQ(m_controller->GetLanguage(), m_other);
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), m_missing);
    if (m_isControl) {
        EXPECT_THROW(m_controller->SetLanguage(L"No such language"), CComError);
        EXPECT_EQ(m_controller->GetLanguage(), m_other);
    } else {
        EXPECT_EQ(m_controller->SetLanguage(L"No such language"), 0);
        EXPECT_EQ(m_controller->IsCreated(), 0);
    }
}

TEST_P(ScriptController, NothingWorksWithoutAnEngine) {
    m_controller->Close();
    EXPECT_EQ(m_controller->IsCreated(), 0);
    EXPECT_EQ(m_controller->AddCode(m_sample), 0);
    EXPECT_EQ(Run(L"None", {L""}), std::pair(0, Texts()));
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), m_missing);
    EXPECT_EQ(LastError().line, 0);
    EXPECT_EQ(m_controller->Create(m_language), 1);
    EXPECT_EQ(m_controller->IsCreated(), 1);
}

TEST_P(ScriptController, ASilentSiteOnlyRemembers) {
    m_controller->SetAllowUI(0);
    EXPECT_EQ(m_controller->AddCode(L"\n("), 0);
    EXPECT_EQ(m_boxes.texts.size(), m_isControl ? 1U : 0U) << "the control's flag is for its own windows";
    EXPECT_EQ(LastError().line, 2);
    m_controller->SetAllowUI(1);
    m_boxes.texts.clear();
    EXPECT_EQ(m_controller->AddCode(L"("), 0);
    EXPECT_EQ(m_boxes.texts.size(), 1U);
}

TEST_P(ScriptController, AThousandRoundsLeaveNothingBehind) {
    const auto rounds = [&](int count) {
        for (int i = 0; i < count; ++i) {
            m_controller = Make();
            ASSERT_EQ(m_controller->Create(m_other), 1);
            ASSERT_EQ(m_controller->SetLanguage(m_language), 1);
            ASSERT_EQ(m_controller->AddCode(m_sample), 1);
            ASSERT_EQ(m_controller->GetParamCount(L"Main"), 2);
            // Wine's engines leak by themselves: VBScript what code that it refuses, and the control what
            // JScript ran. Each is left out where it does, and done in the other language.
            if (m_isJScript) {
                ASSERT_EQ(m_controller->AddCode(L"("), 0);
                ASSERT_EQ(LastError().line, 1);
            }
            if (!m_isControl || !m_isJScript) {
                ASSERT_EQ(Run(L"Main", {L"text", L"url"}), std::pair(1, Texts{L"text|url"}));
                ASSERT_EQ(Run(L"Missing", {L"text"}), std::pair(0, Texts()));
            }
            m_controller.reset();
            m_boxes.texts.clear();
            m_boxes.styles.clear();
        }
    };
    rounds(1000);  // fills caches, in a process of its own slowly
    const std::size_t bytes = HeapUse();
    rounds(1000);
    EXPECT_LE(HeapUse(), bytes + 10'000);
}

TEST(ScriptControllerFactory, PrefersTheScriptControl) {
    std::thread([] {
        EXPECT_EQ(CScriptControllerFactory::CreateController(), nullptr) << "components are not ready";
    }).join();
    const CComApartment apartment;
    const std::unique_ptr<IScriptController> controller = CScriptControllerFactory::CreateController();
    ASSERT_NE(dynamic_cast<CMSScriptController*>(controller.get()), nullptr);
    EXPECT_EQ(controller->GetLanguage(), kJScript);
}

}  // namespace
