// Both hosts in both languages, in the real engines.
#include <gmock/gmock.h>

#include <memory>
#include <optional>

#include "script/ActiveScriptController.h"
#include "script/ComError.h"
#include "script/MSScriptController.h"
#include "script/ScriptControllerFactory.h"
#include "script/ScriptLanguages.h"
#include "tests/support/MessageRecorder.h"
#include "util/ComApartment.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::wstring>;

enum class Host { ScriptControl, ActiveScripting };

class ScriptController : public testing::TestWithParam<std::tuple<Host, bool>> {
protected:
    ScriptController() { EXPECT_EQ(m_controller->Create(Language()), 1); }

    static bool IsControl() { return std::get<0>(GetParam()) == Host::ScriptControl; }
    static bool IsJScript() { return std::get<1>(GetParam()); }
    static std::wstring Language() { return IsJScript() ? kJScript : kVBScript; }
    static std::wstring OtherLanguage() { return IsJScript() ? kVBScript : kJScript; }
    static std::unique_ptr<IScriptController> Make() {
        if (IsControl()) {
            return std::make_unique<CMSScriptController>();
        }
        return std::make_unique<CActiveScriptController>();
    }
    // The one of two scripts that is in the language tested.
    static std::wstring Script(const wchar_t* jscript, const wchar_t* vbscript) {
        return IsJScript() ? jscript : vbscript;
    }
    // A function of two parameters, one of none, and one that counts its calls.
    static std::wstring Sample() {
        return Script(
            L"function Main ( text, url ) {\r\n  return text + '|' + url;\r\n}\r\n"
            L"function None() {}\r\nvar n = 0;\r\nfunction Next() { return n += 1; }\r\n",
            L"Function Main ( text, url )\r\n  Main = text & \"|\" & url\r\nEnd Function\r\n"
            L"Function None()\r\nEnd Function\r\nn = 0\r\n"
            L"Function Next_()\r\n  n = n + 1\r\n  Next_ = n\r\nEnd Function\r\n");
    }

    // The flag and what was appended to a list of one.
    std::pair<int, Texts> Run(const std::wstring& function, const Texts& arguments) {
        CStringArray list;
        for (const std::wstring& argument : arguments) {
            list.Add(argument);
        }
        CStringArray results;
        results.Add(L"before");
        const int flag = m_controller->Run(function, &list, results);
        EXPECT_EQ(results.GetAt(0), L"before");
        return {flag, Texts(results.begin() + 1, results.end())};
    }
    CScriptErrorInfo LastError() {
        CScriptErrorInfo error{L"stale", L"stale", -1, -1, L"stale"};
        m_controller->GetErrorInfo(error.source, error.description, error.line, error.column, error.text);
        return error;
    }

    CComApartment m_apartment;
    MessageRecorder m_boxes;
    std::unique_ptr<IScriptController> m_controller = Make();
};

INSTANTIATE_TEST_SUITE_P(Hosts, ScriptController,
                         testing::Combine(testing::Values(Host::ScriptControl, Host::ActiveScripting),
                                          testing::Bool()),
                         [](const auto& each) {
                             return std::string(std::get<0>(each.param) == Host::ScriptControl
                                                    ? "ScriptControl"
                                                    : "ActiveScripting") +
                                    (std::get<1>(each.param) ? "JScript" : "VBScript");
                         });

TEST_P(ScriptController, ResultsBecomeTexts) {
    const struct {
        const char* what;
        const wchar_t* jscript;  // the function F; null where the language has nothing like it
        const wchar_t* vbscript;
        Texts arguments;
        int flag;
        Texts results;
    } cases[] = {
        {"arguments arrive in order and as they are",
         L"function F(a, b, c) { return c + b + a; }",
         L"Function F(a, b, c)\nF = c & b & a\nEnd Function",
         {L"3\"'\\\r\n", L"\u4fa1\U0001F600", L"  1 "},
         1,
         {L"  1 \u4fa1\U0001F6003\"'\\\r\n"}},
        {"an empty text",
         L"function F(a) { return a.length + a; }",
         L"Function F(a)\nF = Len(a) & a\nEnd Function",
         {L""},
         1,
         {L"0"}},
        {"a text with a zero",
         L"function F(a) { return a.length; }",
         L"Function F(a)\nF = Len(a)\nEnd Function",
         {std::wstring(L"a\0b", 3)},
         1,
         {L"3"}},
        {"nothing returned", L"function F() {}", L"Function F\nEnd Function", {}, 1, {L""}},
        {"a number", L"function F() { return -7; }", L"Function F\nF = -7\nEnd Function", {}, 1, {L"-7"}},
        {"a truth", L"function F() { return true; }", L"Function F\nF = True\nEnd Function", {}, 1, {L"-1"}},
        {"null", L"function F() { return null; }", L"Function F\nF = Null\nEnd Function", {}, 0, {}},
        {"an array of JScript is one object with one text",
         L"function F() { return [1, 'x']; }",
         nullptr,
         {},
         1,
         {L"1,x"}},
        {"elements that do not convert are skipped",
         nullptr,
         L"Function F\nF = Array(1, Null, \"x\", Empty)\nEnd Function",
         {},
         1,
         {L"1", L"x", L""}},
        {"the last element decides",
         nullptr,
         L"Function F\nF = Array(\"x\", Null)\nEnd Function",
         {},
         0,
         {L"x"}},
        {"an empty array", nullptr, L"Function F\nF = Array()\nEnd Function", {}, 1, {}},
        {"two dimensions",
         nullptr,
         L"Function F\nDim a(1, 1)\na(0, 0) = 1\na(1, 0) = 2\na(0, 1) = 3\na(1, 1) = 4\nF = a\nEnd Function",
         {},
         1,
         {L"1", L"2", L"3", L"4"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const wchar_t* const script = IsJScript() ? each.jscript : each.vbscript;
        if (script != nullptr) {
            ASSERT_EQ(m_controller->AddCode(script), 1);
            EXPECT_EQ(Run(L"F", each.arguments), std::pair(each.flag, each.results));
        }
    }
    ASSERT_EQ(m_controller->AddCode(Sample()), 1);
    CStringArray results;
    EXPECT_EQ(m_controller->RunWithArgument(L"Main", L"x", results), IsJScript() ? 1 : 0);
    EXPECT_THAT(Texts(results.begin(), results.end()), IsJScript() ? Texts{L"x|undefined"} : Texts{})
        << "VBScript counts its arguments";
}

TEST_P(ScriptController, CountsParametersInItsOwnWay) {
    const int missing = IsControl() ? -1 : 0;
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), missing);
    ASSERT_EQ(m_controller->AddCode(Sample()), 1);
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), 2);
    EXPECT_EQ(m_controller->GetParamCount(L"None"), 0);
    EXPECT_EQ(m_controller->GetParamCount(L"main"), missing);
    EXPECT_EQ(m_controller->GetParamCount(L"Missing"), missing);
    // One asks the engine, which has all code; the other one reads the lines of what came last.
    ASSERT_EQ(m_controller->AddCode(Script(L"// function Main(a)\nfunction Late(a) {}",
                                           L"' Function Main(a)\nFunction Late(a)\nEnd Function")),
              1);
    EXPECT_EQ(m_controller->GetParamCount(L"Late"), 1);
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), IsControl() ? 2 : 1);
    EXPECT_EQ(m_controller->GetParamCount(L"None"), 0);
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

TEST_P(ScriptController, TellsWhereTheScriptIsWrong) {
    ASSERT_EQ(m_controller->AddCode(Sample()), 1);
    const std::wstring wrong =
        Script(L"function A() {\n}\nfunction B({\n", L"Function A\nEnd Function\nFunction B( = 3\n");
    EXPECT_EQ(m_controller->AddCode(wrong), 0);
    const CScriptErrorInfo error = LastError();
    EXPECT_EQ(error.line, 3);
    EXPECT_GT(error.column, 10);
    EXPECT_THAT(error.source, testing::HasSubstr(Language()));
    if (IsJScript()) {  // of VBScript not every engine has texts and lines to tell
        EXPECT_THAT(error.description, testing::Not(IsEmpty()));
        EXPECT_EQ(error.text, L"function B({");
    }
    EXPECT_THAT(m_boxes.texts,
                ElementsAre(L"Error Source: " + error.source + L"\r\nError Description: " +
                            error.description + L"\r\nError on Line: 3\r\nError on Column: " +
                            std::to_wstring(error.column) + L"\r\nError in String: \"" + error.text + L"\""));
    EXPECT_THAT(m_boxes.styles, ElementsAre(MB_OK | MB_ICONERROR));
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), 2) << "code that was refused changes nothing";
    EXPECT_EQ(m_controller->AddCode(Script(L"\r\nmissing();", L"\r\nErr.Raise 5")), 0);
    EXPECT_EQ(LastError().line, 2) << "what stands outside functions runs at once";
}

TEST_P(ScriptController, TellsWhatFailedInARun) {
    ASSERT_EQ(m_controller->AddCode(Script(L"function F() {\n  throw new Error('own text');\n}",
                                           L"Function F\n  Err.Raise 5, \"own source\", \"own text\"\n"
                                           L"End Function")),
              1);
    EXPECT_EQ(Run(L"F", {}), std::pair(0, Texts()));
    const CScriptErrorInfo error = LastError();
    EXPECT_EQ(error.description, L"own text");
    EXPECT_EQ(error.line, 2);
    ASSERT_EQ(m_boxes.texts.size(), 1U);
    EXPECT_EQ(m_boxes.texts[0],
              IsControl()
                  ? error.source + L"\r\nown text"
                  : L"Error Source: " + error.source +
                        L"\r\nError Description: own text\r\nError on Line: 2\r\nError on Column: " +
                        std::to_wstring(error.column) + L"\r\nError in String: \"" + error.text + L"\"");
    EXPECT_EQ(m_boxes.styles[0], MB_OK | MB_ICONERROR);
    // No script ran, so the control's error object is still about the last one. The box is not.
    EXPECT_EQ(Run(L"Missing", {}), std::pair(0, Texts()));
    ASSERT_EQ(m_boxes.texts.size(), IsControl() ? 2U : 1U);
    EXPECT_THAT(m_boxes.texts.back(),
                IsControl() ? testing::Matcher<std::wstring>(testing::Not(testing::HasSubstr(L"own text")))
                            : testing::HasSubstr(L"own text"));
}

TEST_P(ScriptController, CodeIsTakenAfterAReset) {
    const std::wstring next = IsJScript() ? L"Next" : L"Next_";
    ASSERT_EQ(m_controller->AddCode(Sample()), 1);
    EXPECT_EQ(Run(next, {}).second, Texts{L"1"});
    EXPECT_EQ(m_controller->Reset(), 1);
    if (!IsControl()) {
        EXPECT_EQ(Run(next, {}).second, Texts{L"2"}) << "which discards nothing";
    }
    EXPECT_EQ(m_controller->AddCode(Sample()), 1);
    EXPECT_EQ(Run(L"Main", {L"a", L"b"}), std::pair(1, Texts{L"a|b"}));
}

TEST_P(ScriptController, AnotherLanguageIsAnotherEngine) {
    ASSERT_EQ(m_controller->AddCode(Sample()), 1);
    EXPECT_EQ(m_controller->SetLanguage(Language()), 1);
    EXPECT_EQ(Run(L"None", {}).first, 1) << "the same language leaves the engine alone";
    EXPECT_EQ(m_controller->SetLanguage(OtherLanguage()), 1);
    EXPECT_EQ(m_controller->GetLanguage(), OtherLanguage());
    EXPECT_EQ(m_controller->GetParamCount(L"Main"), IsControl() ? -1 : 0);
    ASSERT_EQ(m_controller->AddCode(IsJScript() ? L"Function F\nF = 1 & 2\nEnd Function"
                                                : L"function F() { return '1' + 2; }"),
              1);
    EXPECT_EQ(Run(L"F", {}), std::pair(1, Texts{L"12"}));

    const std::wstring lowerCase = IsJScript() ? L"vbscript" : L"jscript";
    EXPECT_EQ(m_controller->SetLanguage(lowerCase), 1);
    EXPECT_EQ(m_controller->GetLanguage(), lowerCase);

    const std::wstring unknown = L"No such language";
    if (IsControl()) {
        EXPECT_THROW(m_controller->SetLanguage(unknown), CComError);
        EXPECT_EQ(m_controller->GetLanguage(), lowerCase);
        EXPECT_EQ(m_controller->IsCreated(), 1);
    } else {
        EXPECT_EQ(m_controller->SetLanguage(unknown), 0);
        EXPECT_EQ(m_controller->GetLanguage(), L"");
        EXPECT_EQ(m_controller->IsCreated(), 0);
    }
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

TEST_P(ScriptController, NothingWorksWithoutAnEngine) {
    ASSERT_EQ(m_controller->AddCode(Sample()), 1);
    m_controller->Close();
    const auto never = Make();
    for (IScriptController* const each : {m_controller.get(), never.get()}) {
        EXPECT_EQ(each->IsCreated(), 0);
        EXPECT_EQ(each->GetLanguage(), L"");
        EXPECT_EQ(each->SetLanguage(Language()), 0);
        EXPECT_EQ(each->SetAllowUI(0), 0);
        EXPECT_EQ(each->AddCode(Sample()), 0);
        CStringArray results;
        EXPECT_EQ(each->RunWithArgument(L"None", L"", results), 0);
        EXPECT_TRUE(results.IsEmpty());
        EXPECT_EQ(each->Reset(), IsControl() ? 0 : 1);
        EXPECT_EQ(each->GetParamCount(L"Main"), IsControl() ? -1 : 0);
        EXPECT_EQ(each->Create(Language()), 1);
        EXPECT_EQ(each->IsCreated(), 1);
        EXPECT_EQ(each->GetLanguage(), Language());
        EXPECT_EQ(each->GetParamCount(L"Main"), IsControl() ? -1 : 0);
    }
    EXPECT_EQ(LastError().line, 0);
    EXPECT_THAT(m_boxes.texts, IsEmpty());
}

TEST_P(ScriptController, ASilentSiteOnlyRemembers) {
    const int flag = m_controller->SetAllowUI(0);
    if (IsControl()) {
        EXPECT_EQ(flag, 1);
    }
    EXPECT_EQ(m_controller->AddCode(L"\n("), 0);
    EXPECT_EQ(m_boxes.texts.size(), IsControl() ? 1U : 0U) << "the control's flag is for its own windows";
    EXPECT_EQ(LastError().line, 2);
    m_controller->SetAllowUI(1);
    m_boxes.texts.clear();
    EXPECT_EQ(m_controller->AddCode(L"("), 0);
    ASSERT_EQ(m_boxes.texts.size(), 1U);
    EXPECT_THAT(m_boxes.texts[0], testing::HasSubstr(L"\r\nError on Line: 1\r\n"));
}

// Blocks in use in all heaps of the process.
std::size_t BlocksInUse() {
    HANDLE heaps[64];
    std::size_t blocks = 0;
    for (DWORD i = GetProcessHeaps(64, heaps); i-- > 0;) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) {
            blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1U : 0U;
        }
        HeapUnlock(heaps[i]);
    }
    return blocks;
}

// Grows with the number of open handles, as the next free one is taken; not every system counts them.
std::size_t NextHandle() {
    const CKernelHandle handle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return reinterpret_cast<std::size_t>(handle.Get()) / 4;
}

TEST_P(ScriptController, AThousandRoundsLeaveNothingBehind) {
    // Wine's engines leak by themselves: VBScript what code that it refuses, and the control what JScript
    // ran. Each is left out where it does, and done in the other language.
    const bool isRefused = IsJScript();
    const bool isRun = !IsControl() || !IsJScript();
    const auto rounds = [&](int count) {
        for (int i = 0; i < count; ++i) {
            m_controller = Make();
            ASSERT_EQ(m_controller->Create(OtherLanguage()), 1);
            ASSERT_EQ(m_controller->SetLanguage(Language()), 1);
            ASSERT_EQ(m_controller->AddCode(Sample()), 1);
            ASSERT_EQ(m_controller->GetParamCount(L"Main"), 2);
            if (isRefused) {
                ASSERT_EQ(m_controller->AddCode(L"("), 0);
                ASSERT_EQ(LastError().line, 1);
            }
            if (isRun) {
                ASSERT_EQ(Run(L"Main", {L"text", L"url"}), std::pair(1, Texts{L"text|url"}));
                ASSERT_EQ(Run(L"Missing", {L"text"}), std::pair(0, Texts()));
            }
            m_controller.reset();
            m_boxes.texts.clear();
            m_boxes.styles.clear();
        }
    };
    rounds(20);  // fills caches
    const std::size_t blocks = BlocksInUse();
    const std::size_t handle = NextHandle();
    rounds(1000);
    EXPECT_LE(BlocksInUse(), blocks + 100);
    EXPECT_LE(NextHandle(), handle + 10);
}

TEST(ScriptControllerFactory, MakesTheControlForJScript) {
    const CComApartment apartment;
    const std::unique_ptr<IScriptController> controller = CScriptControllerFactory::CreateController();
    ASSERT_NE(controller, nullptr);
    EXPECT_NE(dynamic_cast<CMSScriptController*>(controller.get()), nullptr);
    EXPECT_EQ(controller->GetLanguage(), kJScript);
}

}  // namespace
