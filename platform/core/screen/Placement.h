#pragma once

#include "platform/Types.h"

namespace platform {

/// The size that a window for a picture of size `picture` gets on a screen with room for `room` and a display scale of
/// `scale` (1 is 100 %): enlarged by whole factors only, and shrunk as far as needed where there is no room.
POINT WindowSize(POINT picture, POINT room, double scale);

/// Where a picture of size `picture` stands in an area of size `area`: centred, undistorted and as large as fits. With
/// `wholeFactors` it is enlarged by whole factors only.
RECT PlacePicture(POINT picture, POINT area, bool wholeFactors);

/// The pixel of the picture under a point of the area; a point beside the picture means the nearest one or, with
/// `mayLieOutside`, the one that would be there.
POINT PictureFromArea(POINT point, POINT picture, RECT placement, bool mayLieOutside = false);

} // namespace platform
