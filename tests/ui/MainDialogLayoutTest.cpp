#include <windows.h>

#include <commctrl.h>

#include "layout/AnchorGeometry.h"
#include "tests/support/DialogLayoutTest.h"
#include "ui/resource.h"

namespace {

class MainDialogLayout : public DialogLayoutTest {
protected:
    MainDialogLayout() : DialogLayoutTest(IDD_MAIN) {}
};

INSTANTIATE_DIALOG_LAYOUT(MainDialogLayout);

TEST_P(MainDialogLayout, HasEveryControlOnceWithItsCaption) {
    // clang-format off
    const std::map<int, std::wstring> expected = {
        {1048, L"Scrivane File Name"}, {1047, L""}, {1241, L"&Browse... (Alt+B)"}, {1049, L"Run Program"},
        {1017, L""}, {1240, L"&Add Project... (Alt+A)"}, {1251, L"&Edit Project File... (Alt+E)"},
        {1026, L"Delete Project (Del)"}, {1043, L"&Run Project (Alt+R)"}, {1045, L"Reset Last Run Time"},
        {1012, L"Delete Project URLs"}, {1011, L"Reset Project URLs"}, {1010, L"Delete Results"},
        {1014, L"Start Project"}, {1052, L"Restart Project"}, {1022, L"Export Results"},
        {1016, L"Apply Results Filter"}, {1028, L"Close program when finished"},
        {1019, L"Export results into new file:"}, {1020, L""}, {1243, L"&Browse..."},
        {1027, L"Export failed URLs into file:"}, {1021, L""}, {1244, L"&Browse..."},
        {1013, L"Add new URLs from file:"}, {1018, L""}, {1242, L"&Browse..."},
        {1050, L"Generate new URLs using script:"}, {1051, L""}, {1247, L"&Browse..."},
        {1015, L"Import input values from file:"}, {1023, L""}, {1246, L"&Browse..."}, {1024, L""},
        {1025, L""}, {1030, L""}, {1029, L""}, {1245, L"Set Current"}, {1031, L"Mon"}, {1032, L"Tue"},
        {1033, L"Wen"}, {1034, L"Thu"}, {1035, L"Fri"}, {1036, L"Sat"}, {1037, L"Sun"}, {1053, L"Monthly"},
        {1042, L"E&very:"}, {1039, L""}, {1040, L""}, {1041, L""}, {1044, L"Until:"}, {1038, L""},
        {1046, L"Run SCV Scheduler at Windows &startup"}, {1, L"&OK"}, {2, L"&Cancel"}, {32772, L"E&xit"}};
    // clang-format on
    ExpectControls(expected, {L"Co&mmands", L"Start &Date/Time", L"&Repeat", L"Input element name:",
                              L"Input element id:"});
    EXPECT_EQ(SendDlgItemMessageW(m_dialog, IDC_EVERY_SPIN, UDM_GETBUDDY, 0, 0),
              reinterpret_cast<LRESULT>(GetDlgItem(m_dialog, IDC_EVERY_VALUE)));
}

TEST_P(MainDialogLayout, CutsNothingOffOverlapsNothingAndFollowsTheEye) {
    ExpectNothingCutOff({{IDC_START_DATE, L"30/12/2026"},
                         {IDC_START_TIME, L"23:59"},
                         {IDC_UNTIL_TIME, L"23:59"},
                         {IDC_EVERY_UNIT, L"minutes"}});
    ExpectNoOverlap([](int id) -> std::uint32_t {
        switch (id) {
            case IDC_PROJECT_LIST:
                return ANCHOR_ALL;
            case IDC_PROGRAM_GROUP:
            case IDC_PROGRAM_PATH:
                return ANCHOR_LEFT | ANCHOR_TOP | ANCHOR_RIGHT;
            case IDC_ADD_PROJECT:
            case IDC_EDIT_PROJECT:
            case IDC_DELETE_PROJECT:
            case IDC_RUN_PROJECT:
            case IDC_RESET_LAST_RUN:
                return ANCHOR_LEFT | ANCHOR_BOTTOM;
            case IDC_RUN_AT_STARTUP:
            case IDOK:
            case IDCANCEL:
            case ID_EXIT_PROGRAM:
                return ANCHOR_RIGHT | ANCHOR_BOTTOM;
            default:
                return ANCHOR_TOP | ANCHOR_RIGHT;
        }
    });
    ExpectEyeOrderAndLabels();
    // The browse buttons all say so; "Run Project" and "Repeat" share the other.
    EXPECT_EQ(SharedMnemonics(), (std::map<wchar_t, int>{{L'b', 6}, {L'r', 2}}));
}

TEST(Resources, HoldTheTrayMenuAndEveryIconSize) {
    const HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(135));
    ASSERT_EQ(GetMenuItemCount(menu), 3);
    for (const auto& [id, expected] : {std::pair{32771U, L"SCV Scheduler"}, {32772U, L"Exit"}}) {
        wchar_t text[32] = {};
        GetMenuStringW(menu, id, text, 32, MF_BYCOMMAND);
        EXPECT_STREQ(text, expected);
    }
    EXPECT_TRUE(GetMenuState(menu, 1, MF_BYPOSITION) & MF_SEPARATOR);
    DestroyMenu(menu);

    std::set<int> pictures;
    for (const int id : {128, 133, 141, 142, 143, 144, 145, 241, 512}) {
        const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_GROUP_ICON);
        ASSERT_TRUE(resource) << id;
        // A header of three words, the last the count; then 14 bytes a picture, its width first (0 means
        // 256), its resource's id last.
        const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, resource)));
        std::set<int> widths;
        for (int i = 0; i < bytes[4]; ++i) {
            const BYTE* entry = bytes + 6 + 14 * i;
            widths.insert(entry[0] != 0 ? entry[0] : 256);
            EXPECT_TRUE(pictures.insert(entry[12] + 256 * entry[13]).second)
                << "another icon's picture: " << id;
        }
        const bool mark = id == 142 || id == 144;
        EXPECT_EQ(widths, mark ? std::set<int>({8, 10, 12, 16}) : std::set<int>({16, 20, 24, 32, 48, 256}))
            << id;
    }
}

TEST(Resources, AskForVisualStylesAndTheScreensOwnResolution) {
    EXPECT_TRUE(IsProcessDPIAware());
    ACTCTX_SECTION_KEYED_DATA data = {};
    data.cbSize = sizeof data;
    EXPECT_TRUE(FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION,
                                         L"comctl32.dll", &data))
        << "no version 6 of the common controls: error " << GetLastError();
}

}  // namespace
