#pragma once

#include "platform/Picture.h"
#include "platform/core/media/SoundDevice.h"
#include "platform/core/shapes/Polygon.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace platform {

class ShapePainter;
class TextLine;
class TextPainter;
struct FontChoice;
struct FrameMemory;

/// What a back end owes: all that this layer asks of libraries. A desktop is made with one of them. The entries are
/// references, so that a list in which one is missing does not compile. Unless marked "any thread" they are called on
/// the main thread.
struct Backend {
    // Pictures, decoded to premultiplied pixels; nothing if one is missing, damaged or absurdly large. Any thread.

    std::optional<Picture> (&loadPicture)(const std::string& path); ///< UTF-8
    std::optional<Picture> (&decodePicture)(std::span<const unsigned char> bytes);

    // The canvas. The painters borrow the frame; null if one cannot be made.

    std::unique_ptr<ShapePainter> (&makeShapePainter)(const FrameMemory& frame);
    std::unique_ptr<TextPainter> (&makeTextPainter)(const FrameMemory& frame);
    /// A text of at most 32,767 characters in one line. Never null.
    std::unique_ptr<TextLine> (&layOutLine)(std::wstring_view text, const FontChoice& font);

    // Shapes

    PolygonCombiner& combinePolygons;

    // Sound. Files are named in UTF-8; null if one is missing or damaged. Any thread.

    /// Reads no more than the headers.
    std::unique_ptr<SoundDecoder> (&openRecording)(const std::string& path);
    /// Null too where nothing can play MIDI. May take a good part of a second.
    std::unique_ptr<SoundDecoder> (&openMidi)(const std::string& path);
    /// Called on the main thread before the first sound; what it answers opens the device to play on.
    SoundDeviceOpener (&findSoundDevice)();
};

} // namespace platform
