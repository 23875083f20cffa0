#include "engine/TextBox.h"

#include "platform/ControlLook.h"
#include "platform/Messages.h"

#include <algorithm>

namespace {
COLOR Opaque(int red, int green, int blue) {
    const auto channel = [](int value) { return static_cast<unsigned char>(std::clamp(value, 0, 255)); };
    return {channel(red), channel(green), channel(blue), 255};
}

D2D1_COLOR_F ToColorF(COLOR color) {
    const auto channel = [](unsigned char value) { return static_cast<float>(value) / 255.0F; };
    return {channel(color.red), channel(color.green), channel(color.blue), channel(color.alpha)};
}
} // namespace

void TextBox::SetBackcolor(int red, int green, int blue) {
    backColor = Opaque(red, green, blue);
    Repaint();
}

void TextBox::SetForecolor(int red, int green, int blue) {
    foreColor = Opaque(red, green, blue);
    Repaint();
}

LRESULT TextBox::HandleEvent(UINT message, WPARAM wParam, LPARAM lParam) {
    // The listeners come last: one of them may delete the text box.
    const LRESULT result = Control::HandleEvent(message, wParam, lParam);
    if (message == WM_KEYDOWN && wParam == VK_RETURN) CallListeners();
    return result;
}

void TextBox::AnswerLook(platform::ControlLook& look) const {
    look.backColor = ToColorF(backColor);
    look.textColor = ToColorF(foreColor);
}
