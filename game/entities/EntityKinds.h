#pragma once

#include "game/entities/EntityMaster.h"

#include <memory>
#include <span>

/// A kind of entity and how one is made: with its top-left corner at `x`, `y` and the strip of the kind's picture,
/// which must outlive it. `variant` tells mushrooms apart.
struct EntityKind {
    EntityType type;
    BlockContent content; // that blocks release it for; contentNothing for one that no block holds
    char const* picture;
    std::unique_ptr<EntityMaster> (*make)(int x, int y, Bitmap* bitmapPtr, int variant);
};

/// Every kind that there is, in the order in which their pictures are loaded.
std::span<const EntityKind> EntityKinds();
