#include "platform/core/controls/EditControl.h"

#include "platform/Desktop.h"
#include "platform/Unicode.h"
#include "platform/core/controls/Theme.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {
constexpr std::size_t longestText = 32767;
constexpr float padding = 8.0F;    // between the edge and the text
constexpr double blinkTime = 0.53; // seconds lit, and as long dark

bool IsControlCharacter(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

/// Text from elsewhere as a single line.
std::wstring OneLine(std::wstring text) {
    std::erase(text, L'\r');
    for (wchar_t& character : text) {
        if (IsControlCharacter(static_cast<char32_t>(character))) character = L' ';
    }
    return text;
}
} // namespace

EditControl::EditControl(const Window& description) : Control(description) {
    text.resize(std::min(text.size(), longestText));
}

LRESULT EditControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    Desktop& desktop = Desktop::Current();
    const POINT point = UnpackPoint(lParam);
    switch (message) {
    case WM_SETTEXT:
        text.resize(std::min(text.size(), longestText));
        scroll = 0.0F;
        MoveCaret(0, false);
        break;
    case WM_SETFOCUS: MoveCaret(caret, true); break; // lit at once
    case WM_KEYDOWN: PressKey(static_cast<int>(wParam), (lParam & MK_SHIFT) != 0, (lParam & MK_CONTROL) != 0); break;
    case WM_CHAR: TypeCharacter(static_cast<char32_t>(wParam)); break;
    case WM_LBUTTONDOWN: PressMouse(point, (wParam & MK_SHIFT) != 0); break;
    case WM_LBUTTONDBLCLK: SelectWord(point); break;
    case WM_MOUSEMOVE:
        if (HasCapture()) DragMouse(point);
        break;
    case WM_LBUTTONUP:
        if (HasCapture()) desktop.ReleaseCapture();
        break;
    default: return Control::Handle(message, wParam, lParam);
    }
    Invalidate();
    return 0;
}

void EditControl::PressKey(int virtualKey, bool shift, bool control) {
    const auto left = [this, control] { return control ? Line().WordBefore(caret) : Line().PlaceBefore(caret); };
    const auto right = [this, control] { return control ? Line().WordAfter(caret) : Line().PlaceAfter(caret); };
    const bool collapses = HasSelection() && !shift && !control; // an arrow leaves the selection at that end of it
    switch (virtualKey) {
    case VK_LEFT: MoveCaret(collapses ? SelectionBegin() : left(), shift); break;
    case VK_RIGHT: MoveCaret(collapses ? SelectionEnd() : right(), shift); break;
    case VK_HOME: MoveCaret(0, shift); break;
    case VK_END: MoveCaret(text.size(), shift); break;
    case VK_BACK: Delete(left()); break;
    case VK_DELETE:
        if (shift && HasSelection()) Copy();
        Delete(right());
        break;
    default:
        if (control) PressShortcut(virtualKey);
        break;
    }
}

void EditControl::PressShortcut(int virtualKey) {
    switch (virtualKey) {
    case 'A':
        anchor = 0;
        MoveCaret(text.size(), true);
        break;
    case 'C': Copy(); break;
    case 'X':
        Copy();
        Replace({});
        break;
    case 'V': Replace(OneLine(Desktop::Current().ClipboardText())); break;
    default: break;
    }
}

void EditControl::PressMouse(POINT point, bool extend) {
    Desktop& desktop = Desktop::Current();
    desktop.SetFocus(this);
    desktop.SetCapture(this);
    dragsWords = false;
    MoveCaret(PlaceAt(point), extend);
}

void EditControl::SelectWord(POINT point) {
    PressMouse(point, false);
    word = Line().WordAround(caret);
    dragsWords = true;
    anchor = word.begin;
    MoveCaret(word.end, true);
}

void EditControl::DragMouse(POINT point) {
    const std::size_t place = PlaceAt(point);
    if (!dragsWords) {
        MoveCaret(place, true);
        return;
    }
    const TextLine::Range reached = Line().WordAround(place);
    const bool isBefore = reached.begin < word.begin;
    anchor = isBefore ? word.end : word.begin;
    MoveCaret(isBefore ? reached.begin : std::max(reached.end, word.end), true);
}

void EditControl::TypeCharacter(char32_t code) {
    if (IsControlCharacter(code)) return; // the keys that make them have been handled as keys
    std::wstring typed;
    AppendWide(typed, code);
    Replace(typed);
}

void EditControl::Replace(std::wstring_view inserted) {
    const std::size_t begin = SelectionBegin();
    text.erase(begin, SelectionEnd() - begin);
    const std::wstring_view fitting = inserted.substr(0, longestText - text.size());
    text.insert(begin, fitting);
    MoveCaret(begin + fitting.size(), false);
}

void EditControl::Delete(std::size_t place) {
    if (!HasSelection()) anchor = place;
    Replace({});
}

void EditControl::MoveCaret(std::size_t place, bool extend) {
    caret = std::min(place, text.size());
    if (!extend) anchor = caret;
    caretMovedAt = Desktop::Current().Counter();
}

void EditControl::Copy() const {
    if (!HasSelection()) return;
    const std::wstring_view all = text;
    Desktop::Current().SetClipboardText(all.substr(SelectionBegin(), SelectionEnd() - SelectionBegin()));
}

const TextLine& EditControl::Line() { return LaidOutText(AskForLook(WM_CTLCOLOREDIT)); }

std::size_t EditControl::PlaceAt(POINT point) { return Line().PlaceAt(static_cast<float>(point.x) - padding + scroll); }

void EditControl::ScrollToCaret(const TextLine& line) {
    const float field = std::max(1.0F, static_cast<float>(bounds.right - bounds.left) - 2.0F * padding);
    const float width = line.Width();
    const float x = line.XAt(caret);
    if (x < scroll) scroll = x - field / 4.0F; // some of what is before it comes into sight as well
    if (x > scroll + field) scroll = x - field;
    scroll = std::round(std::clamp(scroll, 0.0F, std::max(0.0F, width - field)));
}

bool EditControl::CaretIsLit() const {
    const Desktop& desktop = Desktop::Current();
    const double seconds = static_cast<double>(desktop.Counter() - caretMovedAt) * desktop.SecondsPerCount();
    return static_cast<std::int64_t>(seconds / blinkTime) % 2 == 0;
}

void EditControl::Paint(ID2D1HwndRenderTarget& canvas) {
    ControlLook look = AskForLook(WM_CTLCOLOREDIT);
    const D2D1_RECT_F outer = Bounds();
    if (!enabled) {
        look.backColor = theme::Mixed(look.backColor, theme::faceDisabled, 0.8F);
        look.textColor = theme::Mixed(look.textColor, look.backColor, 0.6F);
    }
    theme::Fill(canvas, outer, look.backColor);
    PaintText(canvas, look);
    if (HasFocus()) {
        theme::Outline(canvas, outer, theme::accent, theme::ringWidth);
    } else {
        // seen on a field of any colour
        const float strength = !enabled ? 0.2F : IsHovered() ? 0.75F : 0.45F;
        const D2D1_COLOR_F border = theme::Mixed(look.backColor, theme::edge, strength);
        theme::Outline(canvas, outer, border);
    }
}

void EditControl::PaintText(ID2D1HwndRenderTarget& canvas, const ControlLook& look) {
    const TextLine& line = LaidOutText(look);
    ScrollToCaret(line);
    const D2D1_RECT_F outer = Bounds();
    const D2D1_RECT_F field = {outer.left + padding - 2.0F, outer.top + 2.0F, outer.right - padding + 2.0F,
                               outer.bottom - 2.0F};
    const float left = outer.left + padding - scroll;
    const float top = std::round((outer.top + outer.bottom - line.Height()) / 2.0F);
    const float bottom = std::min(top + line.Height(), field.bottom);
    ID2D1SolidColorBrush brush;
    if (HasSelection()) {
        brush.SetColor(theme::Mixed(look.backColor, HasFocus() ? theme::accent : theme::inkDisabled, 0.3F));
        for (const TextLine::Span span : line.SpansOf({SelectionBegin(), SelectionEnd()})) {
            const float spanLeft = std::clamp(left + span.left, field.left, field.right);
            const float spanRight = std::clamp(left + span.right, field.left, field.right);
            canvas.FillRectangle({spanLeft, std::max(top, field.top), spanRight, bottom}, brush);
        }
    }
    brush.SetColor(look.textColor);
    canvas.DrawTextLine(line, {left, top}, field, brush);
    if (HasFocus() && CaretIsLit()) {
        const float x = std::clamp(std::round(left + line.XAt(caret)), field.left, field.right);
        canvas.FillRectangle({x - 1.0F, std::max(top, field.top), x + 0.5F, bottom}, brush);
    }
}

} // namespace platform
