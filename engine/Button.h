#pragma once

#include "engine/Control.h"

/// A push button. Its listeners are called when it is clicked: pressed and released inside, or by Space.
class Button : public Control {
public:
    explicit Button(String const& text) : Control(L"BUTTON", text) {}

    int GetType() const override { return callerButton; }

protected:
    LRESULT HandleEvent(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool isArmed = false; // the mouse went down on it
};
