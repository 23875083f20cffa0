#pragma once

#include "platform/Desktop.h"
#include "platform/Picture.h"
#include "platform/core/screen/Scaler.h"

#include <memory>
#include <string>

struct SDL_Renderer;
struct SDL_Surface;
struct SDL_Texture;
struct SDL_Window;

namespace platform {

/// The program's window on the real screen: shows frames of the size the program draws, scaled and placed as the screen
/// needs it, and says which pixel of the frame lies under a point of the window.
class Screen {
public:
    /// Opens a hidden window for frames of `frameSize` pixels, at `position` if all of it is visible there. `IsOpen`
    /// says whether it worked. The video library must be running.
    Screen(const std::string& title, POINT position, POINT frameSize);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void Show(bool visible);
    void MoveTo(POINT position);
    void SetIcon(Picture icon);
    /// Fills the whole screen, or goes back to the window as it was before.
    bool SetFullscreen(bool fill);
    /// Shows the frame; with `waitForBlank` the driver may wait for the display's blank, unless that comes too seldom.
    /// False if nothing can be shown any more.
    bool Present(const FrameView& frame, bool waitForBlank);
    /// Shows the last frame again, after other windows have covered it.
    void ShowAgain();

    bool IsOpen() const { return windowPtr != nullptr; }
    bool IsFullscreen() const { return fullscreen; }
    bool HasFocus() const;
    /// Where the window is, or in full screen will be again.
    POINT Position() const;
    POINT FrameSize() const { return frameSize; }
    /// The pixel of the frame under a point of the window; beside the frame the nearest one, or, with `mayLieOutside`,
    /// the one that would be there.
    POINT FrameFromWindow(POINT point, bool mayLieOutside = false) const;
    /// How often per second presenting waits for the display's blank; 0 if it does not.
    double BlankRate() const { return waitsForBlank ? DisplayRate() : 0.0; }
    SDL_Window* Handle() const { return windowPtr.get(); }

private:
    struct Closer {
        void operator()(SDL_Window* window) const;
        void operator()(SDL_Renderer* renderer) const;
        void operator()(SDL_Texture* texture) const;
        void operator()(SDL_Surface* surface) const;
    };

    void ChooseWay();
    double DisplayRate() const;
    bool PresentTexture(const FrameView& frame);
    bool PresentSurface(const FrameView& frame);
    bool ShowTexture();
    /// Frames go into an output of this size from now on. False if they already did.
    bool MoveFrameTo(POINT output);

    std::unique_ptr<SDL_Window, Closer> windowPtr;
    std::unique_ptr<SDL_Renderer, Closer> rendererPtr; // null: frames are copied into the window's surface
    std::unique_ptr<SDL_Texture, Closer> texturePtr;
    std::unique_ptr<SDL_Surface, Closer> stagingPtr; // only for screens with other pixels than ours
    POINT frameSize;
    POINT windowPosition;
    POINT windowSize;
    POINT shownIn; // the size of the output, in pixels; 0 before the first frame
    RECT shownAt;  // where in it the frame is
    bool wayChosen = false;
    bool fullscreen = false;
    bool resizesItself = false; // in full screen, because there is no window manager
    bool waitsForBlank = false;
    Scaler scaler;
};

} // namespace platform
