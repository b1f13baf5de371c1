#pragma once

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

// A control as the template makes it.
struct LayoutControl {
    [[nodiscard]] bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    [[nodiscard]] bool IsButton() const { return kind == WC_BUTTONW; }
    [[nodiscard]] bool IsGroup() const { return IsButton() && (style & BS_TYPEMASK) == BS_GROUPBOX; }
    [[nodiscard]] bool IsIconButton() const { return IsButton() && (style & BS_ICON) != 0; }
    [[nodiscard]] bool IsStatic() const { return kind == WC_STATICW; }
    [[nodiscard]] bool IsArrows() const { return kind == UPDOWN_CLASSW; }
    [[nodiscard]] bool Contains(const LayoutControl& other) const;

    int id;
    std::wstring kind;  // the window class
    std::wstring text;  // empty for what the user fills in
    DWORD style;
    RECT rect;  // client coordinates
};
testing::Message Describe(const LayoutControl& control);

// A dialog template of the program, shown hidden with the fonts of the resolution that is the test's
// parameter: see INSTANTIATE_DIALOG_LAYOUT.
class DialogLayoutTest : public testing::TestWithParam<int> {
protected:
    explicit DialogLayoutTest(int templateId) : m_templateId(templateId) {}
    void SetUp() override;
    void TearDown() override;

    // Pixels at 96 dots per inch, in pixels here.
    [[nodiscard]] static int Scale(int pixels);
    // Of the text in the dialog's font: on one line, or wrapped at a width.
    [[nodiscard]] SIZE TextSize(const std::wstring& text, int wrapAt = 0) const;

    // Every control with an id of its own, once and with this text; and among the others at least these
    // labels.
    void ExpectControls(const std::map<int, std::wstring>& expected,
                        const std::set<std::wstring>& labels) const;
    // Everything lies inside the window and has room for its text; `longest` is the longest one that a field
    // with an arrow shows.
    void ExpectNothingCutOff(const std::map<int, std::wstring>& longest) const;
    // Nothing that is visible at first overlaps, also not when the window is as small as it gets and the
    // controls have followed by their anchors.
    void ExpectNoOverlap(const std::function<std::uint32_t(int id)>& anchorsOf) const;
    // The tab order goes right and down, and each field's label stands right before it.
    void ExpectEyeOrderAndLabels() const;
    // The mnemonics that more than one control has, with their numbers.
    [[nodiscard]] std::map<wchar_t, int> SharedMnemonics() const;

    HWND m_dialog = nullptr;
    RECT m_client = {};
    std::vector<LayoutControl> m_controls;  // in tab order

private:
    [[nodiscard]] const LayoutControl* GroupAround(const LayoutControl& control) const;
    [[nodiscard]] SIZE NeededSize(const LayoutControl& control) const;

    int m_templateId;
};

// At 100, 125, 150 and 200 %.
#define INSTANTIATE_DIALOG_LAYOUT(suite)                                     \
    INSTANTIATE_TEST_SUITE_P(Dpi, suite, testing::Values(96, 120, 144, 192), \
                             testing::PrintToStringParamName())
