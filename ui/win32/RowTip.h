#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "core/platform/Platform.h"
#include "framework/ToolTipCtrl.h"
#include "ui/win32/LocalShell.h"
#include "ui/win32/ProjectList.h"

class CSCVShchedulerTaskArray;

// Shows the HoverText of the project below the mouse in the dialog's tooltip control. The text is computed
// when the tooltip opens, not before. Files on other machines are not accessed.
class CRowTip {
public:
    // These objects outlive this one, which owns none of them.
    CRowTip(const CToolTipCtrl& toolTip, const CProjectList& list, const CSCVShchedulerTaskArray& tasks,
            const CPlatform& platform) noexcept
        : m_toolTip(toolTip),
          m_list(list),
          m_tasks(tasks),
          m_shell(platform.shell),
          m_platform{platform.clock, platform.files, m_shell} {}

    // Pass every message here before the tooltip control gets it.
    void Follow(const MSG& message);
    // Hides the tooltip until the mouse moves again: its text may be out of date.
    void Hide();
    // Handles the tooltip control's request for the text. Returns true when the request is about a row.
    bool OnGetDispInfo(NMTTDISPINFOW& request);

private:
    const CToolTipCtrl& m_toolTip;
    const CProjectList& m_list;
    const CSCVShchedulerTaskArray& m_tasks;
    CLocalShell m_shell;
    CPlatform m_platform;
    int m_row = -1;       // the row of the tool; -1 without a tool
    std::wstring m_text;  // the tooltip control has a pointer to it
};
