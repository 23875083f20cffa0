#pragma once

#include "platform/core/controls/Control.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

/// A single line of text to edit, at most 32,767 characters: caret, selection with Shift or the mouse, words with Ctrl
/// or a double click, clipboard; text that does not fit scrolls.
class EditControl final : public Control {
public:
    explicit EditControl(const Window& description);

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Paint(ID2D1HwndRenderTarget& canvas) override;

private:
    void PressKey(int virtualKey, bool shift, bool control);
    void PressShortcut(int virtualKey);
    void PressMouse(POINT point, bool extend);
    void SelectWord(POINT point);
    void DragMouse(POINT point);
    void TypeCharacter(char32_t code);

    /// Puts `inserted`, as far as there is room, in the place of the selection.
    void Replace(std::wstring_view inserted);
    /// Deletes the selection, or what lies between the caret and `place` if there is none.
    void Delete(std::size_t place);
    void MoveCaret(std::size_t place, bool extend);
    void Copy() const;

    std::size_t SelectionBegin() const { return caret < anchor ? caret : anchor; }
    std::size_t SelectionEnd() const { return caret < anchor ? anchor : caret; }
    bool HasSelection() const { return caret != anchor; }
    const TextLine& Line();
    std::size_t PlaceAt(POINT point);
    void ScrollToCaret(const TextLine& line);
    bool CaretIsLit() const;
    void PaintText(ID2D1HwndRenderTarget& canvas, const ControlLook& look);

    std::size_t caret = 0;
    std::size_t anchor = 0; // the other end of the selection; at the caret if nothing is selected
    TextLine::Range word;   // the one that was double-clicked
    bool dragsWords = false;
    float scroll = 0.0F;           // pixels of text to the left of the field
    std::int64_t caretMovedAt = 0; // on the desktop's clock; the caret begins to blink anew
};

} // namespace platform
