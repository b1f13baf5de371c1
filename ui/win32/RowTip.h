#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "core/platform/Platform.h"
#include "framework/ToolTipCtrl.h"
#include "ui/win32/LocalShell.h"
#include "ui/win32/ProjectList.h"

class CSCVShchedulerTaskArray;

// Shows what HoverText says about the project on which the mouse rests, in the dialog's tooltip control. The
// text is worked out when the tooltip comes up, not before. Files on other machines are not looked for.
class CRowTip {
public:
    // All of it outlives the object, and nothing is owned.
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
    std::wstring m_text;  // lent to the tooltip control
};
