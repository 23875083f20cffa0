#pragma once

#include "game/entities/EntityMaster.h"

#include <memory>
#include <span>

/// A kind of entity, and how one is made with its top-left corner at `x`, `y`. The bitmap is the kind's picture and
/// must outlive the entity. `variant` is that of a mushroom.
struct EntityKind {
    EntityType type;
    BlockContent content; // of the blocks that release it; contentNothing if no block does
    char const* picture;
    std::unique_ptr<EntityMaster> (*make)(int x, int y, Bitmap* bitmapPtr, int variant);
};

/// Every kind, in the order in which the pictures are loaded.
std::span<const EntityKind> EntityKinds();
