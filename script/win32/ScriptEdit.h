#pragma once

#include <windows.h>

#include <string>

#include "framework/Controls.h"
#include "framework/GuiHandle.h"

// The edit box of the script. Messages pass it before they are dispatched: see OnKey and MayMoveCaret.
class CScriptEdit : public CEdit {
public:
    // To be called once it is bound to its control. `dialogFont` is the font of the dialog's other controls.
    void Initialise(HFONT dialogFont);

    // Tab inserts a tab, Ctrl+A selects all. True when the message was such a key in this box.
    [[nodiscard]] bool OnKey(const MSG& message) const;
    // Whether the message can move the caret without changing the text.
    [[nodiscard]] bool MayMoveCaret(const MSG& message) const;
    // Replaces the selection, scrolls to the end of the inserted text and sets the focus. The control sends
    // no notification.
    void Insert(const std::wstring& text);
    // "Ln 3, Col 7". With a selection the line is that of the caret, the column that of the selection's end.
    [[nodiscard]] std::wstring CaretPosition() const;

private:
    void SetFont(HFONT dialogFont);
    [[nodiscard]] LRESULT CaretLine(DWORD selectionEnd) const;

    CFontHandle m_font;
};
