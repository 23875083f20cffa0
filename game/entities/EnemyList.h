#pragma once

#include "game/Singleton.h"
#include "game/entities/EnemyMaster.h"
#include "game/entities/SlotList.h"

/// The enemies of the level, placed by its enemy file.
class EnemyList : public SlotList<EnemyMaster> {
public:
    static constexpr int slotCount = 15;
    /// The enemy here knocks out the others when it touches them: the place for the shelled one.
    static constexpr int shellSlot = slotCount - 1;

    /// The first call reads the enemy file. Without the file a message is shown and there are no enemies; records
    /// after the last slot are ignored.
    static EnemyList* GetSingleton() { return Singleton<EnemyList>::Get(); }
    virtual ~EnemyList();
    /// Deletes the dead and ticks the others.
    void Tick(double deltaTime);

    // By slot, 0 to slotCount - 1

    void Kill(int index);
    void Stomp(int index);
    void SetMovingLeft(int index, bool movingLeft);
    /// What the player gets for defeating it; 0 for an empty slot.
    int GetPoints(int index) const { return At(index) ? At(index)->GetKind().points : 0; }
    /// Whether a stomp turns it to where the hero faces; false for an empty slot.
    bool IsTurnedByStomp(int index) const { return At(index) && At(index)->GetKind().isTurnedByStomp; }

private:
    friend class Singleton<EnemyList>;
    EnemyList();
    void ReadEnemyFile();
};
