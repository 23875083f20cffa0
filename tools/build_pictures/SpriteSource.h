#pragma once

#include "platform/Picture.h"
#include "tools/art/Palette.h"

#include <map>
#include <string>
#include <vector>

namespace pictures {

class SourceFile;

/// A drawing in characters. Colours are looked up when it is painted, so one drawing can have several colourings.
struct Grid {
    int width = 0;
    std::vector<std::string> rows;
};

/// One file of sprites and the sheets laid out from them. Lines of the file:
///
///     key CHARACTER COLOUR            what a character of the grids means; "." is always transparent
///     swap NAME CHARACTER COLOUR ...  other meanings, for a recoloured row
///     part NAME, rows, end            a drawing
///     frame NAME PART[@dx,dy] ...     a picture made of parts, the later in front
///     sheet FILE WIDTH HEIGHT GROUND  begins a sheet; GROUND is a colour, "clear", "magenta" or "nearblack"
///     row X Y STEP [SWAP] : FRAME ... frames side by side on the sheet, STEP pixels apart
///     rim COLOUR CELL                 an outline around what the sheet shows, inside cells of CELL x CELL pixels
class SpriteSource {
public:
    /// Reads the whole file; throws SourceError.
    SpriteSource(const std::string& path, const Palette& palette);

    /// The finished sheets by file name.
    const std::map<std::string, platform::Picture>& Sheets() const { return sheets; }
    bool HasFrame(const std::string& name) const { return frames.contains(name); }
    int FrameWidth(const std::string& name) const;
    int FrameHeight(const std::string& name) const;
    /// Paints a frame with its origin at (`x`, `y`), clipped to the picture.
    void PaintFrame(platform::Picture& picture, const std::string& name, int x, int y) const;

private:
    struct Placed {
        Grid grid;
        int x;
        int y;
    };
    using Keys = std::map<char, std::uint32_t>;

    void ReadKeys(SourceFile& file, Keys& keys) const;
    void ReadPart(SourceFile& file);
    void ReadFrame(SourceFile& file);
    void ReadSheet(SourceFile& file);
    void ReadRow(SourceFile& file);
    void ReadRim(SourceFile& file);
    std::uint32_t Colour(SourceFile& file, const std::string& name) const;
    void Paint(platform::Picture& picture, const std::vector<Placed>& frame, int x, int y, const Keys& keys) const;

    const Palette& palette;
    Keys standardKeys;
    std::map<std::string, Keys> swaps;
    std::map<std::string, Grid> parts;
    std::map<std::string, std::vector<Placed>> frames;
    std::map<std::string, platform::Picture> sheets;
    std::string currentSheet;
    std::uint32_t currentGround = 0;
};

} // namespace pictures
