#pragma once

#include <vector>

#include "framework/GuiHandle.h"
#include "framework/ToolTipCtrl.h"
#include "framework/Wnd.h"

// The buttons of the main dialog that show an icon; their texts are their tooltips.
class CIconButtons {
public:
    // The icons live as long as this object.
    void LoadIcons(const CWnd& dialog);
    static void AddTips(const CWnd& dialog, CToolTipCtrl& tips);

private:
    std::vector<CIconHandle> m_icons;
};
