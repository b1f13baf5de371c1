#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "layout/AnchorGeometry.h"
#include "ui/resource.h"

namespace {

struct Control {
    HWND window;
    int id;
    std::wstring kind;  // the window class
    std::wstring text;
    DWORD style;
    RECT rect;  // client coordinates

    [[nodiscard]] bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    [[nodiscard]] bool IsButton(DWORD type) const {
        return kind == WC_BUTTONW && (style & BS_TYPEMASK) == type;
    }
    [[nodiscard]] bool IsGroup() const { return IsButton(BS_GROUPBOX); }
    [[nodiscard]] bool IsIconButton() const { return kind == WC_BUTTONW && (style & BS_ICON) != 0; }
    [[nodiscard]] bool IsField() const {
        static const std::set<std::wstring> fields = {WC_EDITW, WC_COMBOBOXW, WC_LISTVIEWW,
                                                      DATETIMEPICK_CLASSW};
        return fields.contains(kind);
    }
    [[nodiscard]] bool Contains(const Control& other) const {
        RECT both;
        UnionRect(&both, &rect, &other.rect);
        return EqualRect(&both, &rect) != FALSE;
    }
};

testing::Message Describe(const Control& control) {
    return testing::Message() << "control " << control.id << " \"" << control.text << "\" at "
                              << control.rect.left << "," << control.rect.top << "-" << control.rect.right
                              << "," << control.rect.bottom;
}

// The template with another font size, which enlarges the dialog as a finer screen does.
std::vector<WORD> TemplateWithPointSize(WORD points) {
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(IDD_MAIN), RT_DIALOG);
    const auto* bytes = static_cast<const WORD*>(LockResource(LoadResource(nullptr, resource)));
    std::vector<WORD> copy(bytes, bytes + SizeofResource(nullptr, resource) / sizeof(WORD));
    const auto afterMenuAndClass = copy.begin() + 13 + 2;  // both are absent: one zero each
    *(std::find(afterMenuAndClass, copy.end(), WORD{0}) + 1) = points;
    return copy;
}

// The real dialog, hidden, with the fonts of 96, 120, 144 and 192 dots per inch.
// Not a lambda: those have the other calling convention in 32 bit.
INT_PTR CALLBACK LeavesAllToTheSystem(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

class MainDialogLayout : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES |
                                                                  ICC_DATE_CLASSES | ICC_UPDOWN_CLASS};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
        const std::vector<WORD> bytes = TemplateWithPointSize(static_cast<WORD>(MulDiv(8, GetParam(), 96)));
        m_dialog = CreateDialogIndirectParamW(
            GetModuleHandleW(nullptr),
            static_cast<const DLGTEMPLATE*>(static_cast<const void*>(bytes.data())), nullptr,
            LeavesAllToTheSystem, 0);
        ASSERT_TRUE(m_dialog);
        for (HWND child = GetWindow(m_dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            wchar_t kind[64] = {};
            wchar_t text[128] = {};
            GetClassNameW(child, kind, 64);
            GetWindowTextW(child, text, 128);
            RECT rect;
            GetWindowRect(child, &rect);
            MapWindowPoints(nullptr, m_dialog, static_cast<POINT*>(static_cast<void*>(&rect)), 2);
            m_controls.push_back({child, GetDlgCtrlID(child), kind,
                                  kind == std::wstring(WC_EDITW) ? L"" : text,
                                  static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE)), rect});
        }
        // What the template asks for; the window itself is never larger than the screen.
        m_client = {0, 0, bytes[11], bytes[12]};
        MapDialogRect(m_dialog, &m_client);
    }
    void TearDown() override { DestroyWindow(m_dialog); }

    static int Scale(int pixels) { return MulDiv(pixels, GetParam(), 96); }

    [[nodiscard]] SIZE TextSize(const std::wstring& text) const {
        const HDC dc = GetDC(m_dialog);
        const HGDIOBJ old =
            SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(m_dialog, WM_GETFONT, 0, 0)));
        RECT rect = {};
        DrawTextW(dc, text.c_str(), -1, &rect, DT_CALCRECT | DT_SINGLELINE);
        SelectObject(dc, old);
        ReleaseDC(m_dialog, dc);
        return {rect.right, rect.bottom};
    }

    [[nodiscard]] const Control* GroupAround(const Control& control) const {
        const auto found = std::ranges::find_if(m_controls, [&](const Control& group) {
            return group.IsGroup() && &group != &control && group.Contains(control);
        });
        return found == m_controls.end() ? nullptr : &*found;
    }

    static void ExpectNoOverlap(const std::vector<Control>& controls) {
        for (const Control& one : controls) {
            for (const Control& other : controls) {
                const bool belongs = (one.IsGroup() && one.Contains(other)) || other.kind == UPDOWN_CLASSW;
                RECT common;
                if (&one != &other && one.IsVisible() && other.IsVisible() && !belongs &&
                    !(other.IsGroup() && other.Contains(one)) && one.kind != UPDOWN_CLASSW) {
                    EXPECT_FALSE(IntersectRect(&common, &one.rect, &other.rect))
                        << Describe(one) << " and " << Describe(other);
                }
            }
        }
    }

    HWND m_dialog = nullptr;
    RECT m_client = {};
    std::vector<Control> m_controls;  // in tab order
};

INSTANTIATE_TEST_SUITE_P(Dpi, MainDialogLayout, testing::Values(96, 120, 144, 192),
                         testing::PrintToStringParamName());

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
    std::map<int, std::wstring> found;
    std::set<std::wstring> labels;
    for (const Control& control : m_controls) {
        if (control.id == 0xFFFF || control.id == -1) {
            labels.insert(control.text);
        } else {
            // What a picker answers for its text is the time it shows.
            const std::wstring text = control.kind == DATETIMEPICK_CLASSW ? L"" : control.text;
            EXPECT_TRUE(found.emplace(control.id, text).second) << "twice: " << Describe(control);
        }
    }
    EXPECT_EQ(found, expected);
    for (const wchar_t* label :
         {L"Co&mmands", L"Start &Date/Time", L"&Repeat", L"Input element name:", L"Input element id:"}) {
        EXPECT_TRUE(labels.contains(label)) << label;
    }
    EXPECT_EQ(SendDlgItemMessageW(m_dialog, IDC_EVERY_SPIN, UDM_GETBUDDY, 0, 0),
              reinterpret_cast<LRESULT>(GetDlgItem(m_dialog, IDC_EVERY_VALUE)));
}

TEST_P(MainDialogLayout, CutsNothingOff) {
    const std::map<int, std::wstring> longest = {{IDC_START_DATE, L"30/12/2026"},
                                                 {IDC_START_TIME, L"23:59"},
                                                 {IDC_UNTIL_TIME, L"23:59"},
                                                 {IDC_EVERY_UNIT, L"minutes"}};
    for (const Control& control : m_controls) {
        const int width = control.rect.right - control.rect.left;
        const int height = control.rect.bottom - control.rect.top;
        RECT inside;
        IntersectRect(&inside, &control.rect, &m_client);
        EXPECT_TRUE(EqualRect(&inside, &control.rect)) << Describe(control);
        SIZE needed = {};
        if (const auto sample = longest.find(control.id); sample != longest.end()) {
            needed = TextSize(sample->second);
            needed.cx += Scale(17 + 6);  // an arrow and the frame
        } else if (control.IsIconButton()) {
            needed = {Scale(16) + 6, Scale(16) + 6};
        } else if (control.IsVisible() && (control.kind == WC_BUTTONW || control.kind == WC_STATICW)) {
            needed = TextSize(control.text);
            const int besideText = control.IsButton(BS_AUTOCHECKBOX) ? 13 + 4
                                   : control.IsGroup()               ? 2 * 9
                                   : control.kind == WC_BUTTONW      ? 2 * 5
                                                                     : 0;
            needed.cx += Scale(besideText);
        }
        EXPECT_LE(needed.cx, width) << Describe(control);
        EXPECT_LE(needed.cy, height) << Describe(control);
    }
}

TEST_P(MainDialogLayout, OverlapsNothingDownToTheSmallestSize) {
    ExpectNoOverlap(m_controls);

    RECT frame = m_client;
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(m_dialog, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(m_dialog, GWL_EXSTYLE)));
    const auto edges = [](const RECT& rect) { return Edges{rect.left, rect.top, rect.right, rect.bottom}; };
    const Edges smallest = {0, 0, MinTrackSize(m_client.right) - (frame.right - frame.left - m_client.right),
                            MinTrackSize(m_client.bottom) - (frame.bottom - frame.top - m_client.bottom)};
    std::map<int, std::uint32_t> anchors = {{IDC_PROJECT_LIST, ANCHOR_ALL}};
    for (const int id : {IDC_PROGRAM_GROUP, IDC_PROGRAM_PATH}) {
        anchors[id] = ANCHOR_LEFT | ANCHOR_TOP | ANCHOR_RIGHT;
    }
    for (const int id :
         {IDC_ADD_PROJECT, IDC_EDIT_PROJECT, IDC_DELETE_PROJECT, IDC_RUN_PROJECT, IDC_RESET_LAST_RUN}) {
        anchors[id] = ANCHOR_LEFT | ANCHOR_BOTTOM;
    }
    for (const int id : {IDC_RUN_AT_STARTUP, IDOK, IDCANCEL, ID_EXIT_PROGRAM}) {
        anchors[id] = ANCHOR_RIGHT | ANCHOR_BOTTOM;
    }
    std::vector<Control> moved = m_controls;
    for (Control& control : moved) {
        const auto own = anchors.find(control.id);
        const std::uint32_t flags = own == anchors.end() ? ANCHOR_TOP | ANCHOR_RIGHT : own->second;
        const Placement place = Arrange(flags, MeasureDistances(edges(m_client), edges(control.rect)),
                                        smallest, edges(control.rect));
        control.rect = {place.x, place.y, place.x + place.width, place.y + place.height};
        EXPECT_LE(control.rect.bottom, smallest.bottom) << Describe(control);
        EXPECT_GE(control.rect.left, 0) << Describe(control);
    }
    ExpectNoOverlap(moved);
}

TEST_P(MainDialogLayout, FollowsTheEyeAndNamesEveryField) {
    const Control* before = nullptr;  // the tab stop before
    const Control* box = nullptr;     // the group box that came last
    for (std::size_t i = 0; i < m_controls.size(); ++i) {
        const Control& control = m_controls[i];
        if (control.IsGroup()) {
            box = &control;
        }
        const Control* group = GroupAround(control);
        EXPECT_TRUE(group == nullptr || group == box) << "away from its group: " << Describe(control);
        if (control.IsField()) {
            ASSERT_GT(i, 0U);
            const Control& label = m_controls[i - 1];
            EXPECT_TRUE((label.kind == WC_STATICW || label.IsGroup()) && !label.text.empty())
                << "without a label: " << Describe(control);
        }
        if (control.IsIconButton()) {
            EXPECT_FALSE(control.text.empty()) << Describe(control);
        }
        const bool interactive = control.IsVisible() && !control.IsGroup() && control.kind != WC_STATICW &&
                                 control.kind != UPDOWN_CLASSW;
        EXPECT_EQ((control.style & WS_TABSTOP) != 0, interactive) << Describe(control);
        if (!interactive) {
            continue;
        }
        if (before) {
            const bool below = control.rect.top >= before->rect.bottom;
            const bool right = control.rect.left >= before->rect.right;
            const bool sameRow =
                control.rect.top < before->rect.bottom && before->rect.top < control.rect.bottom;
            const bool sameGroup = group && group == GroupAround(*before);
            EXPECT_TRUE(below || (right && (sameRow || !sameGroup)))
                << Describe(*before) << " then " << Describe(control);
        }
        before = &control;
    }
}

TEST_P(MainDialogLayout, GivesAMnemonicOnceWhereTheCaptionIsItsOwn) {
    std::map<wchar_t, int> uses;
    for (const Control& control : m_controls) {
        const std::size_t mark = control.text.find(L'&');
        if (mark != std::wstring::npos && mark + 1 < control.text.size()) {
            ++uses[static_cast<wchar_t>(std::towlower(control.text[mark + 1]))];
        }
    }
    std::erase_if(uses, [](const auto& use) { return use.second == 1; });
    // The browse buttons all say so; "Run Project" and "Repeat" share the other.
    EXPECT_EQ(uses, (std::map<wchar_t, int>{{L'b', 6}, {L'r', 2}}));
}

TEST(Resources, HoldTheTrayMenuAndEveryIconSize) {
    const HMENU menu = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(135));
    ASSERT_EQ(GetMenuItemCount(menu), 3);
    wchar_t text[32] = {};
    EXPECT_EQ(GetMenuItemID(menu, 0), 32771U);
    GetMenuStringW(menu, 0, text, 32, MF_BYPOSITION);
    EXPECT_STREQ(text, L"SCV Scheduler");
    EXPECT_TRUE(GetMenuState(menu, 1, MF_BYPOSITION) & MF_SEPARATOR);
    EXPECT_EQ(GetMenuItemID(menu, 2), 32772U);
    GetMenuStringW(menu, 2, text, 32, MF_BYPOSITION);
    EXPECT_STREQ(text, L"Exit");
    DestroyMenu(menu);

    for (const int id : {128, 133, 141, 142, 143, 144, 145, 241}) {
        const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_GROUP_ICON);
        ASSERT_TRUE(resource) << id;
        // A header of three words, the last the count; then 14 bytes a picture, its width first (0 means
        // 256).
        const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(nullptr, resource)));
        std::set<int> widths;
        for (int i = 0; i < bytes[4]; ++i) {
            widths.insert(bytes[6 + 14 * i] ? bytes[6 + 14 * i] : 256);
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
