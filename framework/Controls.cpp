#include "framework/Controls.h"

#include <algorithm>

#include "framework/GuiHandle.h"

void CListBox::FitHorizontalExtent() const {
    const CDeviceContext context(CreateCompatibleDC(nullptr));
    SelectObject(context.Get(), reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
    LONG widest = 0;
    for (int index = 0; index < GetCount(); ++index) {
        const std::wstring text = GetText(index);
        SIZE size{};
        GetTextExtentPoint32W(context.Get(), text.c_str(), static_cast<int>(text.size()), &size);
        widest = std::max(widest, size.cx);
    }
    // The list draws its texts with a margin.
    widest += 2 * GetSystemMetrics(SM_CXEDGE);
    SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest));
}
