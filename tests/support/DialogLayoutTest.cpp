#include "tests/support/DialogLayoutTest.h"

#include <algorithm>

#include "layout/AnchorGeometry.h"

namespace {

Edges ToEdges(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

bool Contains(const RECT& around, const RECT& rect) {
    RECT both;
    UnionRect(&both, &around, &rect);
    return EqualRect(&both, &around) != FALSE;
}

void ExpectApart(const RECT& client, const std::vector<LayoutControl>& controls) {
    for (const LayoutControl& one : controls) {
        EXPECT_TRUE(Contains(client, one.rect)) << one.id;
        for (const LayoutControl& other : controls) {
            RECT common;
            if (&one < &other && one.IsVisible() && other.IsVisible() && !one.IsArrows() &&
                !other.IsArrows() && !one.Groups(other) && !other.Groups(one)) {
                EXPECT_FALSE(IntersectRect(&common, &one.rect, &other.rect)) << one.id << " and " << other.id;
            }
        }
    }
}

}  // namespace

bool LayoutControl::Groups(const LayoutControl& other) const {
    return IsGroup() && Contains(rect, other.rect);
}

void DialogLayoutTest::SetUp() {
    const INITCOMMONCONTROLSEX classes = {
        sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES | ICC_UPDOWN_CLASS};
    InitCommonControlsEx(&classes);
    // A copy of the template with another font size, which enlarges the dialog as a higher dpi does.
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(m_templateId), RT_DIALOG);
    const auto* bytes = static_cast<const WORD*>(LockResource(LoadResource(nullptr, resource)));
    std::vector<WORD> copy(bytes, bytes + SizeofResource(nullptr, resource) / sizeof(WORD));
    const auto afterMenuAndClass = copy.begin() + 13 + 2;  // neither is given: one zero each
    *(std::find(afterMenuAndClass, copy.end(), WORD{0}) + 1) = static_cast<WORD>(MulDiv(8, GetParam(), 96));
    m_dialog = CreateDialogIndirectParamW(
        nullptr, static_cast<const DLGTEMPLATE*>(static_cast<const void*>(copy.data())), nullptr, nullptr, 0);
    ASSERT_TRUE(m_dialog);
    for (HWND child = GetWindow(m_dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t kind[64] = {};
        wchar_t text[128] = {};
        GetClassNameW(child, kind, 64);
        GetWindowTextW(child, text, 128);
        RECT rect;
        GetWindowRect(child, &rect);
        MapWindowPoints(nullptr, m_dialog, static_cast<POINT*>(static_cast<void*>(&rect)), 2);
        // A picker's text is the time that it shows.
        const bool isFilledIn = kind == std::wstring(WC_EDITW) || kind == std::wstring(DATETIMEPICK_CLASSW);
        m_controls.push_back({GetDlgCtrlID(child), kind, isFilledIn ? L"" : text,
                              static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE)), rect});
    }
    // The template's size; the window itself is never larger than the screen.
    m_client = {0, 0, bytes[11], bytes[12]};
    MapDialogRect(m_dialog, &m_client);
}

SIZE DialogLayoutTest::TextSize(const std::wstring& text, LONG wrapAt) const {
    const HDC dc = GetDC(m_dialog);
    const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(m_dialog, WM_GETFONT, 0, 0)));
    RECT rect = {0, 0, wrapAt, 0};
    DrawTextW(dc, text.c_str(), -1, &rect, DT_CALCRECT | (wrapAt == 0 ? UINT{DT_SINGLELINE} : DT_WORDBREAK));
    SelectObject(dc, old);
    ReleaseDC(m_dialog, dc);
    return {rect.right, rect.bottom};
}

void DialogLayoutTest::ExpectNothingCutOff(const std::map<int, std::wstring>& longest) const {
    for (const LayoutControl& control : m_controls) {
        const LONG width = control.rect.right - control.rect.left;
        SIZE needed = {};
        int frame = 0;  // in pixels at 96 dpi
        if (const auto sample = longest.find(control.id); sample != longest.end()) {
            needed = TextSize(sample->second);
            frame = 17 + 6;  // an arrow and the frame
        } else if (control.kind == WC_BUTTONW && (control.style & BS_ICON) != 0) {
            needed = {6, MulDiv(16, GetParam(), 96) + 6};
            frame = 16;
        } else if (control.kind == WC_BUTTONW) {
            needed = TextSize(control.text);
            frame = control.IsButton(BS_AUTOCHECKBOX) ? 13 + 4 : control.IsGroup() ? 2 * 9 : 2 * 5;
        } else if (control.kind == WC_STATICW && control.IsVisible() && !control.text.empty()) {
            needed = TextSize(control.text, width);
        }
        EXPECT_LE(needed.cx + MulDiv(frame, GetParam(), 96), width) << control.id;
        EXPECT_LE(needed.cy, control.rect.bottom - control.rect.top) << control.id;
    }
}

void DialogLayoutTest::ExpectNoOverlap(const std::function<std::uint32_t(int id)>& anchorsOf) const {
    ExpectApart(m_client, m_controls);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(m_dialog, GWL_STYLE));
    if ((style & WS_THICKFRAME) == 0) {
        return;
    }
    RECT frame = m_client;
    AdjustWindowRectEx(&frame, style, FALSE, static_cast<DWORD>(GetWindowLongPtrW(m_dialog, GWL_EXSTYLE)));
    const RECT smallest = {0, 0, MinTrackSize(m_client.right) - (frame.right - frame.left - m_client.right),
                           MinTrackSize(m_client.bottom) - (frame.bottom - frame.top - m_client.bottom)};
    std::vector<LayoutControl> moved = m_controls;
    for (LayoutControl& control : moved) {
        const Edges before = ToEdges(control.rect);
        const Placement place = Arrange(anchorsOf(control.id), MeasureDistances(ToEdges(m_client), before),
                                        ToEdges(smallest), before);
        control.rect = {place.x, place.y, place.x + place.width, place.y + place.height};
    }
    ExpectApart(smallest, moved);
}
