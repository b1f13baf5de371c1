#include "tests/support/DialogLayoutTest.h"

#include <algorithm>
#include <cwctype>
#include <utility>

#include "layout/AnchorGeometry.h"

namespace {

// The template with another font size, which enlarges the dialog as a finer screen does.
std::vector<WORD> TemplateWithPointSize(int id, WORD points) {
    const HRSRC resource = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_DIALOG);
    const auto* bytes = static_cast<const WORD*>(LockResource(LoadResource(nullptr, resource)));
    std::vector<WORD> copy(bytes, bytes + SizeofResource(nullptr, resource) / sizeof(WORD));
    const auto afterMenuAndClass = copy.begin() + 13 + 2;  // both are absent: one zero each
    *(std::find(afterMenuAndClass, copy.end(), WORD{0}) + 1) = points;
    return copy;
}

void ExpectNoneOverlaps(const std::vector<LayoutControl>& controls) {
    for (const LayoutControl& one : controls) {
        for (const LayoutControl& other : controls) {
            RECT common;
            if (&one < &other && one.IsVisible() && other.IsVisible() && !one.IsArrows() &&
                !other.IsArrows() && !(one.IsGroup() && one.Contains(other)) &&
                !(other.IsGroup() && other.Contains(one))) {
                EXPECT_FALSE(IntersectRect(&common, &one.rect, &other.rect))
                    << Describe(one) << " and " << Describe(other);
            }
        }
    }
}

Edges ToEdges(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

INT_PTR CALLBACK DoNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

}  // namespace

bool LayoutControl::Contains(const LayoutControl& other) const {
    RECT both;
    UnionRect(&both, &rect, &other.rect);
    return EqualRect(&both, &rect) != FALSE;
}

testing::Message Describe(const LayoutControl& control) {
    const RECT& rect = control.rect;
    return testing::Message() << "control " << control.id << " \"" << control.text << "\" at " << rect.left
                              << "," << rect.top << "-" << rect.right << "," << rect.bottom;
}

void DialogLayoutTest::SetUp() {
    const INITCOMMONCONTROLSEX classes = {
        sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES | ICC_UPDOWN_CLASS};
    ASSERT_TRUE(InitCommonControlsEx(&classes));
    const std::vector<WORD> bytes =
        TemplateWithPointSize(m_templateId, static_cast<WORD>(MulDiv(8, GetParam(), 96)));
    m_dialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), static_cast<const DLGTEMPLATE*>(static_cast<const void*>(bytes.data())),
        nullptr, &DoNothing, 0);
    ASSERT_TRUE(m_dialog);
    for (HWND child = GetWindow(m_dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t kind[64] = {};
        wchar_t text[128] = {};
        GetClassNameW(child, kind, 64);
        GetWindowTextW(child, text, 128);
        RECT rect;
        GetWindowRect(child, &rect);
        MapWindowPoints(nullptr, m_dialog, static_cast<POINT*>(static_cast<void*>(&rect)), 2);
        // What a picker answers for its text is the time it shows.
        const bool isFilledIn = kind == std::wstring(WC_EDITW) || kind == std::wstring(DATETIMEPICK_CLASSW);
        m_controls.push_back({GetDlgCtrlID(child), kind, isFilledIn ? L"" : text,
                              static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE)), rect});
    }
    // What the template asks for; the window itself is never larger than the screen.
    m_client = {0, 0, bytes[11], bytes[12]};
    MapDialogRect(m_dialog, &m_client);
}

void DialogLayoutTest::TearDown() {
    DestroyWindow(m_dialog);
}

int DialogLayoutTest::Scale(int pixels) {
    return MulDiv(pixels, GetParam(), 96);
}

SIZE DialogLayoutTest::TextSize(const std::wstring& text, int wrapAt) const {
    const HDC dc = GetDC(m_dialog);
    const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(m_dialog, WM_GETFONT, 0, 0)));
    RECT rect = {0, 0, wrapAt, 0};
    DrawTextW(dc, text.c_str(), -1, &rect,
              DT_CALCRECT | static_cast<UINT>(wrapAt == 0 ? DT_SINGLELINE : DT_WORDBREAK));
    SelectObject(dc, old);
    ReleaseDC(m_dialog, dc);
    return {rect.right, rect.bottom};
}

const LayoutControl* DialogLayoutTest::GroupAround(const LayoutControl& control) const {
    const auto found = std::ranges::find_if(m_controls, [&](const LayoutControl& group) {
        return group.IsGroup() && &group != &control && group.Contains(control);
    });
    return found == m_controls.end() ? nullptr : &*found;
}

void DialogLayoutTest::ExpectControls(const std::map<int, std::wstring>& expected,
                                      const std::set<std::wstring>& labels) const {
    std::map<int, std::wstring> found;
    std::set<std::wstring> others;
    for (const LayoutControl& control : m_controls) {
        if (control.id == 0xFFFF || control.id == -1) {
            others.insert(control.text);
        } else {
            EXPECT_TRUE(found.emplace(control.id, control.text).second) << "twice: " << Describe(control);
        }
    }
    EXPECT_EQ(found, expected);
    for (const std::wstring& label : labels) {
        EXPECT_TRUE(others.contains(label)) << label;
    }
}

SIZE DialogLayoutTest::NeededSize(const LayoutControl& control) const {
    if (control.IsIconButton()) {
        return {Scale(16) + 6, Scale(16) + 6};
    }
    if (control.IsVisible() && !control.text.empty() && control.IsStatic()) {
        return TextSize(control.text, control.rect.right - control.rect.left);
    }
    if (!control.IsButton()) {
        return {};
    }
    SIZE size = TextSize(control.text);
    const bool isCheck = (control.style & BS_TYPEMASK) == BS_AUTOCHECKBOX;
    size.cx += Scale(isCheck ? 13 + 4 : control.IsGroup() ? 2 * 9 : 2 * 5);
    return size;
}

void DialogLayoutTest::ExpectNothingCutOff(const std::map<int, std::wstring>& longest) const {
    for (const LayoutControl& control : m_controls) {
        RECT inside;
        IntersectRect(&inside, &control.rect, &m_client);
        EXPECT_TRUE(EqualRect(&inside, &control.rect)) << Describe(control);
        SIZE needed = NeededSize(control);
        if (const auto sample = longest.find(control.id); sample != longest.end()) {
            needed = TextSize(sample->second);
            needed.cx += Scale(17 + 6);  // an arrow and the frame
        }
        EXPECT_LE(needed.cx, control.rect.right - control.rect.left) << Describe(control);
        EXPECT_LE(needed.cy, control.rect.bottom - control.rect.top) << Describe(control);
    }
}

void DialogLayoutTest::ExpectNoOverlap(const std::function<std::uint32_t(int id)>& anchorsOf) const {
    ExpectNoneOverlaps(m_controls);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(m_dialog, GWL_STYLE));
    if ((style & WS_THICKFRAME) == 0) {
        return;
    }

    RECT frame = m_client;
    AdjustWindowRectEx(&frame, style, FALSE, static_cast<DWORD>(GetWindowLongPtrW(m_dialog, GWL_EXSTYLE)));
    const Edges smallest = {0, 0, MinTrackSize(m_client.right) - (frame.right - frame.left - m_client.right),
                            MinTrackSize(m_client.bottom) - (frame.bottom - frame.top - m_client.bottom)};
    std::vector<LayoutControl> moved = m_controls;
    for (LayoutControl& control : moved) {
        const Edges before = ToEdges(control.rect);
        const Placement place =
            Arrange(anchorsOf(control.id), MeasureDistances(ToEdges(m_client), before), smallest, before);
        control.rect = {place.x, place.y, place.x + place.width, place.y + place.height};
        EXPECT_LE(control.rect.bottom, smallest.bottom) << Describe(control);
        EXPECT_GE(control.rect.left, 0) << Describe(control);
        const bool hasLines =
            control.kind == WC_LISTBOXW || (control.kind == WC_EDITW && (control.style & ES_MULTILINE) != 0);
        if (hasLines) {
            EXPECT_GE(place.height, 2 * TextSize(L"x").cy) << "shows nothing any more: " << Describe(control);
        }
    }
    ExpectNoneOverlaps(moved);
}

void DialogLayoutTest::ExpectEyeOrderAndLabels() const {
    static const std::set<std::wstring> fields = {WC_EDITW, WC_COMBOBOXW, WC_LISTBOXW, WC_LISTVIEWW,
                                                  DATETIMEPICK_CLASSW};
    const LayoutControl* before = nullptr;  // the tab stop before
    const LayoutControl* box = nullptr;     // the group box that came last
    const LayoutControl* last = nullptr;
    for (const LayoutControl& control : m_controls) {
        const LayoutControl* const label = std::exchange(last, &control);
        box = control.IsGroup() ? &control : box;
        const LayoutControl* group = GroupAround(control);
        EXPECT_TRUE(group == nullptr || group == box) << "away from its group: " << Describe(control);
        EXPECT_TRUE(!fields.contains(control.kind) ||
                    (label != nullptr && (label->IsStatic() || label->IsGroup()) && !label->text.empty()))
            << "without a label: " << Describe(control);
        EXPECT_FALSE(control.IsIconButton() && control.text.empty()) << Describe(control);
        const bool interactive =
            control.IsVisible() && !control.IsGroup() && !control.IsStatic() && !control.IsArrows();
        EXPECT_EQ((control.style & WS_TABSTOP) != 0, interactive) << Describe(control);
        if (!interactive) {
            continue;
        }
        if (const LayoutControl* const previous = std::exchange(before, &control)) {
            const RECT& from = previous->rect;
            const RECT& to = control.rect;
            const bool sameRow = to.top < from.bottom && from.top < to.bottom;
            const bool sameGroup = group != nullptr && group == GroupAround(*previous);
            EXPECT_TRUE(to.top >= from.bottom || (to.left >= from.right && (sameRow || !sameGroup)))
                << Describe(*previous) << " then " << Describe(control);
        }
    }
}

std::map<wchar_t, int> DialogLayoutTest::SharedMnemonics() const {
    std::map<wchar_t, int> uses;
    for (const LayoutControl& control : m_controls) {
        const std::size_t mark = control.text.find(L'&');
        if (mark != std::wstring::npos && mark + 1 < control.text.size()) {
            ++uses[static_cast<wchar_t>(std::towlower(control.text[mark + 1]))];
        }
    }
    std::erase_if(uses, [](const auto& use) { return use.second == 1; });
    return uses;
}
