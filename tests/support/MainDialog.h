#pragma once

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/launch/ExtractionProgram.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "framework/MessageLoop.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/FileDialogAnswer.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestApp.h"
#include "ui/resource.h"
#include "ui/win32/SCVSchedulerDlg.h"
#include "util/win32/Registry.h"

// The main dialog, hidden, with files in memory, a shell that starts nothing, a clock that the test sets and
// a registry of its own.
class MainDialogTest : public testing::Test {
protected:
    using Texts = std::vector<std::wstring>;

    // Puts a list of these projects into the file, none of them due, and opens the dialog on it.
    void Open(const Texts& projects) {
        CSCVShchedulerTaskArray tasks;
        for (const std::wstring& project : projects) {
            tasks.AddTask(project, clock.now);
        }
        ASSERT_TRUE(tasks.TrySave(files, kList));
        dialog.emplace(CPlatform{clock, files, shell}, kList);
        ASSERT_TRUE(dialog->Create(IDD_MAIN));
    }

    [[nodiscard]] HWND Item(int id) const { return dialog->GetDlgItem(id); }
    [[nodiscard]] bool IsEnabled(int id) const { return IsWindowEnabled(Item(id)) != FALSE; }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    template <class Record = NMHDR>
    void Notify(int id, UINT code, Record record = {}) const {
        auto* header = reinterpret_cast<NMHDR*>(&record);
        *header = {Item(id), static_cast<UINT_PTR>(id), code};
        dialog->SendMessage(WM_NOTIFY, header->idFrom, reinterpret_cast<LPARAM>(header));
    }
    void Tick(WPARAM id = CSCVSchedulerDlg::kTimer) const { dialog->SendMessage(WM_TIMER, id); }

    // NOLINTNEXTLINE(modernize-use-nodiscard): most messages are sent for what they do
    LRESULT List(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(Item(IDC_PROJECT_LIST), message, wParam, lParam);
    }
    [[nodiscard]] std::wstring Cell(int row, int column) const {
        wchar_t text[512] = {};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 512;
        List(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    // The first column of all rows, or of those in a state, from top to bottom.
    [[nodiscard]] Texts Rows(UINT state = LVNI_ALL) const {
        Texts rows;
        for (int row = -1; (row = static_cast<int>(List(LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                                                        static_cast<LPARAM>(state)))) >= 0;) {
            rows.push_back(Cell(row, 0));
        }
        return rows;
    }
    [[nodiscard]] Texts Selected() const { return Rows(LVNI_SELECTED); }
    [[nodiscard]] CSCVShchedulerTask& Task(int row) const {
        LVITEMW item{};
        item.mask = LVIF_PARAM;
        item.iItem = row;
        List(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return *reinterpret_cast<CSCVShchedulerTask*>(item.lParam);
    }
    void SetState(int row, UINT state, UINT mask) const {
        LVITEMW item{};
        item.state = state;
        item.stateMask = mask;
        List(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    // Selects these rows alone; the last gets the focus.
    void Select(const std::vector<int>& rows) const {
        SetState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
        for (const int row : rows) {
            SetState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        }
    }

    static std::wstring Registered(const wchar_t* key, const wchar_t* name) {
        std::wstring text;
        RegReadString(HKEY_CURRENT_USER, key, name, text);
        return text;
    }

    static constexpr wchar_t kList[] = L"C:\\list.ini";
    static constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    TestApp app;
    FakeClock clock{FromLocalTime(2026, 2, 25, 10, 0, 0)};
    CFakeFileSystem files;
    FakeShell shell;
    std::optional<CSCVSchedulerDlg> dialog;
};
