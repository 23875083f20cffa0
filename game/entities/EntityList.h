#pragma once

#include "engine/Bitmap.h"
#include "game/Singleton.h"
#include "game/entities/EntityMaster.h"

#include <cstddef>
#include <memory>
#include <vector>

/// All coins and power-ups. An index, once given out, names the same entity for the whole game, or an empty slot after
/// the entity has fallen out of the level.
class EntityList {
public:
    static EntityList* GetSingleton() { return Singleton<EntityList>::Get(); }
    virtual ~EntityList() = default;
    /// Makes what a block releases, 14 pixels below `position` (the block's top-left corner). `type` is a
    /// BlockContent; any other adds nothing. `variant` is the kind of a mushroom.
    void AddEntity(DOUBLE2 position, int type, int variant);
    /// Places the coins of the level.
    void CreateCoins();
    /// Ticks every entity, then deletes those that have fallen out of the level.
    void Tick(double deltaTime);
    void Paint(MATRIX3X2 matView);
    void PaintDebug(MATRIX3X2 matView);

    // By index, 0 to GetSize() - 1. An empty slot takes every order and does nothing.

    void Collect(int index);
    void Move(int index, DOUBLE2 delta);
    void SetState(int index, int state);
    void ResetVelocity(int index, bool horizontal, bool vertical);

    /// Empty slots included.
    int GetSize() const { return static_cast<int>(entities.size()); }
    /// All zero for an empty slot.
    RECT2 GetHitRect(int index) const;
    /// (0, 0) for an empty slot.
    DOUBLE2 GetPosition(int index) const;
    /// An EntityType; -1 for an empty slot.
    int GetType(int index) const;
    /// Nothing for an empty slot.
    void Report(int index, StateReport& report) const;
    /// -1 for anything but a mushroom.
    int GetMushroomVariant(int index) const;

private:
    friend class Singleton<EntityList>;
    EntityList();
    EntityMaster* At(int index) const { return entities[static_cast<std::size_t>(index)].get(); }

    // lent to the entities below, so declared above them
    std::unique_ptr<Bitmap> coinBitmapPtr;
    std::unique_ptr<Bitmap> coinBlockBitmapPtr;
    std::unique_ptr<Bitmap> flowerBitmapPtr;
    std::unique_ptr<Bitmap> mushroomBitmapPtr;
    std::unique_ptr<Bitmap> starBitmapPtr;
    std::vector<std::unique_ptr<EntityMaster>> entities;
};
