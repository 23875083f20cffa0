#pragma once

#include "game/entities/EnemyBody.h"

/// The enemy with a shell. A stomp makes it hide in its shell, the next one makes the shell slide. When it is killed it
/// disappears at once.
class Dorvak : public EnemyBody {
public:
    static constexpr EnemyKind kind = {.type = enemyDorvak,
                                       .name = "dorvak",
                                       .picture = "Resources/Images/Dorvak.bmp",
                                       .cellCount = 4,
                                       .height = 24,
                                       .points = 400,
                                       .isTurnedByStomp = true};

    Dorvak(int x, int y, Bitmap* bitmapPtr);
    void Tick(double deltaTime) override;
    void Paint(MATRIX3X2 matView) override;
    bool Stomp() override;
    bool Kill() override;
    void PaintDebug(MATRIX3X2 matView) override { FillHitRect(COLOR(0, 200, 0, 150), matView); }
    /// Without the top of the cell while it is in its shell.
    RECT2 GetHitRect() override;
    /// It has fallen out of the level, or it no longer walks and is far from the hero.
    bool IsDead() override;
    void Report(StateReport& report) const override;

private:
    enum State : int { walking = 0, shellAtRest = 1, shellSliding = 2, dying = 3 };

    State state = walking;
};
