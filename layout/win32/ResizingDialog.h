#pragma once

#include <windows.h>

#include <vector>

#include "framework/Dialog.h"
#include "layout/AnchorGeometry.h"

// A dialog whose registered controls follow its edges when it is resized, which cannot be dragged smaller
// than 80 % of its first client size, and which keeps its place on the screen in the application's settings.
//
// A derived dialog calls this OnInitDialog first and registers its controls afterwards, while they are where
// the template puts them. The client area is the template's until then, even where that is larger than the
// screen. Whoever changes the size follows; see OpenWith.
class CResizingDialog : public CDialog {
public:
    explicit CResizingDialog(UINT templateId, CWnd* parent = nullptr) noexcept
        : CDialog(templateId, parent) {}

    // A registered control, its ANCHOR_ flags and its distances from the client area's edges, in pixels.
    struct stChildControl {
        HWND hWnd;
        UINT nFlags;
        int nLeft;
        int nTop;
        int nRight;
        int nBottom;
    };

    // Measures and appends a record; always 1. The control exists already.
    int AddControl(HWND control, UINT flags);
    int AddControl(const CWnd* control, UINT flags);
    // 1 when the control is registered, else 0.
    [[nodiscard]] int HasControl(HWND control) const;
    [[nodiscard]] int HasControl(const CWnd* control) const;
    // Measures every registered control again where it is now.
    void UpdateControlOffsets();
    // Lays the controls out for the present client size.
    void ArrangeControls();

    // Puts the window, shown, where SaveWindowPlacement found it under this section of the settings; where
    // nothing was saved, at the default rectangle, and without one nothing happens. Screen coordinates. What
    // was saved on another screen is fitted into the work area of this one. A window that is maximised
    // already stays so.
    void RestoreWindowPlacement(const wchar_t* section, const RECT* defaultRect = nullptr);
    // Of a maximised window only that it is: the normal rectangle saved before stays for the next restore.
    void SaveWindowPlacement(const wchar_t* section) const;

protected:
    BOOL OnInitDialog() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    virtual void OnSize(UINT type, int width, int height);
    virtual void OnGetMinMaxInfo(MINMAXINFO* info);

    std::vector<stChildControl> m_arrChildControls;
    // Centres the window in the work area with a client area of this size, or as much of it as there is room
    // for: the size with which a dialog opens when it is not the template's.
    void OpenWith(SIZE client);

    // Pixels. Taken from the client area and applied to the whole window, frame included; kept so on purpose.
    int m_nMinTrackWidth = 0;
    int m_nMinTrackHeight = 0;

private:
    [[nodiscard]] Edges ClientEdges() const;
    [[nodiscard]] Edges ControlEdges(HWND control) const;
    [[nodiscard]] stChildControl Measure(HWND control, UINT flags) const;
    [[nodiscard]] SIZE WindowSize(SIZE client) const;
    void ExcludeControls(HDC dc) const;
};
