#include "ui/win32/TaskEditor.h"

#include <gtest/gtest.h>

#include "script/resource.h"
#include "tests/support/DialogSteps.h"
#include "tests/support/MainDialog.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/model/EditorMembers.h"
#include "util/win32/ComApartment.h"

namespace {

class TaskEditor : public MainDialogTest {
protected:
    void SetUp() override { Open({L"C:\\1.scvpr", L"C:\\2.scvpr", L"C:\\3.scvpr"}); }
    void Type(int id, const std::wstring& text) const { SetWindowTextW(Item(id), text.c_str()); }
    void Pick(int id, SYSTEMTIME time) const {
        SendMessageW(Item(id), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
        Notify(id, DTN_DATETIMECHANGE);
    }
    [[nodiscard]] SYSTEMTIME Picked(int id) const {
        SYSTEMTIME time{};
        SendMessageW(Item(id), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time));
        return time;
    }
};

TEST_F(TaskEditor, ShowsTheFocusedWritesAllSelected) {
    Task(2).m_bDeleteUrls = 2;
    Task(2).m_strUrlsFile = L"urls.csv";
    Task(2).m_nEveryValue = 30;
    Task(2).m_nEveryUnit = 0;
    Task(2).m_tStartTime = FromLocalTime(2024, 3, 5, 8, 15, 42);
    Select({0, 2});
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_DELETE_URLS));
    EXPECT_EQ(dialog->GetDlgItemText(IDC_URLS_FILE), L"urls.csv");
    EXPECT_EQ(dialog->GetDlgItemText(IDC_EVERY_VALUE), L"30");
    EXPECT_EQ(dialog->GetDlgItemText(IDC_EVERY_UNIT), L"minutes");
    EXPECT_EQ(Picked(IDC_START_DATE).wMonth, 3);
    EXPECT_EQ(Picked(IDC_START_TIME).wHour, 8);
    EXPECT_EQ(Picked(IDC_UNTIL_TIME).wMinute, 59);

    Type(IDC_EVERY_VALUE, L"12abc");
    SendMessageW(Item(IDC_EVERY_UNIT), CB_SETCURSEL, 1, 0);
    dialog->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_EVERY_UNIT, CBN_SELCHANGE),
                        reinterpret_cast<LPARAM>(Item(IDC_EVERY_UNIT)));
    for (const int row : {0, 2}) {
        EXPECT_EQ(Task(row).m_nEveryValue, 12);
        EXPECT_EQ(Task(row).m_nEveryUnit, 1);
    }
    EXPECT_EQ(Task(1).m_nEveryValue, 1) << "not selected";
    EXPECT_EQ(Task(0).m_bDeleteUrls, 0) << "not changed";
    EXPECT_EQ(Task(0).m_strUrlsFile, L"") << "showing a row is no typing";
}

TEST_F(TaskEditor, WithoutASelectionItShowsDefaults) {
    Task(0).m_bDeleteUrls = 1;
    Select({0});
    EXPECT_TRUE(dialog->IsDlgButtonChecked(IDC_DELETE_URLS));
    Select({});
    NMITEMACTIVATE click{};
    click.ptAction = {5, 4000};
    Notify(IDC_PROJECT_LIST, NM_CLICK, click);
    EXPECT_FALSE(dialog->IsDlgButtonChecked(IDC_DELETE_URLS));
    EXPECT_FALSE(IsEnabled(IDC_DELETE_PROJECT));
    SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(IsEnabled(IDC_DELETE_PROJECT)) << "a selection without the focus counts";
}

TEST_F(TaskEditor, BrowseButtonsChooseFiles) {
    for (const int box :
         {IDC_EXPORT_TO_NEW_FILE, IDC_EXPORT_FAILED_URLS, IDC_ADD_URLS, IDC_IMPORT_INPUT_VALUES}) {
        Click(box);
    }
    const std::wstring longName(33'000, L'x');
    for (const stSwitchControls& browse : kSwitchControls) {
        if (browse.filter == nullptr) {
            continue;
        }
        Type(browse.edit, longName);
        const FileDialogAnswer answer(L"C:\\chosen.csv");
        Click(browse.browse);
        EXPECT_EQ(answer.fileName, longName) << "the buffer grows with the name that it starts with";
        EXPECT_EQ(answer.filter + L'|', browse.filter);
        EXPECT_EQ(dialog->GetDlgItemText(browse.edit), L"C:\\chosen.csv");
    }
    EXPECT_EQ(Task(0).m_strInputValuesFile, L"C:\\chosen.csv");
}

TEST_F(TaskEditor, ScriptButtonEditsTheScriptFile) {
    const CComApartment apartment;
    const MessageRecorder boxes;
    const TemporaryFolder folder;
    const std::wstring present = folder.File(L"old.js", "old");
    const std::wstring missing = folder.Path(L"missing.js");
    const std::wstring chosen = folder.Path(L"chosen.js");
    const struct {
        std::wstring path;
        const wchar_t* shown;
        int button;
        const wchar_t* script;
        std::optional<std::wstring> answer;  // of the save dialog
        std::wstring pathAfter, fileAfter;
        const char* bytesAfter;
    } cases[] = {{present, L"old", IDCANCEL, L"x", chosen, present, present, "old"},
                 {present, L"old", IDOK, L"var f;", chosen, present, present, "var f;"},
                 {missing, L"", IDOK, L"\u00E4", chosen, chosen, chosen, "\xC3\xA4"},
                 {present, L"var f;", IDOK, L"", chosen, L"", present, "var f;"}};
    Click(IDC_GENERATE_URLS);
    for (const auto& item : cases) {
        SCOPED_TRACE(item.script);
        Type(IDC_SCRIPT_FILE, item.path);
        const FileDialogAnswer save(item.answer);
        const DialogSteps steps({[&](HWND editor) {
            EXPECT_EQ(CWnd(editor).GetDlgItemText(IDC_SCRIPT_TEXT), item.shown);
            SetDlgItemTextW(editor, IDC_SCRIPT_TEXT, item.script);
            SendDlgItemMessageW(editor, item.button, BM_CLICK, 0, 0);
        }});
        Click(IDC_SCRIPT_FILE_BROWSE);
        EXPECT_FALSE(save.open);
        EXPECT_EQ(Task(0).m_strScriptFile, item.pathAfter);
        EXPECT_EQ(BytesOf(item.fileAfter), item.bytesAfter);
    }
}

TEST_F(TaskEditor, PickerGoesBackFromAnImpossibleDate) {
    const MessageRecorder boxes;
    Task(0).m_tStartTime = FromLocalTime(2024, 3, 5, 8, 15, 42);
    Select({0});
    Pick(IDC_START_DATE, {1800, 3, 0, 6, 1, 1, 1, 0});
    EXPECT_EQ(boxes.texts.size(), 1U);
    EXPECT_EQ(Picked(IDC_START_DATE).wYear, 2024);
    EXPECT_EQ(Task(0).m_tStartTime, FromLocalTime(2024, 3, 5, 8, 15, 42));
}

TEST_F(TaskEditor, PickersWriteIntoTheSelected) {
    Task(1).m_tStartTime = FromLocalTime(2024, 3, 5, 9, 15, 42);
    Select({1});
    Pick(IDC_START_DATE, {2024, 3, 0, 6, 1, 1, 1, 0});
    Pick(IDC_START_TIME, {2001, 1, 0, 1, 10, 30, 59, 0});
    EXPECT_EQ(Task(1).m_tStartTime, FromLocalTime(2024, 3, 6, 10, 30, 0));
    Pick(IDC_UNTIL_TIME, {2024, 3, 0, 6, 18, 45, 0, 0});
    EXPECT_EQ(Task(1).m_tUntilTime, FromLocalTime(2024, 3, 6, 18, 45, 0));
    Click(IDC_SET_CURRENT);
    EXPECT_EQ(Task(1).m_tStartTime, clock.now);
    EXPECT_EQ(Picked(IDC_START_TIME).wHour, 10);
    EXPECT_EQ(Picked(IDC_START_DATE).wYear, 2026);
    EXPECT_EQ(Picked(IDC_UNTIL_TIME).wHour, 18) << "the other picker stays";
}

}  // namespace
