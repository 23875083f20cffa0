#pragma once

#include "engine/MATRIX3X2.h"
#include "platform/Geometry.h"

#include <memory>
#include <string>
#include <string_view>

class String;

/// Reads the outline of a shape from a picture file of paths. Not a reader of all such files: it takes the data of the
/// first path element, and the first transform that the file mentions anywhere.
class SVGLoader {
public:
    virtual ~SVGLoader() = default;

    /// Writes the path seen through the transform to `*geometryPtrPtr`; the caller owns it. False, after a message and
    /// with nothing written, if the file has none. Damaged path data gives what came before the damage.
    bool LoadGeometryFromFile(String const& fileName, ID2D1Geometry** geometryPtrPtr);

private:
    /// The value of the first path's data attribute; false if there is none.
    bool ExtractGeometryInfo(std::string_view svgText, std::string_view& geometryInfo);
    /// The value of the first transform attribute; false if there is none.
    bool ExtractTransformInfo(std::string_view svgText, std::string_view& transformInfo);
    /// The first transform function: matrix, translate, scale or rotate. Numbers it lacks are those of the identity.
    MATRIX3X2 ParseTransform(std::string_view transformInfo);
    /// Null, after a message, if no path can be made at all.
    std::unique_ptr<ID2D1PathGeometry> ParsePathData(ID2D1Factory& factory, std::string_view geometryInfo);
};
