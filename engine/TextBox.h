#pragma once

#include "engine/COLOR.h"
#include "engine/Control.h"

/// A line of text to edit. Its listeners are called when Enter is pressed in it.
class TextBox : public Control {
public:
    explicit TextBox(String const& text) : Control(L"EDIT", text) {}

    /// Channels from 0 to 255; what lies outside counts as the nearer end.
    void SetBackcolor(int red, int green, int blue);
    void SetForecolor(int red, int green, int blue);
    COLOR GetBackcolor() const { return backColor; }
    COLOR GetForecolor() const { return foreColor; }
    int GetType() const override { return callerTextBox; }

protected:
    LRESULT HandleEvent(UINT message, WPARAM wParam, LPARAM lParam) override;
    void AnswerLook(platform::ControlLook& look) const override;

private:
    COLOR backColor = {255, 255, 255, 255};
    COLOR foreColor = {0, 0, 0, 255};
};
