#include "examples/sprites/SpritesGame.h"

namespace {
constexpr int cellWidth = 16;
constexpr int cellHeight = 32;
constexpr double walkSpeed = 90.0; // window pixels / s
constexpr double groundY = 432.0;  // window pixels
} // namespace

void SpritesGame::GameStart() {
    walkerPtr = std::make_unique<Bitmap>(L"examples/art/walker.png");
    coinPtr = std::make_unique<Bitmap>(L"examples/art/coin.bmp");
    coinPtr->SetTransparencyColor(255, 0, 255);
    Engine().SetBitmapInterpolationModeNearestNeighbor();
}

void SpritesGame::GameTick(double deltaTime) {
    seconds += deltaTime;
    x += direction * walkSpeed * deltaTime;
    if (x > 448.0) direction = -1;
    if (x < 64.0) direction = 1;
}

void SpritesGame::GamePaint(RECT rect) {
    const int walkCell = 1 + static_cast<int>(seconds * 8.0) % 4; // cells 1 to 4 are the walk, 8 cells a second
    Engine().FillWindowRect(120, 176, 224);
    Engine().SetColor(COLOR(104, 168, 88, 255));
    Engine().FillRect(RECT2(0, groundY, rect.right, rect.bottom));
    PaintSheet(walkCell);
    PaintCoins();
    PaintWalker(walkCell);
}

void SpritesGame::PaintSheet(int cell) {
    Engine().SetWorldMatrix(MATRIX3X2::CreateScalingMatrix(3) * MATRIX3X2::CreateTranslationMatrix(64, 24));
    Engine().DrawBitmap(walkerPtr.get());
    Engine().SetColor(COLOR(255, 255, 255, 255));
    Engine().DrawRect(cell * cellWidth, 0, (cell + 1) * cellWidth, cellHeight);
}

void SpritesGame::PaintWalker(int cell) {
    // put the cell's feet on the origin, mirror and enlarge it there, then move it to its place
    Engine().SetWorldMatrix(MATRIX3X2::CreateTranslationMatrix(-cellWidth / 2, -cellHeight) *
                            MATRIX3X2::CreateScalingMatrix(5.0 * direction, 5.0) *
                            MATRIX3X2::CreateTranslationMatrix(x, groundY));
    Engine().DrawBitmap(walkerPtr.get(), 0, 0, RECT{cell * cellWidth, 0, (cell + 1) * cellWidth, cellHeight});
}

void SpritesGame::PaintCoins() {
    for (int i = 0; i < 5; ++i) {
        const int cell = (static_cast<int>(seconds * 10.0) + i) % 6;
        Engine().SetWorldMatrix(MATRIX3X2::CreateScalingMatrix(3) *
                                MATRIX3X2::CreateTranslationMatrix(80 + 76 * i, 176));
        Engine().DrawBitmap(coinPtr.get(), 0, 0, RECT{cell * 16, 0, (cell + 1) * 16, 16});
    }
}
