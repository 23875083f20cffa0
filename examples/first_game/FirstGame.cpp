#include "FirstGame.h" // beside this file, so that the folder can be copied

#include "engine/GameEngine.h"
#include "platform/Messages.h"

namespace {
constexpr double walkSpeed = 150.0; // window pixels / s
constexpr double jumpSpeed = 420.0; // window pixels / s
constexpr double gravity = 1000.0;  // window pixels / s^2
constexpr double halfWidth = 18.0;  // window pixels from the middle of the sprite to its side
constexpr double kneeHeight = 20.0; // window pixels; the traveller steps onto anything lower
constexpr int into = -1;            // asks Raycast for crossings that go into the ground only
} // namespace

void FirstGame::GameInitialize(HINSTANCE instance) {
    AbstractGame::GameInitialize(instance);
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetTitle(L"My first game");
    enginePtr->SetWidth(512);
    enginePtr->SetHeight(480);
    enginePtr->RunGameLoop(true);
    enginePtr->SetKeyList(static_cast<wchar_t>(VK_ESCAPE));
}

void FirstGame::GameStart() {
    walkerPtr = std::make_unique<Bitmap>(L"examples/art/walker.png");
    GameEngine::GetSingleton()->SetBitmapInterpolationModeNearestNeighbor(); // large pixels, not a blur
    DOUBLE2 outline[] = {{-50, 360}, {140, 360}, {230, 310}, {300, 310}, {300, 250},
                         {400, 250}, {400, 400}, {562, 400}, {562, 530}, {-50, 530}};
    ground.CreatePolygon(outline, 10, true);
}

void FirstGame::KeyPressed(TCHAR key) {
    if (key == VK_ESCAPE) GameEngine::GetSingleton()->QuitGame();
}

void FirstGame::GameTick(double deltaTime) {
    Walk(deltaTime);
    Fall(deltaTime);
}

void FirstGame::Walk(double deltaTime) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    const int direction = enginePtr->IsKeyDown(VK_RIGHT) - enginePtr->IsKeyDown(VK_LEFT);
    if (direction == 0) return;
    facing = direction;
    const DOUBLE2 knee(feet.x, feet.y - kneeHeight); // before the move: after it the knee may be in the wall
    feet.x += direction * walkSpeed * deltaTime;

    // A ray from where the knee was to where the side is meets the walls.
    HIT wall;
    if (ground.Raycast(knee, DOUBLE2(feet.x + direction * halfWidth - knee.x, 0), &wall, 1, into) > 0) {
        feet.x = wall.point.x - direction * halfWidth;
    }
}

void FirstGame::Fall(double deltaTime) {
    const DOUBLE2 knee(feet.x, feet.y - kneeHeight); // before the move: after it the knee may be in the ground
    if (standing && GameEngine::GetSingleton()->IsKeyDown(VK_UP)) velocity.y = -jumpSpeed;
    velocity.y += gravity * deltaTime;
    feet.y += velocity.y * deltaTime;
    standing = false;
    if (velocity.y < 0.0) return; // on the way up there is nothing to land on

    // A ray from where the knee was to just below the feet meets the floor, even on a slope or after a long step.
    HIT floor;
    if (ground.Raycast(knee, DOUBLE2(0, feet.y + 1 - knee.y), &floor, 1, into) > 0) {
        feet.y = floor.point.y;
        velocity.y = 0.0;
        standing = true;
    }
}

void FirstGame::GamePaint(RECT) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->FillWindowRect(168, 216, 240);
    enginePtr->SetColor(COLOR(104, 168, 88, 255));
    enginePtr->SetWorldMatrix(MATRIX3X2::CreateIdentityMatrix()); // the previous frame left its own
    enginePtr->FillHitRegion(&ground);

    // Put the feet on the origin, mirror and enlarge there, then move to the place in the window.
    const int cell = standing ? static_cast<int>(feet.x / 12) % 4 + 1 : 6;
    enginePtr->SetWorldMatrix(MATRIX3X2::CreateTranslationMatrix(-8, -32) *
                              MATRIX3X2::CreateScalingMatrix(3.0 * facing, 3.0) *
                              MATRIX3X2::CreateTranslationMatrix(feet));
    enginePtr->DrawBitmap(walkerPtr.get(), 0, 0, RECT{16 * cell, 0, 16 * cell + 16, 32});
}
