#pragma once

#include "engine/Bitmap.h"
#include "game/Singleton.h"
#include "game/entities/EnemyMaster.h"

#include <array>
#include <cstddef>
#include <memory>

/// The enemies of the level, placed by its enemy file. An enemy keeps its slot for life; a deleted
/// one leaves the slot empty.
class EnemyList {
public:
    static constexpr int slotCount = 15;
    /// The enemy here knocks out the others when it touches them: the place for the shelled one.
    static constexpr int shellSlot = slotCount - 1;

    /// The first call reads the enemy file. Without the file a message is shown and there are no enemies; records
    /// beyond the last slot are ignored.
    static EnemyList* GetSingleton() { return Singleton<EnemyList>::Get(); }
    virtual ~EnemyList();
    /// Deletes the dead and ticks the others.
    void Tick(double deltaTime);
    void Paint(MATRIX3X2 matView);
    void PaintDebug(MATRIX3X2 matView);

    // By slot, 0 to slotCount - 1. An empty slot takes every order and does nothing.

    void Kill(int index);
    void Stomp(int index);
    void Move(int index, DOUBLE2 delta);
    void SetMovingLeft(int index, bool movingLeft);
    void ResetVelocity(int index, bool horizontal, bool vertical);

    /// All zero for an empty slot.
    RECT2 GetHitRect(int index) const;
    /// (0, 0) for an empty slot.
    DOUBLE2 GetPosition(int index) const;
    /// An EnemyType; -1 for an empty slot.
    int GetType(int index) const;
    /// Nothing for an empty slot.
    void Report(int index, StateReport& report) const;

private:
    friend class Singleton<EnemyList>;
    EnemyList();
    void ReadEnemyFile();
    EnemyMaster* At(int index) const { return enemies[static_cast<std::size_t>(index)].get(); }

    // lent to the enemies below, so declared above them
    std::unique_ptr<Bitmap> skreelBitmapPtr;
    std::unique_ptr<Bitmap> dorvakBitmapPtr;
    std::array<std::unique_ptr<EnemyMaster>, slotCount> enemies;
};
