#pragma once

#include "game/entities/EnemyBody.h"

/// The enemy that walks. After a stomp it lies flat for a moment, then it disappears. When it is killed it hops and
/// falls out of the level upside down.
class Skreel : public EnemyBody {
public:
    static constexpr EnemyKind kind = {.type = enemySkreel,
                                       .name = "skreel",
                                       .picture = "Resources/Images/Skreel.bmp",
                                       .cellCount = 3,
                                       .height = 16,
                                       .points = 100,
                                       .isTurnedByStomp = false};

    Skreel(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void Paint(MATRIX3X2 matView) override;
    bool Stomp() override;
    bool Kill() override;
    void PaintDebug(MATRIX3X2 matView) override { FillHitRect(COLOR(50, 50, 50, 150), matView); }
    RECT2 GetHitRect() override { return state == walking ? GetCellRect() : RECT2(); }
    bool IsDead() override { return HasFallenOut() || flattenedTicks < 1; }
    void Report(StateReport& report) const override;

private:
    enum State : int { walking = 0, flattened = 1, dying = 2 };

    int flattenedTicks = 30; // that it will still lie flat
    State state = walking;
};
