#pragma once

#include "engine/Caller.h"
#include "platform/Types.h"

#include <memory>

class IDWriteTextFormat;
class String;

namespace platform {
struct ControlLook;
}

/// What buttons and text boxes have in common: a child window of the game window, drawn over what GamePaint draws. Made
/// hidden and without size. The game window must exist: make controls in GameStart or later, and delete them in
/// GameEnd.
class Control : public Caller {
public:
    ~Control() override;

    /// In client pixels of the game window. What lies outside it is not seen, and a size of 0 or less shows nothing.
    void SetBounds(int x, int y, int width, int height);
    void SetText(String const& text);
    String GetText() const;
    /// A font of the family's first 31 characters whose lines are `size` pixels high; 0 is the usual height. Where the
    /// family is not installed, the nearest one is taken.
    void SetFont(String const& fontName, bool bold, bool italic, bool underline, int size);
    /// A disabled control takes neither mouse nor keys.
    void SetEnabled(bool enable);
    void Show();
    /// Its own pixels: left and top are 0. All zero once the game window is gone.
    RECT GetClientRect() const;

protected:
    /// `className` is one of the desktop's controls.
    Control(wchar_t const* className, String const& text);

    /// Answers a message of the control's window; what is not the class's own business goes to Control's.
    virtual LRESULT HandleEvent(UINT message, WPARAM wParam, LPARAM lParam);
    /// The colours beyond the font that a class has.
    virtual void AnswerLook(platform::ControlLook&) const {}
    bool IsInside(POINT point) const;
    void Repaint();

private:
    static LRESULT WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND windowHandle = nullptr; // null once the game window has taken it along
    LRESULT (*oldWindowProc)(HWND, UINT, WPARAM, LPARAM) = nullptr;
    std::shared_ptr<IDWriteTextFormat const> fontPtr;
};
