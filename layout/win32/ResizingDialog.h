#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "framework/Dialog.h"
#include "layout/AnchorGeometry.h"

// A dialog whose registered controls follow its edges when it is resized. It cannot be made smaller than 80 %
// of its first client size, and it can store its place on the screen in the application's settings.
//
// A derived dialog calls this OnInitDialog first and then registers its controls, while they are at their
// places in the template. Until then the client area has the template's size, even if that is larger than the
// screen. Change the size only afterwards; see OpenWith.
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

    // A control of the template, and its ANCHOR_ flags.
    struct stAnchors {
        int id;
        UINT anchors;
    };

    // Measures the control, which must exist, and appends its record. Always returns 1.
    int AddControl(HWND control, UINT flags);
    int AddControl(const CWnd* control, UINT flags);
    // AddControl for each of these controls of the dialog.
    void AddControls(std::span<const stAnchors> controls);
    // 1 when the control is registered, else 0.
    [[nodiscard]] int HasControl(HWND control) const;
    [[nodiscard]] int HasControl(const CWnd* control) const;
    // Measures every registered control again at its present place.
    void UpdateControlOffsets();
    // Lays the controls out for the present client size.
    void ArrangeControls();

    // Shows the window at the place that SaveWindowPlacement has stored in this section of the settings.
    // Without one, at the default rectangle, in screen coordinates; without that either, does nothing. A
    // place stored on another screen is fitted into the work area of this one. A maximised window stays
    // maximised.
    void RestoreWindowPlacement(const wchar_t* section, const RECT* defaultRect = nullptr);
    // For a maximised window it stores only that it is maximised and keeps the normal rectangle stored
    // before.
    void SaveWindowPlacement(const wchar_t* section) const;

protected:
    BOOL OnInitDialog() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    virtual void OnSize(UINT type, int width, int height);
    virtual void OnGetMinMaxInfo(MINMAXINFO* info);

    std::vector<stChildControl> m_arrChildControls;
    // Centres the window in the work area with a client area of this size, or as large as fits. For a dialog
    // that opens with another size than its template's.
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
