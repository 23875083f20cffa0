#pragma once

#include "game/Singleton.h"
#include "game/entities/EntityMaster.h"
#include "game/entities/SlotList.h"

class Pelko;

/// All coins and power-ups. One that falls out of the level is deleted.
class EntityList : public SlotList<EntityMaster> {
public:
    static EntityList* GetSingleton() { return Singleton<EntityList>::Get(); }
    virtual ~EntityList() = default;
    /// Adds what a block releases, 14 pixels below `position`, the block's top-left corner. `type` is a BlockContent;
    /// any other number adds nothing. `variant` is that of a mushroom.
    void AddEntity(DOUBLE2 position, int type, int variant);
    /// Places the coins of the level.
    void CreateCoins();
    /// Ticks every entity, then deletes those that have fallen out of the level.
    void Tick(double deltaTime);

    // By index, 0 to GetSize() - 1

    /// The hero gets what the entity gives.
    void GiveTo(int index, Pelko& hero);
    void Collect(int index);
    void SetState(int index, int state);

    /// Empty slots included.
    int GetSize() const { return CountSlots(); }
    /// -1 if it is not a mushroom.
    int GetMushroomVariant(int index) const;

private:
    friend class Singleton<EntityList>;
    EntityList();
};
