#pragma once

#include "platform/Picture.h"
#include "tools/art/Palette.h"

namespace pictures {

/// A broken column with its foot at (`x`, `footY`), `width` wide and about `height` high.
void PaintColumn(platform::Picture& picture, const Palette& palette, int x, int footY, int width, int height, int seed);

/// A wall of hewn stones with a ragged upper edge and a round-headed opening in its middle, `opening` wide (0: none).
void PaintWall(platform::Picture& picture, const Palette& palette, int left, int footY, int width, int height,
               int opening, int seed);

/// A round tower with a pointed roof; small ones stand far away.
void PaintTower(platform::Picture& picture, const Palette& palette, int left, int footY, int width, int height,
                int roof, int seed);

/// The fort at the end, from column `left` of the picture, on the ground at `footY`. The middle of its gate is at
/// column `left` + 72.
void PaintFort(platform::Picture& picture, const Palette& palette, int left, int footY);

} // namespace pictures
