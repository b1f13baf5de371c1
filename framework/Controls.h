#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "framework/Wnd.h"

// Wrappers of the system's simple controls, with the calls that the program makes on them. An index of -1
// stands for no item.

class CListBox : public CWnd {
public:
    using CWnd::CWnd;
    // The new item's index, which in a sorted list depends on its text.
    // NOLINTNEXTLINE(modernize-use-nodiscard): called for what it does
    int AddString(const std::wstring& text) const {
        return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
    }
    void ResetContent() const { SendMessage(LB_RESETCONTENT); }
    [[nodiscard]] int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
    void SetItemData(int index, LPARAM data) const {
        SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), data);
    }
    [[nodiscard]] LRESULT GetItemData(int index) const {
        return SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index));
    }
    [[nodiscard]] int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
    // Sets the scroll range of a list with a horizontal scroll bar to its longest item; the bar is shown only
    // when an item is too long. Call it after filling the list.
    void FitHorizontalExtent() const;
    // Empty for no item.
    [[nodiscard]] std::wstring GetText(int index) const {
        const LRESULT length = SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(index));
        std::wstring text(static_cast<std::size_t>(length < 0 ? 0 : length), L'\0');
        if (!text.empty()) {
            SendMessage(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        }
        return text;
    }
};

class CComboBox : public CWnd {
public:
    using CWnd::CWnd;
    // The new item's index, which in a sorted list depends on its text.
    // NOLINTNEXTLINE(modernize-use-nodiscard): called for what it does
    int AddString(const std::wstring& text) const {
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
    }
    [[nodiscard]] int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    [[nodiscard]] int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    void SetCurSel(int index) const { SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)); }
    void SetItemData(int index, LPARAM data) const {
        SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), data);
    }
    [[nodiscard]] LRESULT GetItemData(int index) const {
        return SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index));
    }
};

// Positions count UTF-16 units of the text, CR and LF one each.
class CEdit : public CWnd {
public:
    using CWnd::CWnd;
    // Start and end of the selection. The caret may be at either.
    [[nodiscard]] std::pair<DWORD, DWORD> GetSel() const {
        std::pair<DWORD, DWORD> selection{};
        SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&selection.first),
                    reinterpret_cast<LPARAM>(&selection.second));
        return selection;
    }
    void SetSel(DWORD start, DWORD end) const { SendMessage(EM_SETSEL, start, static_cast<LPARAM>(end)); }
    void ReplaceSel(const std::wstring& text, bool canUndo) const {
        SendMessage(EM_REPLACESEL, canUndo ? TRUE : FALSE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    // 0 removes the limit.
    void SetLimitText(UINT characters) const { SendMessage(EM_SETLIMITTEXT, characters); }
};
