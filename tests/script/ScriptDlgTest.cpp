#include "script/ScriptDlg.h"

#include <gtest/gtest.h>

#include "script/resource.h"
#include "tests/support/DialogSteps.h"
#include "tests/support/FileDialogAnswer.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/ScriptLibrary.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestApp.h"
#include "util/ComApartment.h"

namespace {

using Texts = std::vector<std::wstring>;

// What every engine of a test answers, and what they all were asked.
struct EngineRecord {
    int language = 1, code = 1, run = 1, paramCount = 2;
    Texts results;
    Texts calls;
};

class CRecordedEngine : public IScriptController {
public:
    explicit CRecordedEngine(EngineRecord& record) : m_record(record) {}
    ~CRecordedEngine() override { m_record.calls.emplace_back(L"gone"); }
    CRecordedEngine(const CRecordedEngine&) = delete;
    CRecordedEngine& operator=(const CRecordedEngine&) = delete;

    int Create(const std::wstring&) override { return 1; }
    void Close() override {}
    [[nodiscard]] int IsCreated() const override { return 1; }
    int SetLanguage(const std::wstring& language) override {
        m_record.calls.push_back(language);
        return m_record.language;
    }
    int SetAllowUI(int) override { return 1; }
    int AddCode(const std::wstring& scriptText) override {
        m_record.calls.push_back(scriptText);
        return m_record.code;
    }
    int Run(const std::wstring& functionName, const CStringArray* arguments, CStringArray& results) override {
        m_record.calls.push_back(functionName);
        for (const std::wstring& argument : *arguments) {
            m_record.calls.push_back(L"<" + argument + L">");
        }
        for (const std::wstring& result : m_record.results) {
            results.Add(result);
        }
        return m_record.run;
    }
    int RunWithArgument(const std::wstring&, const std::wstring&, CStringArray&) override { return 0; }
    int Reset() override { return 1; }
    [[nodiscard]] int GetParamCount(const std::wstring& functionName) override {
        m_record.calls.push_back(L"count " + functionName);
        return m_record.paramCount;
    }
    void GetErrorInfo(std::wstring&, std::wstring&, std::int32_t&, std::int32_t&, std::wstring&) override {}

private:
    EngineRecord& m_record;
};

class TestDialog : public CScriptDlg {
public:
    using CScriptDlg::m_arrChildControls;
    using CScriptDlg::PreTranslateMessage;

    EngineRecord* engine = nullptr;  // null for the machine's own engine
    bool hasEngine = true;

protected:
    [[nodiscard]] std::unique_ptr<IScriptController> CreateController() const override {
        if (!hasEngine) {
            return nullptr;
        }
        return engine != nullptr ? std::make_unique<CRecordedEngine>(*engine)
                                 : CScriptDlg::CreateController();
    }
};

constexpr wchar_t kQuestion[] = L"The script has been modified. Do you want to save the changes?";

// The editor, hidden.
class ScriptDlg : public testing::Test {
protected:
    void Open(const wchar_t* script, const wchar_t* language = L"") {
        dialog.m_strScript = script;
        dialog.m_strLanguage = language;
        ASSERT_TRUE(dialog.Create(IDD_SCRIPT));
    }
    [[nodiscard]] HWND Item(int id) const { return dialog.GetDlgItem(id); }
    [[nodiscard]] std::wstring Text(int id) const { return dialog.GetDlgItemText(id); }
    [[nodiscard]] std::wstring Script() const { return Text(IDC_SCRIPT_TEXT); }
    [[nodiscard]] bool IsEnabled(int id) const { return IsWindowEnabled(Item(id)) != FALSE; }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    void Notify(int id, UINT code) const {
        dialog.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Item(id)));
    }
    // As a user types: what is there goes, and the box tells of the change.
    void Type(const wchar_t* text) const {
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
    [[nodiscard]] int Count(int list) const {
        return static_cast<int>(SendMessageW(Item(list), LB_GETCOUNT, 0, 0));
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
    // The id of the posted command, 0 for none.
    static int PostedCommand(HWND window) {
        MSG message{};
        return PeekMessageW(&message, window, WM_COMMAND, WM_COMMAND, PM_REMOVE) ? LOWORD(message.wParam) : 0;
    }

    const CComApartment apartment;
    TestApp app;
    TestDialog dialog;
    EngineRecord engine;
};

void Press(HWND dialog, int id) {
    SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0);
}

TEST_F(ScriptDlg, OffersWhatTheLanguageHas) {
    Open(L"text");
    EXPECT_EQ(Text(IDC_SCRIPT_LANGUAGE), L"JScript");
    EXPECT_EQ(Script(), L"text");
    EXPECT_EQ(Count(IDC_SCRIPT_FUNCTIONS), 220);
    EXPECT_EQ(Count(IDC_SCRIPT_TEMPLATES), 14);
    EXPECT_FALSE(IsModified()) << "what it opened with is no change";
    EXPECT_TRUE(dialog.SendMessage(WM_GETICON, ICON_SMALL));
    const std::vector<std::pair<int, UINT>> anchors = {
        {2111, 11}, {2105, 6},  {2104, 16}, {2102, 9}, {2118, 9}, {2116, 9},  {2117, 9},  {2115, 9}, {1, 12},
        {2, 12},    {2106, 13}, {2109, 13}, {2107, 9}, {2108, 9}, {2110, 13}, {2112, 13}, {2114, 12}};
    std::vector<std::pair<int, UINT>> registered;
    for (const auto& control : dialog.m_arrChildControls) {
        registered.emplace_back(GetDlgCtrlID(control.hWnd), control.nFlags);
    }
    EXPECT_EQ(registered, anchors);

    const auto enabled = [&] {
        return std::tuple(IsEnabled(IDC_SCRIPT_INSERT), IsEnabled(IDC_SCRIPT_NEW_FROM_TEMPLATE),
                          IsEnabled(IDC_SCRIPT_ADD_TEMPLATE));
    };
    EXPECT_EQ(enabled(), std::tuple(false, false, true));
    Select(IDC_SCRIPT_FUNCTIONS, L"charAt");
    EXPECT_EQ(enabled(), std::tuple(true, false, true));
    Select(IDC_SCRIPT_TEMPLATES, L"Left_String");
    EXPECT_EQ(enabled(), std::tuple(true, true, true));
    SetLanguage(1);
    EXPECT_EQ(Count(IDC_SCRIPT_FUNCTIONS), 128);
    EXPECT_EQ(Count(IDC_SCRIPT_TEMPLATES), 18);
    RECT inside{};
    GetClientRect(Item(IDC_SCRIPT_FUNCTIONS), &inside);
    EXPECT_GT(SendMessageW(Item(IDC_SCRIPT_FUNCTIONS), LB_GETHORIZONTALEXTENT, 0, 0), inside.right)
        << "what is too long can be scrolled";
    EXPECT_EQ(enabled(), std::tuple(false, false, true));
    EXPECT_EQ(Script(), L"text");
    EXPECT_FALSE(IsModified());

    dialog.DestroyWindow();
    for (const wchar_t* language : {L"VBScript", L"vbscript", L"Perl"}) {
        Open(L"", language);
        EXPECT_EQ(Text(IDC_SCRIPT_LANGUAGE), language == std::wstring(L"VBScript") ? language : L"JScript");
        dialog.DestroyWindow();
    }
}

TEST_F(ScriptDlg, InsertsAFunctionAtTheSelection) {
    Open(L"a\r\nbcd\r\ne", L"VBScript");
    Notify(IDC_SCRIPT_FUNCTIONS, LBN_DBLCLK);
    EXPECT_EQ(Script(), L"a\r\nbcd\r\ne") << "none selected";
    CEdit box(Item(IDC_SCRIPT_TEXT));
    box.SetSel(4, 5);
    Select(IDC_SCRIPT_FUNCTIONS, L"Abs(");
    Click(IDC_SCRIPT_INSERT);
    const std::wstring entry = L"Abs( <<number>> )";
    EXPECT_EQ(Script(), L"a\r\nb" + entry + L"d\r\ne");
    EXPECT_EQ(box.GetSel(), std::pair(4UL + 17, 4UL + 17));
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 2, Col 19");
    EXPECT_TRUE(IsModified());
    Notify(IDC_SCRIPT_FUNCTIONS, LBN_DBLCLK);
    EXPECT_EQ(Script(), L"a\r\nb" + entry + entry + L"d\r\ne");
}

TEST_F(ScriptDlg, TellsWhereTheCaretIs) {
    Open(L"one\r\n\ttwo\r\nthree");
    dialog.ShowWindow(SW_SHOW);
    CEdit box(Item(IDC_SCRIPT_TEXT));
    box.SetFocus();
    const struct {
        DWORD start, end;
        const wchar_t* text;
    } cases[] = {{3, 3, L"Ln 1, Col 3"},
                 {16, 16, L"Ln 3, Col 6"},
                 {1, 6, L"Ln 2, Col 2"},
                 {6, 1, L"Ln 1, Col 2"}};  // selected backwards: the caret's line, the selection's end
    for (const auto& item : cases) {
        box.SetSel(item.start, item.end);
        Send(box.m_hWnd, WM_KEYDOWN, VK_SHIFT);
        EXPECT_EQ(Text(IDC_SCRIPT_CARET), item.text);
    }
    const LRESULT point = box.SendMessage(EM_POSFROMCHAR, 12);
    EXPECT_TRUE(Send(box.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, point));
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 3, Col 2") << "a click counts when it has been processed";
    EXPECT_TRUE(Send(box.m_hWnd, WM_MOUSEMOVE, MK_LBUTTON, box.SendMessage(EM_POSFROMCHAR, 6)));
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 2, Col 2")
        << "dragged backwards: the end of the selection is where it began";
    box.SendMessage(WM_LBUTTONUP, 0, point);
    SetFocus(Item(IDC_SCRIPT_TEST_TEXT));
    box.SetSel(0, 0);
    box.SetFocus();
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 1, Col 1") << "the focus comes back";
    EXPECT_FALSE(IsModified());
    SetFocus(Item(IDC_SCRIPT_TEST_TEXT));
    Type(L"a\r\nb");
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 2, Col 2") << "the thread's caret is in another box";
    EXPECT_TRUE(IsModified());

    std::wstring lines;
    for (int i = 0; i < 200; ++i) {
        lines += L"x\r\n";
    }
    box.SetFocus();
    Type(lines.c_str());
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 201, Col 1");
    box.SendMessage(EM_LINESCROLL, 0, -200);
    Send(box.m_hWnd, WM_KEYDOWN, VK_SHIFT);
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 201, Col 1") << "scrolled out of sight";
}

TEST_F(ScriptDlg, KeysOfItsOwn) {
    Open(L"ab");
    CEdit box(Item(IDC_SCRIPT_TEXT));
    box.SetSel(1, 2);
    EXPECT_TRUE(Send(box.m_hWnd, WM_KEYDOWN, VK_TAB));
    EXPECT_EQ(Script(), L"a\t");
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 1, Col 2");
    box.SendMessage(EM_UNDO);
    EXPECT_EQ(Script(), L"ab");
    const auto sendWith = [&](int modifier, WPARAM key) {
        BYTE keys[256] = {};
        keys[modifier] = 0x80;
        SetKeyboardState(keys);
        const bool isTaken = Send(box.m_hWnd, WM_KEYDOWN, key);
        keys[modifier] = 0;
        SetKeyboardState(keys);
        return isTaken;
    };
    sendWith(VK_SHIFT, VK_TAB);
    EXPECT_EQ(Script(), L"ab") << "backwards it leaves the box";
    box.SetSel(1, 1);
    SetFocus(Item(IDC_SCRIPT_TEST_TEXT));
    dialog.SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box.m_hWnd), TRUE);
    EXPECT_EQ(box.GetSel(), std::pair(1UL, 1UL)) << "reached by Tab, it is not all selected for the next one";
    sendWith(VK_CONTROL, 'A');
    EXPECT_EQ(box.GetSel(), std::pair(0UL, 2UL));
    EXPECT_EQ(Text(IDC_SCRIPT_CARET), L"Ln 1, Col 2");
    Send(Item(IDC_SCRIPT_TEST_TEXT), WM_KEYDOWN, VK_TAB);
    EXPECT_EQ(Text(IDC_SCRIPT_TEST_TEXT), L"");

    EXPECT_TRUE(Send(Item(IDC_SCRIPT_FUNCTIONS), WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(PostedCommand(dialog.m_hWnd), IDC_SCRIPT_INSERT);
    EXPECT_TRUE(Send(Item(IDC_SCRIPT_TEMPLATES), WM_KEYDOWN, VK_RETURN));
    EXPECT_EQ(PostedCommand(dialog.m_hWnd), 2101);
    dialog.SendMessage(WM_COMMAND, 2101);
    EXPECT_EQ(Script(), L"ab") << "which nobody handles";
}

TEST_F(ScriptDlg, EscapeAsksForChanges) {
    const struct {
        const wchar_t* typed;
        int answer;
        INT_PTR result;
    } cases[] = {{nullptr, IDCANCEL, IDCANCEL}, {L"new", IDYES, IDOK}, {L"new", IDNO, IDCANCEL}};
    for (const auto& item : cases) {
        dialog.engine = &engine;
        const MessageRecorder boxes(item.answer);
        const DialogSteps steps({[&](HWND) {
            if (item.typed != nullptr) {
                Type(item.typed);
            }
            PostMessageW(Item(IDC_SCRIPT_TEST_TEXT), WM_KEYDOWN, VK_ESCAPE, 0);
        }});
        EXPECT_EQ(dialog.DoModal(L"old"), item.result);
        EXPECT_EQ(boxes.texts, item.typed != nullptr ? Texts{kQuestion} : Texts{});
        EXPECT_EQ(dialog.m_strScript, item.result == IDOK ? L"new" : L"old");
    }
    Open(L"");
    Type(L"x");
    const MessageRecorder boxes(IDCANCEL);
    EXPECT_TRUE(Send(Item(IDC_SCRIPT_TEXT), WM_KEYDOWN, VK_ESCAPE)) << "taken, and the editor stays";
    EXPECT_EQ(boxes.styles, std::vector<UINT>{MB_YESNOCANCEL | MB_ICONQUESTION});
}

TEST_F(ScriptDlg, TemplatesMakeScripts) {
    dialog.engine = &engine;
    engine.results = {L"ran"};
    Open(L" \r\n ");
    {
        const DialogSteps none({});
        Click(IDC_SCRIPT_ADD_TEMPLATE);
        EXPECT_EQ(none.count, 0U) << "no template selected";
    }
    Select(IDC_SCRIPT_TEMPLATES, L"Left_String");
    {
        const DialogSteps steps({[](HWND function) {
                                     EXPECT_EQ(CWnd(function).GetDlgItemText(IDC_FUNCTION_NAME),
                                               L"Left_String");
                                     Press(function, IDCANCEL);
                                 },
                                 [](HWND function) {
                                     SetDlgItemTextW(function, IDC_FUNCTION_PARAM_1, L"abc");
                                     Press(function, IDOK);
                                 },
                                 [](HWND function) { Press(function, IDOK); }});
        Notify(IDC_SCRIPT_TEMPLATES, LBN_DBLCLK);
        EXPECT_EQ(Script(), L" \r\n ") << "cancelled";
        Notify(IDC_SCRIPT_TEMPLATES, LBN_DBLCLK);
        EXPECT_TRUE(Script().starts_with(L"\r\nfunction Main ( text, url ) {"));
        EXPECT_NE(Script().find(L"\"abc\""), std::wstring::npos);
        EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), L"ran");
        EXPECT_FALSE(IsModified());
        Notify(IDC_SCRIPT_TEMPLATES, LBN_DBLCLK);
        EXPECT_EQ(steps.count, 3U);
    }
    EXPECT_NE(Script().find(L"return Main2 ( result, url ) "), std::wstring::npos)
        << "the second one is added";

    // Only what replaces the script asks first; Yes goes on also when saving is cancelled.
    const struct {
        int button, answer;
        bool asks, saves, goesOn, staysModified;
    } cases[] = {{IDC_SCRIPT_NEW, IDYES, true, true, true, false},
                 {IDC_SCRIPT_NEW, IDNO, true, false, true, false},
                 {IDC_SCRIPT_NEW, IDCANCEL, true, false, false, true},
                 {IDC_SCRIPT_NEW_FROM_TEMPLATE, IDYES, true, true, true, false},
                 {IDC_SCRIPT_NEW_FROM_TEMPLATE, IDCANCEL, true, false, false, true},
                 {IDC_SCRIPT_ADD_TEMPLATE, IDCANCEL, false, false, true, false}};
    for (const auto& item : cases) {
        SCOPED_TRACE(testing::Message() << item.button << ", answer " << item.answer);
        Type(L"typed");
        const DialogSteps steps({[](HWND function) { Press(function, IDOK); }});
        {
            const MessageRecorder boxes(item.answer);
            const FileDialogAnswer save(std::nullopt);
            Click(item.button);
            EXPECT_EQ(boxes.texts, item.asks ? Texts{kQuestion} : Texts{});
            EXPECT_EQ(save.count, item.saves ? 1 : 0);
        }
        EXPECT_EQ(Script() != L"typed", item.goesOn);
        EXPECT_EQ(IsModified(), item.staysModified);
    }
    Type(L"typed");
    {
        const MessageRecorder boxes(IDNO);
        const DialogSteps steps({[](HWND function) { Press(function, IDCANCEL); }});
        Click(IDC_SCRIPT_NEW_FROM_TEMPLATE);
    }
    EXPECT_EQ(Script(), L"typed");
    EXPECT_FALSE(IsModified()) << "No has forgotten the changes, though the function was cancelled";

    SetLanguage(1);
    Click(IDC_SCRIPT_NEW);
    CScriptGenerator::stTemplate main;
    main.number = 61318;
    EXPECT_EQ(Script(), CScriptGenerator(ScriptLibrary()).InstantiateTemplate(L"VBScript", &main, L"Main"));
    EXPECT_FALSE(IsModified());
}

TEST_F(ScriptDlg, ParseIsContentWithEveryEngine) {
    dialog.engine = &engine;
    Open(L"code", L"VBScript");
    const struct {
        bool hasEngine;
        int language, code;
        Texts calls, boxes;
        bool accepted;
    } cases[] = {{true, 1, 1, {L"VBScript", L"code", L"gone"}, {L"The script parsed successfully"}, true},
                 {true, 0, 0, {L"VBScript", L"code", L"gone"}, {L"The script parsed successfully"}, true},
                 {true, -1, 1, {L"VBScript", L"gone"}, {}, false},
                 {true, 1, -1, {L"VBScript", L"code", L"gone"}, {}, false},
                 {false, 1, 1, {}, {}, false}};
    for (const auto& item : cases) {
        dialog.hasEngine = item.hasEngine;
        engine = {item.language, item.code, 1, 1, {}, {}};
        MessageRecorder boxes;
        Click(IDC_SCRIPT_PARSE);
        EXPECT_EQ(boxes.texts, item.boxes);
        EXPECT_EQ(engine.calls, item.calls);
        boxes.texts.clear();
        dialog.m_strScript = dialog.m_strLanguage = L"before";
        Click(IDOK);
        EXPECT_EQ(dialog.m_strScript, item.accepted ? L"code" : L"before");
        EXPECT_EQ(dialog.m_strLanguage, L"VBScript");
        EXPECT_TRUE(boxes.texts.empty()) << "OK says nothing";
    }
}

TEST_F(ScriptDlg, RunTestShowsTheResultsOfMain) {
    dialog.engine = &engine;
    Open(L"code");
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_TEXT, L"sample");
    const struct {
        EngineRecord engine;
        Texts calls;
        const wchar_t* shown;
    } cases[] = {
        {{1, 1, 1, 2, {L"a", L"b"}, {}},
         {L"JScript", L"code", L"count Main", L"Main", L"<sample>", L"<>", L"gone"},
         L"a\r\nb"},
        {{0, 0, 0, 1, {L"c"}, {}}, {L"JScript", L"code", L"count Main", L"Main", L"<sample>", L"gone"}, L"c"},
        {{1, 1, -1, -1, {L"d"}, {}},
         {L"JScript", L"code", L"count Main", L"Main", L"<sample>", L"gone"},
         L""},
        {{1, -1, 1, 2, {L"e"}, {}}, {L"JScript", L"code", L"gone"}, L""},
        {{-1, 1, 1, 2, {L"f"}, {}}, {L"JScript", L"gone"}, L""},
    };
    for (const auto& item : cases) {
        engine = item.engine;
        SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_RESULT, L"old");
        Click(IDC_SCRIPT_TEST_RUN);
        EXPECT_EQ(engine.calls, item.calls);
        EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), item.shown);
    }
    dialog.hasEngine = false;
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_RESULT, L"kept");
    Click(IDC_SCRIPT_TEST_RUN);
    EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), L"kept");
}

TEST_F(ScriptDlg, LoadsAndSavesFiles) {
    const TemporaryFolder folder;
    Open(L"text");
    const struct {
        int language;
        const wchar_t* extension;
        const wchar_t* filter;
    } cases[] = {{0, L"js", L"Java Script (*.js)|*.js|Script Files(*.txt)|*.txt|All Files(*.*)|*.*|"},
                 {1, L"vbs", L"VBScript (*.vbs)|*.vbs|Script Files(*.txt)|*.txt|All Files(*.*)|*.*|"},
                 {-1, L"",
                  L"VBScript (*.vbs)|*.vbs|Java Script (*.js)|*.js|Script Files(*.txt)|*.txt|All "
                  L"Files(*.*)|*.*|"}};
    for (const auto& item : cases) {
        SetLanguage(item.language);
        Type(L"\u00E4 saved");
        {
            const FileDialogAnswer save(folder.Path(L"s.js"));
            Click(IDC_SCRIPT_SAVE);
            EXPECT_FALSE(save.open);
            EXPECT_EQ(save.extension, item.extension);
            EXPECT_EQ(save.filter, item.filter);
            EXPECT_EQ(save.flags & (OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT),
                      DWORD{OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT});
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
        const MessageRecorder boxes;
        const FileDialogAnswer load(folder.Path(L"s.js"));
        Click(IDC_SCRIPT_LOAD);
        EXPECT_TRUE(load.open);
        EXPECT_EQ(load.extension, item.extension);
        EXPECT_EQ(load.filter, item.filter);
        EXPECT_NE(load.flags & OFN_FILEMUSTEXIST, 0U);
        EXPECT_EQ(Script(), L"\u00E4 saved");
        EXPECT_TRUE(boxes.texts.empty()) << "loading does not ask";
        EXPECT_FALSE(IsModified());
    }
}

TEST_F(ScriptDlg, LongScriptsOpenAndRunAndEndAtTheLimit) {
    std::wstring script = L"function Main ( text, url ) { return text; }\r\n";
    while (script.size() < CScriptDlg::kMaxScriptLength) {
        script += L"// sixteen more.\r\n";
    }
    script.resize(CScriptDlg::kMaxScriptLength);
    Open(script.c_str());
    SetDlgItemTextW(dialog.m_hWnd, IDC_SCRIPT_TEST_TEXT, L"x");
    Click(IDC_SCRIPT_TEST_RUN);
    EXPECT_EQ(Text(IDC_SCRIPT_TEST_RESULT), L"x");

    dialog.DestroyWindow();
    dialog.engine = &engine;
    for (const bool tooLong : {true, false}) {
        const MessageRecorder boxes;
        const DialogSteps steps({[&](HWND window) {
            // What is typed ends at the limit; a file can bring more.
            Type((script + L"/").c_str());
            EXPECT_EQ(Script().size(), script.size());
            if (tooLong) {
                SetDlgItemTextW(window, IDC_SCRIPT_TEXT, (script + L"/").c_str());
            }
            Press(window, IDOK);
            if (tooLong) {
                EXPECT_EQ(CEdit(Item(IDC_SCRIPT_TEXT)).GetSel(), std::pair(0UL, 32'769UL));
                Press(window, IDCANCEL);
            }
        }});
        EXPECT_EQ(dialog.DoModal(L""), tooLong ? IDCANCEL : IDOK);
        EXPECT_EQ(boxes.texts, tooLong ? Texts{L"Enter no more than 32768 characters."} : Texts{});
    }
}

TEST_F(ScriptDlg, KeepsItsPlaceOnTheScreen) {
    const auto show = [&](int width) {
        Open(L"");
        dialog.ShowWindow(SW_SHOW);
        const RECT place = dialog.GetWindowRect();
        SetWindowPos(dialog.m_hWnd, nullptr, 0, 0, width, place.bottom - place.top,
                     SWP_NOMOVE | SWP_NOZORDER);
        dialog.DestroyWindow();
        return place;
    };
    const RECT first = show(1000);
    EXPECT_EQ(first.left, 100);
    EXPECT_EQ(first.top, 100);
    EXPECT_EQ(first.right, GetSystemMetrics(SM_CXSCREEN) - 100);
    EXPECT_EQ(first.bottom, GetSystemMetrics(SM_CYSCREEN) - 100);
    const RECT second = show(1000);
    EXPECT_EQ(second.right, 1100);
    EXPECT_EQ(app.GetProfileInt(L"CScriptDlg", L"right", 0), 1100U);
}

}  // namespace
