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

    // FALSE when the system cannot create it.
    BOOL Create(const CWnd& parent);
    BOOL AddTool(HWND control, const std::wstring& text) const;
    // Adds a tool whose text the parent provides each time, on TTN_GETDISPINFO. DelTool removes the tool and
    // hides its tooltip.
    BOOL AddTool(HWND control) const;
    void DelTool(HWND control) const;
    // Allows texts with several lines. Breaks lines wider than so many pixels at blanks.
    void SetMaxTipWidth(int width) const;
    // How many milliseconds a tooltip stays, at most 32,767.
    void SetAutoPopTime(int milliseconds) const;
    void Activate(bool activate) const;
    // Pass every message of the thread before it is dispatched. Does nothing before Create.
    void RelayEvent(MSG* message) const;
    void Destroy() noexcept;
};
