#pragma once

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/LocalTime.h"
#include "core/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/FileDialogAnswer.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestApp.h"
#include "ui/SCVSchedulerDlg.h"
#include "ui/resource.h"
#include "util/Registry.h"

// The main dialog, hidden, over files in memory, a shell that starts nothing, a clock that stands and
// settings of its own. The registry values that the program writes elsewhere are given back at the end.
class MainDialogTest : public testing::Test {
protected:
    using Paths = std::vector<std::wstring>;
    using Names = std::vector<std::wstring>;

    ~MainDialogTest() override {
        dialog.reset();
        Restore(kRunKey, L"SCVScheduler", m_run);
        Restore(kProgramKey, L"ProgramFileName", m_program);
    }

    // Puts a list of these projects into the file, none of them due, and opens the dialog on it.
    void Open(const Paths& projects) {
        CSCVShchedulerTaskArray tasks;
        for (const std::wstring& project : projects) {
            tasks.AddTask(project, clock.now);
        }
        ASSERT_TRUE(tasks.TrySave(files, kList));
        Open();
    }
    void Open() {
        dialog.emplace(CPlatform{clock, files, shell}, kList);
        ASSERT_TRUE(dialog->Create(IDD_MAIN));
    }

    [[nodiscard]] HWND Item(int id) const { return dialog->GetDlgItem(id); }
    [[nodiscard]] bool IsEnabled(int id) const { return IsWindowEnabled(Item(id)) != FALSE; }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }
    LRESULT Notify(int id, UINT code, const NMHDR* more = nullptr) const {
        NMHDR plain{};
        auto* header = more != nullptr ? const_cast<NMHDR*>(more) : &plain;
        header->hwndFrom = Item(id);
        header->idFrom = static_cast<UINT_PTR>(id);
        header->code = code;
        return dialog->SendMessage(WM_NOTIFY, header->idFrom, reinterpret_cast<LPARAM>(header));
    }
    void ClickHeader(int column) const {
        NMLISTVIEW click{};
        click.iSubItem = column;
        Notify(IDC_PROJECT_LIST, LVN_COLUMNCLICK, &click.hdr);
    }
    void Tick(WPARAM id = CSCVSchedulerDlg::kTimer) const { dialog->SendMessage(WM_TIMER, id); }

    // NOLINTNEXTLINE(modernize-use-nodiscard): most messages are sent for what they do
    LRESULT List(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(Item(IDC_PROJECT_LIST), message, wParam, lParam);
    }
    [[nodiscard]] int RowCount() const { return static_cast<int>(List(LVM_GETITEMCOUNT)); }
    [[nodiscard]] std::wstring Cell(int row, int column) const {
        wchar_t text[512] = {};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 512;
        List(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    // The first column from top to bottom.
    [[nodiscard]] Names Rows() const {
        Names rows;
        for (int row = 0; row < RowCount(); ++row) {
            rows.push_back(Cell(row, 0));
        }
        return rows;
    }
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
            const UINT state = LVIS_SELECTED | (row == rows.back() ? LVIS_FOCUSED : 0U);
            SetState(row, state, state);
        }
    }
    [[nodiscard]] Names Selected() const {
        Names names;
        for (int row = -1;
             (row = static_cast<int>(List(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0;) {
            names.push_back(Cell(row, 0));
        }
        return names;
    }

    // The projects that the file holds now.
    Paths Saved() {
        CSCVShchedulerTaskArray tasks;
        tasks.Load(files, kList);
        Paths paths;
        for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
            paths.push_back(tasks[i]->m_strProjectPath);
        }
        return paths;
    }
    static std::optional<std::wstring> Value(const wchar_t* key, const wchar_t* name) {
        wchar_t text[1024] = {};
        DWORD size = sizeof(text);
        return RegGetValueW(HKEY_CURRENT_USER, key, name, RRF_RT_REG_SZ, nullptr, text, &size) ==
                       ERROR_SUCCESS
                   ? std::optional<std::wstring>(text)
                   : std::nullopt;
    }

    static constexpr wchar_t kList[] = L"C:\\list.ini";
    static constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
    static constexpr wchar_t kProgramKey[] = L"Software\\Talvernick\\Scrivane";
    TestApp app;
    FakeClock clock{FromLocalTime(2026, 2, 25, 10, 0, 0)};
    CFakeFileSystem files;
    FakeShell shell;
    std::optional<CSCVSchedulerDlg> dialog;

private:
    static void Restore(const wchar_t* key, const wchar_t* name, const std::optional<std::wstring>& value) {
        if (value) {
            RegWriteString(HKEY_CURRENT_USER, key, name, value->c_str());
        } else {
            RegDeleteKeyValueW(HKEY_CURRENT_USER, key, name);
        }
    }
    std::optional<std::wstring> m_run = Value(kRunKey, L"SCVScheduler");
    std::optional<std::wstring> m_program = Value(kProgramKey, L"ProgramFileName");
};
