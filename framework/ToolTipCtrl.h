#pragma once

#include <windows.h>

#include <string>

#include "framework/Wnd.h"

// The tooltips of a window's controls. The object owns the tooltip window.
class CToolTipCtrl : public CWnd {
public:
    CToolTipCtrl() noexcept = default;
    CToolTipCtrl(const CToolTipCtrl&) = delete;
    CToolTipCtrl& operator=(const CToolTipCtrl&) = delete;
    ~CToolTipCtrl() override { Destroy(); }

    // FALSE when the system cannot make it.
    BOOL Create(const CWnd& parent);
    BOOL AddTool(HWND control, const std::wstring& text) const;
    // A tool whose text the parent gives each time, on TTN_GETDISPINFO; DelTool takes it and its tooltip
    // away.
    BOOL AddTool(HWND control) const;
    void DelTool(HWND control) const;
    // Lets texts have several lines, and breaks those that are wider than so many pixels where they have
    // blanks.
    void SetMaxTipWidth(int width) const;
    // For how many milliseconds a tooltip stays, at most 32767.
    void SetAutoPopTime(int milliseconds) const;
    void Activate(bool activate) const;
    // To be given every message of the thread before it is dispatched; nothing happens before Create.
    void RelayEvent(MSG* message) const;
    void Destroy() noexcept;
};
