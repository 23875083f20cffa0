#include "examples/hit_regions/HitRegionsGame.h"

#include <cmath>

namespace {
const DOUBLE2 lamp(40, 300);
const COLOR rockColor(104, 112, 136, 255);
const COLOR rayColor(248, 208, 112, 255);
const COLOR hitColor(232, 88, 88, 255);
} // namespace

void HitRegionsGame::GameStart() {
    rock.CreateFromFile(L"examples/hit_regions/rock.svg");
    ball.CreateEllipse(DOUBLE2(0, 0), 80, 80);
}

void HitRegionsGame::GameTick(double deltaTime) {
    seconds += deltaTime;
    ball.SetPos(DOUBLE2(310 + 110 * std::cos(seconds), 180 + 70 * std::sin(seconds)));
}

void HitRegionsGame::GamePaint(RECT) {
    const POINT mouse = Engine().GetMousePosition();
    const DOUBLE2 aim = DOUBLE2(mouse.x, mouse.y) - lamp;
    Engine().FillWindowRect(32, 36, 56);
    Engine().SetWorldMatrix(MATRIX3X2::CreateIdentityMatrix());         // the previous frame left its own
    Engine().SetColor(rock.HitTest(lamp + aim) ? hitColor : rockColor); // the mouse is on the rock
    Engine().FillHitRegion(&rock);
    for (int i = -2; i <= 2; ++i) PaintRay(MATRIX3X2::CreateRotationMatrix(0.06 * i).TransformVector(aim));
    PaintCombinations();
}

void HitRegionsGame::PaintRay(DOUBLE2 vector) {
    HIT hits[16];
    const int count = rock.Raycast(lamp, vector, hits, 16, 0);
    Engine().SetColor(rayColor);
    Engine().DrawLine(lamp, lamp + vector);
    Engine().SetColor(hitColor);
    for (int i = 0; i < count; ++i) {
        Engine().FillEllipse(hits[i].point, 4, 4);
        Engine().DrawLine(hits[i].point, hits[i].point - 20.0 * hits[i].normal, 2); // normals point into the rock
    }
}

void HitRegionsGame::PaintCombinations() {
    // new regions, owned by the caller
    const std::unique_ptr<HitRegion> results[] = {
        std::unique_ptr<HitRegion>(rock.Unite(&ball)), std::unique_ptr<HitRegion>(rock.Exclude(&ball)),
        std::unique_ptr<HitRegion>(rock.Intersect(&ball)), std::unique_ptr<HitRegion>(rock.Xor(&ball))};
    for (int i = 0; i < 4; ++i) {
        Engine().SetWorldMatrix(MATRIX3X2::CreateScalingMatrix(0.34) *
                                MATRIX3X2::CreateTranslationMatrix(128 * i - 41, 370));
        Engine().SetColor(rayColor);
        if (results[i]) Engine().FillHitRegion(results[i].get());
        Engine().SetColor(rockColor);
        Engine().DrawHitRegion(&rock);
        Engine().DrawHitRegion(&ball);
    }
}
