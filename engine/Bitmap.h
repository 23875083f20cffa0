#pragma once

#include "engine/String.h"
#include "platform/Canvas.h"
#include "platform/Imaging.h"

#include <memory>

/// A picture, loaded once and drawn with GameEngine's DrawBitmap. Make it when the canvas exists: from GameStart
/// onwards.
class Bitmap {
public:
    /// Loads a picture file, relative to the working directory; backslashes separate folders as slashes do. If that
    /// fails the program ends with a message and exit code -1.
    explicit Bitmap(String const& fileName);
    /// Loads the program's resource of type "IMAGE" with this number. If that fails a message is shown and the bitmap
    /// is empty: its size is 0 and drawing it draws nothing.
    explicit Bitmap(int resourceID);
    virtual ~Bitmap() = default;
    Bitmap(Bitmap const&) = delete;
    Bitmap& operator=(Bitmap const&) = delete;

    /// Makes every pixel of exactly this colour transparent, starting again from the picture as it was loaded: a second
    /// call undoes the first.
    void SetTransparencyColor(unsigned char red, unsigned char green, unsigned char blue);
    /// 0 is invisible, 1 opaque; multiplies the alpha of every pixel drawn.
    void SetOpacity(double newOpacity) { opacity = newOpacity; }

    double GetOpacity() const { return opacity; }
    int GetWidth() const;
    int GetHeight() const;
    /// The drawable image, null for an empty bitmap.
    ID2D1Bitmap* GetBitmapPtr() const { return bitmapPtr.get(); }

private:
    bool MakeDrawable();

    std::unique_ptr<ID2D1Bitmap> bitmapPtr;
    std::unique_ptr<IWICFormatConverter> converterPtr; // the picture as loaded; SetTransparencyColor goes back to it
    double opacity = 1.0;
    String fileName;
    int resourceID;
};
