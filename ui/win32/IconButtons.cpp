#include "ui/win32/IconButtons.h"

#include "framework/IconResource.h"
#include "ui/model/EditorMembers.h"
#include "ui/resource.h"

namespace {

constexpr struct {
    int button;
    int icon;
} kIconButtons[] = {
    {IDC_ADD_PROJECT, IDI_ADD_PROJECT},
    {IDC_EDIT_PROJECT, IDI_BROWSE},
    {IDC_DELETE_PROJECT, IDI_DELETE_PROJECT},
    {IDC_RUN_PROJECT, IDI_RUN},
    {IDC_RESET_LAST_RUN, IDI_RESET_LAST_RUN},
    {IDC_PROGRAM_BROWSE, IDI_BROWSE},
    {IDC_PROGRAM_RUN, IDI_RUN},
};

// Calls `use` with id and icon of every button that shows an icon.
template <typename Use>
void ForEachIconButton(Use use) {
    for (const auto& item : kIconButtons) {
        use(item.button, item.icon);
    }
    for (const stSwitchControls& row : kSwitchControls) {
        if (row.browse != 0) {
            use(row.browse, IDI_BROWSE);
        }
    }
}

}  // namespace

void CIconButtons::LoadIcons(const CWnd& dialog) {
    ForEachIconButton([&](int button, int icon) {
        m_icons.push_back(LoadSmallIcon(icon));
        CWnd(dialog.GetDlgItem(button))
            .SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(m_icons.back().Get()));
    });
}

void CIconButtons::AddTips(const CWnd& dialog, CToolTipCtrl& tips) {
    ForEachIconButton(
        [&](int button, int) { tips.AddTool(dialog.GetDlgItem(button), dialog.GetDlgItemText(button)); });
}
