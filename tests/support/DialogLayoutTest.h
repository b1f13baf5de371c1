#pragma once

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

// A control of the template.
struct LayoutControl {
    [[nodiscard]] bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    [[nodiscard]] bool IsButton(DWORD type) const {
        return kind == WC_BUTTONW && (style & BS_TYPEMASK) == type;
    }
    [[nodiscard]] bool IsGroup() const { return IsButton(BS_GROUPBOX); }
    [[nodiscard]] bool IsArrows() const { return kind == UPDOWN_CLASSW; }
    // Whether it is a group box around the other one.
    [[nodiscard]] bool Groups(const LayoutControl& other) const;

    int id;
    std::wstring kind;  // the window class
    std::wstring text;  // empty for what the user fills in
    DWORD style;
    RECT rect;  // client coordinates
};

// A dialog of the program, created hidden with the fonts of the resolution that is the test's parameter; see
// INSTANTIATE_DIALOG_LAYOUT.
class DialogLayoutTest : public testing::TestWithParam<int> {
protected:
    explicit DialogLayoutTest(int templateId) : m_templateId(templateId) {}
    void SetUp() override;
    void TearDown() override { DestroyWindow(m_dialog); }

    // Every control has room for its text; `longest` is the longest text that a field with an arrow shows.
    void ExpectNothingCutOff(const std::map<int, std::wstring>& longest) const;
    // Every control lies inside the window, and no two that are visible at first overlap; at the smallest
    // window size too, after the controls have followed their anchors.
    void ExpectNoOverlap(const std::function<std::uint32_t(int id)>& anchorsOf) const;
    HWND m_dialog = nullptr;
    std::vector<LayoutControl> m_controls;

private:
    // The size of the text in the dialog's font: on one line, or wrapped at a width.
    [[nodiscard]] SIZE TextSize(const std::wstring& text, LONG wrapAt = 0) const;

    int m_templateId;
    RECT m_client = {};
};

// At 100, 125, 150 and 200 %.
#define INSTANTIATE_DIALOG_LAYOUT(suite)                                     \
    INSTANTIATE_TEST_SUITE_P(Dpi, suite, testing::Values(96, 120, 144, 192), \
                             testing::PrintToStringParamName())
