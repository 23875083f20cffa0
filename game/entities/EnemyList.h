#pragma once

#include "game/Singleton.h"
#include "game/entities/EnemyMaster.h"
#include "game/entities/SlotList.h"

/// The enemies of the level, placed by its enemy file.
class EnemyList : public SlotList<EnemyMaster> {
public:
    static constexpr int slotCount = 15;
    /// The enemy in this slot, the one with a shell, knocks out the others that it touches.
    static constexpr int shellSlot = slotCount - 1;

    /// The first call reads the enemy file. If it is missing, a message is shown and there are no enemies. Records are
    /// ignored once every slot is taken.
    static EnemyList* GetSingleton() { return Singleton<EnemyList>::Get(); }
    virtual ~EnemyList();
    /// Deletes the dead and ticks the others.
    void Tick(double deltaTime);

    // By slot, 0 to slotCount - 1

    void Kill(int index);
    void Stomp(int index);
    void SetMovingLeft(int index, bool movingLeft);
    /// The points for defeating it; 0 for an empty slot.
    int GetPoints(int index) const { return At(index) ? At(index)->GetKind().points : 0; }
    /// Whether a stomp turns it to the side that the hero faces; false for an empty slot.
    bool IsTurnedByStomp(int index) const { return At(index) && At(index)->GetKind().isTurnedByStomp; }

private:
    friend class Singleton<EnemyList>;
    EnemyList();
    void ReadEnemyFile();
};
