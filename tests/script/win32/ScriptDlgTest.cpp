#include "script/win32/ScriptDlg.h"

#include <gtest/gtest.h>

#include "script/resource.h"
#include "tests/support/DialogSteps.h"
#include "tests/support/FileDialogAnswer.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestApp.h"
#include "util/win32/ComApartment.h"

namespace {

using Texts = std::vector<std::wstring>;

struct TestDialog : CScriptDlg {
    using CScriptDlg::PreTranslateMessage;
    [[nodiscard]] std::unique_ptr<IScriptController> CreateController() const override {
        return hasEngine ? CScriptDlg::CreateController() : nullptr;
    }
    bool hasEngine = true;
};

constexpr wchar_t kQuestion[] = L"The script has been modified. Do you want to save the changes?";

// The editor, hidden, with the machine's own engine.
class ScriptDlg : public testing::Test {
protected:
    void Open(const std::wstring& script, const wchar_t* language = L"") {
        dialog.DestroyWindow();
        dialog.m_strScript = script;
        dialog.m_strLanguage = language;
        ASSERT_TRUE(dialog.Create(IDD_SCRIPT));
    }
    [[nodiscard]] HWND Item(int id) const { return dialog.GetDlgItem(id); }
    [[nodiscard]] std::wstring Text(int id) const { return dialog.GetDlgItemText(id); }
    [[nodiscard]] std::wstring Script() const { return Text(IDC_SCRIPT_TEXT); }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    void Notify(int id, UINT code) const {
        dialog.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Item(id)));
    }
    // As a user types: replaces the whole script, and the box reports the change.
    void Type(const std::wstring& text) const {
        CEdit box(Item(IDC_SCRIPT_TEXT));
        box.SendMessage(EM_SETSEL, 0, -1);
        box.ReplaceSel(text, true);
    }
    void SetLanguage(int index) const {
        SendMessageW(Item(IDC_SCRIPT_LANGUAGE), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        Notify(IDC_SCRIPT_LANGUAGE, CBN_SELCHANGE);
    }
    void Select(int list, const wchar_t* item) const {
        ASSERT_GE(SendMessageW(Item(list), LB_SELECTSTRING, static_cast<WPARAM>(-1),
                               reinterpret_cast<LPARAM>(item)),
                  0);
        Notify(list, LBN_SELCHANGE);
    }
    // True when the message was taken.
    bool Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam = 0) {
        MSG record{window, message, wParam, lParam, 0, {}};
        return dialog.PreTranslateMessage(&record) != FALSE;
    }
    // Whether Escape asks.
    bool IsModified() {
        const MessageRecorder boxes(IDCANCEL);
        Send(Item(IDC_SCRIPT_TEXT), WM_KEYDOWN, VK_ESCAPE);
        return !boxes.texts.empty();
    }

    const CComApartment apartment;
    TestApp app;
    TestDialog dialog;
};

void Press(HWND dialog, int id) {
    SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0);
}

TEST_F(ScriptDlg, OffersWhatTheLanguageHas) {
    Open(L"text", L"vbscript");
    EXPECT_EQ(Text(IDC_SCRIPT_LANGUAGE), L"JScript") << "another spelling is another language";
    const auto enabled = [&] {
        return std::pair(IsWindowEnabled(Item(IDC_SCRIPT_INSERT)),
                         IsWindowEnabled(Item(IDC_SCRIPT_NEW_FROM_TEMPLATE)));
    };
    EXPECT_EQ(enabled(), std::pair(FALSE, FALSE));
    Select(IDC_SCRIPT_FUNCTIONS, L"charAt");
    Select(IDC_SCRIPT_TEMPLATES, L"Left_String");
    EXPECT_EQ(enabled(), std::pair(TRUE, TRUE));
    SetLanguage(1);
    EXPECT_EQ(SendMessageW(Item(IDC_SCRIPT_FUNCTIONS), LB_GETCOUNT, 0, 0), 128);
    EXPECT_EQ(SendMessageW(Item(IDC_SCRIPT_TEMPLATES), LB_GETCOUNT, 0, 0), 18);
    EXPECT_EQ(enabled(), std::pair(FALSE, FALSE));
    EXPECT_FALSE(IsModified()) << "what it opened with is no change";
}

TEST_F(ScriptDlg, InsertsAFunctionAtTheSelection) {
    Open(L"a\r\nbcd\r\ne", L"VBScript");
    CEdit box(Item(IDC_SCRIPT_TEXT));
    box.SetSel(4, 5);
    Select(IDC_SCRIPT_FUNCTIONS, L"Abs(");
    Click(IDC_SCRIPT_INSERT);
    EXPECT_EQ(Script(), L"a\r\nbAbs( <<number>> )d\r\ne");
    EXPECT_EQ(box.GetSel(), std::pair(4UL + 17, 4UL + 17));
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 2, Col 19");
    EXPECT_TRUE(IsModified());
}

TEST_F(ScriptDlg, ShowsWhereTheCaretIs) {
    Open(L"one\r\n\ttwo\r\nthree");
    dialog.ShowWindow(SW_SHOW);
    CEdit box(Item(IDC_SCRIPT_TEXT));
    box.SetFocus();
    box.SetSel(6, 1);
    Send(box.m_hWnd, WM_KEYDOWN, VK_SHIFT);
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 1, Col 2") << "backwards: the caret's line, the selection's end";
    const LRESULT point = box.SendMessage(EM_POSFROMCHAR, 12);
    EXPECT_TRUE(Send(box.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, point));
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 3, Col 2") << "a click counts when it has been processed";
    box.SendMessage(WM_LBUTTONUP, 0, point);
}

TEST_F(ScriptDlg, KeysOfItsOwn) {
    Open(L"ab");
    CEdit box(Item(IDC_SCRIPT_TEXT));
    box.SetSel(1, 2);
    EXPECT_TRUE(Send(box.m_hWnd, WM_KEYDOWN, VK_TAB));
    EXPECT_EQ(Script(), L"a\t");
    box.SendMessage(EM_UNDO);
    box.SetSel(1, 1);
    SetFocus(Item(IDC_SCRIPT_TEST_TEXT));
    dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box.m_hWnd), TRUE);
    EXPECT_EQ(box.GetSel(), std::pair(1UL, 1UL)) << "reached by Tab, it is not all selected for the next one";
    EXPECT_TRUE(Send(Item(IDC_SCRIPT_FUNCTIONS), WM_KEYDOWN, VK_RETURN));
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, dialog.m_hWnd, WM_COMMAND, WM_COMMAND, PM_REMOVE));
    EXPECT_EQ(LOWORD(message.wParam), IDC_SCRIPT_INSERT) << "Enter in the list";
}

TEST_F(ScriptDlg, EscapeAsksForChanges) {
    const struct {
        const char* label;
        const wchar_t* typed;
        int answer;
        INT_PTR result;
    } cases[] = {
        {"no change", nullptr, IDCANCEL, IDCANCEL}, {"Yes", L"1", IDYES, IDOK}, {"No", L"1", IDNO, IDCANCEL}};
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        const MessageRecorder boxes(item.answer);
        const DialogSteps steps({[&](HWND) {
            if (item.typed != nullptr) {
                Type(item.typed);
            }
            PostMessageW(Item(IDC_SCRIPT_TEST_TEXT), WM_KEYDOWN, VK_ESCAPE, 0);
        }});
        EXPECT_EQ(dialog.DoModal(L"old"), item.result);
        EXPECT_EQ(boxes.texts, item.typed != nullptr ? Texts{kQuestion} : Texts{});
        EXPECT_EQ(dialog.m_strScript, item.result == IDOK ? L"1" : L"old");
    }
}

TEST_F(ScriptDlg, AsksBeforeItReplacesAScript) {
    Open(L"");
    Select(IDC_SCRIPT_TEMPLATES, L"Left_String");
    // Yes continues even when saving is cancelled. Adding a template replaces nothing.
    const struct {
        const char* label;
        int button, answer;
        bool asks, saves, goesOn, staysModified;
    } cases[] = {{"New, Yes", IDC_SCRIPT_NEW, IDYES, true, true, true, false},
                 {"New, No", IDC_SCRIPT_NEW, IDNO, true, false, true, false},
                 {"New, Cancel", IDC_SCRIPT_NEW, IDCANCEL, true, false, false, true},
                 {"New Script, Cancel", IDC_SCRIPT_NEW_FROM_TEMPLATE, IDCANCEL, true, false, false, true},
                 {"Add To Script", IDC_SCRIPT_ADD_TEMPLATE, IDCANCEL, false, false, true, false}};
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        Type(L"// typed");
        const DialogSteps steps({[](HWND function) { Press(function, IDOK); }});
        {
            const MessageRecorder boxes(item.answer);
            const FileDialogAnswer save(std::nullopt);
            Click(item.button);
            EXPECT_EQ(std::ranges::count(boxes.texts, kQuestion), item.asks ? 1 : 0);
            EXPECT_EQ(save.count, item.saves ? 1 : 0);
        }
        EXPECT_EQ(Script() != L"// typed", item.goesOn);
        EXPECT_EQ(IsModified(), item.staysModified);
    }
}

// Refused scripts throw, which stops the run under a debugger, so they have a suite of their own.
using ScriptDlgRefusing = ScriptDlg;

TEST_F(ScriptDlgRefusing, ParseReportsSuccessInEveryEngine) {
    Open(L"function Main() {}");
    const struct {
        const char* label;
        const wchar_t* script;
        bool hasEngine;
        std::size_t parseBoxes, okBoxes;  // OK has no box of its own
    } cases[] = {{"right", L"function Main() {}", true, 1, 0},
                 {"refused", L"(", true, 2, 1},
                 {"without an engine", L"code", false, 0, 0}};
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        Type(item.script);
        dialog.hasEngine = item.hasEngine;
        MessageRecorder boxes;
        Click(IDC_SCRIPT_PARSE);
        EXPECT_EQ(std::ranges::count(boxes.texts, L"The script parsed successfully"), item.hasEngine ? 1 : 0);
        EXPECT_EQ(boxes.texts.size(), item.parseBoxes);
        boxes.texts.clear();
        dialog.m_strScript = dialog.m_strLanguage = L"before";
        Click(IDOK);
        EXPECT_EQ(dialog.m_strScript, item.hasEngine ? item.script : L"before");
        EXPECT_EQ(dialog.m_strLanguage, L"JScript");
        EXPECT_EQ(boxes.texts.size(), item.okBoxes);
    }
}

TEST_F(ScriptDlgRefusing, RunTestShowsTheResultsOfMain) {
    Open(L"");
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_TEXT, L"sample");
    const struct {
        const char* label;
        int language;
        const wchar_t* script;
        const wchar_t* shown;
        std::size_t boxes;
    } cases[] = {
        {"text and URL", 0, L"function Main(text, url) { return text + '|' + url; }", L"sample|", 0},
        {"text alone", 0, L"function Main(text) { return arguments.length; }", L"1", 0},
        {"array", 1, L"Function Main(text)\nMain = Array(text, \"\", 2)\nEnd Function", L"sample\r\n2", 0},
        {"refused, runs all the same", 0, L"(", L"", 2},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        SetLanguage(item.language);
        Type(item.script);
        const MessageRecorder boxes;
        Click(IDC_SCRIPT_TEST_RUN);
        EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), item.shown);
        EXPECT_EQ(boxes.texts.size(), item.boxes);
    }
    dialog.hasEngine = false;
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_RESULT, L"kept");
    Click(IDC_SCRIPT_TEST_RUN);
    EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), L"kept") << "no engine";
}

TEST_F(ScriptDlg, LoadsAndSavesFiles) {
    const TemporaryFolder folder;
    Open(L"text", L"VBScript");
    Type(L"\u00E4 saved");
    {
        const FileDialogAnswer save(folder.Path(L"s.vbs"));
        Click(IDC_SCRIPT_SAVE);
        EXPECT_FALSE(save.open);
        EXPECT_EQ(save.extension, L"vbs");
        EXPECT_TRUE(save.flags & OFN_OVERWRITEPROMPT);
    }
    EXPECT_FALSE(IsModified());
    Type(L"other");
    {
        const FileDialogAnswer cancel(std::nullopt);
        Click(IDC_SCRIPT_SAVE);
        Click(IDC_SCRIPT_LOAD);
    }
    EXPECT_EQ(Script(), L"other");
    EXPECT_TRUE(IsModified());
    const FileDialogAnswer load(folder.Path(L"s.vbs"));
    Click(IDC_SCRIPT_LOAD);
    EXPECT_TRUE(load.open);
    EXPECT_EQ(Script(), L"\u00E4 saved") << "loading does not ask";
    EXPECT_FALSE(IsModified());
}

TEST_F(ScriptDlg, LongScriptsRunAndEndAtTheLimit) {
    std::wstring script = L"function Main ( text, url ) { return text; }\r\n//";
    script.resize(CScriptDlg::kMaxScriptLength, L'x');
    Open(script);
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_TEXT, L"x");
    Click(IDC_SCRIPT_TEST_RUN);
    EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), L"x");
    Type(script + L"/");
    EXPECT_EQ(Script(), script) << "what is typed ends at the limit";
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEXT, (script + L"/").c_str());
    const MessageRecorder boxes;
    Click(IDOK);
    EXPECT_EQ(boxes.texts, Texts{L"Enter no more than 32768 characters."}) << "a file can bring more";
}

}  // namespace
