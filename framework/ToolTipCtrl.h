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
    void Activate(bool activate) const;
    // To be given every message of the thread before it is dispatched; nothing happens before Create.
    void RelayEvent(MSG* message) const;
    void Destroy() noexcept;
};
