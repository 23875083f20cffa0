#include "examples/shapes/ShapesGame.h"

/// Draws one cell. It may use x from 16 to 112 and y from 8 to 72.
struct ShapesGame::Sample {
    const wchar_t* name;
    void (*Paint)(ShapesGame& game, GameEngine& engine, const MATRIX3X2& matCell);
};

namespace {
DOUBLE2 star[] = {{64, 8}, {86, 72}, {30, 32}, {98, 32}, {42, 72}};
DOUBLE2 zigzag[] = {{16, 64}, {36, 16}, {56, 64}, {76, 16}, {112, 64}};
const RECT coinCell = {0, 0, 16, 16};
} // namespace

const ShapesGame::Sample ShapesGame::samples[] = {
    {L"DrawLine",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) {
         for (int i = 0; i < 4; ++i) engine.DrawLine(DOUBLE2(16, 12 + 16 * i), DOUBLE2(112, 20 + 16 * i), 1 + 2 * i);
     }},
    {L"DrawRect", [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.DrawRect(16, 8, 112, 72, 3); }},
    {L"FillRect", [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.FillRect(16, 8, 112, 72); }},
    {L"DrawRoundedRect",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.DrawRoundedRect(16.0, 8, 112, 72, 24, 16, 3); }},
    {L"FillRoundedRect",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.FillRoundedRect(16, 8, 112, 72, 24, 16); }},
    {L"DrawEllipse",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.DrawEllipse(DOUBLE2(64, 40), 48, 32, 3); }},
    {L"FillEllipse", [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.FillEllipse(64, 40, 48, 32); }},
    {L"DrawPolygon",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.DrawPolygon(zigzag, 5, false, 3); }},
    {L"FillPolygon", [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) { engine.FillPolygon(star, 5); }},
    {L"DrawHitRegion", [](ShapesGame& game, GameEngine& engine, const MATRIX3X2&) { engine.DrawHitRegion(&game.region); }},
    {L"FillHitRegion", [](ShapesGame& game, GameEngine& engine, const MATRIX3X2&) { engine.FillHitRegion(&game.region); }},
    {L"DrawBitmap",
     [](ShapesGame& game, GameEngine& engine, const MATRIX3X2&) {
         engine.DrawBitmap(game.coinPtr.get(), 16, 16);
         engine.DrawBitmap(game.coinPtr.get(), 56, 48, coinCell); // one cell of the sheet
     }},
    {L"nearest, linear",
     [](ShapesGame& game, GameEngine& engine, const MATRIX3X2& matCell) {
         engine.SetWorldMatrix(MATRIX3X2::CreateScalingMatrix(3) * matCell);
         engine.SetBitmapInterpolationModeNearestNeighbor();
         engine.DrawBitmap(game.coinPtr.get(), 5, 5, coinCell);
         engine.SetBitmapInterpolationModeLinear();
         engine.DrawBitmap(game.coinPtr.get(), 22, 5, coinCell);
     }},
    {L"SetOpacity",
     [](ShapesGame& game, GameEngine& engine, const MATRIX3X2& matCell) {
         engine.SetWorldMatrix(MATRIX3X2::CreateScalingMatrix(2) * matCell);
         for (int i = 0; i < 3; ++i) {
             game.coinPtr->SetOpacity((i + 1) / 3.0);
             engine.DrawBitmap(game.coinPtr.get(), 8 + 16 * i, 12, coinCell);
         }
     }},
    {L"alpha of COLOR",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) {
         engine.SetColor(COLOR(216, 72, 72, 128));
         for (int i = 0; i < 3; ++i) engine.FillEllipse(44 + 20 * i, 40, 26, 26);
     }},
    {L"EnableAntiAlias",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) {
         engine.DrawEllipse(DOUBLE2(40, 40), 22, 30, 2);
         engine.EnableAntiAlias(false);
         engine.DrawEllipse(DOUBLE2(88, 40), 22, 30, 2);
         engine.EnableAntiAlias(true);
     }},
    {L"SetWorldMatrix",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2& matCell) {
         for (int i = 0; i < 6; ++i) { // turn around its centre, then move to the middle of the cell
             engine.SetWorldMatrix(MATRIX3X2::CreateRotationMatrix(i * 0.2618) *
                                   MATRIX3X2::CreateTranslationMatrix(64, 40) * matCell);
             engine.DrawRect(-22, -22, 22, 22);
         }
     }},
    {L"DrawCoordinateSystem",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2& matCell) {
         engine.SetWorldMatrix(MATRIX3X2::CreateTranslationMatrix(40, 16) * matCell);
         engine.DrawCoordinateSystem(36);
     }},
    {L"DrawString",
     [](ShapesGame&, GameEngine& engine, const MATRIX3X2&) {
         engine.SetDefaultFont();
         engine.DrawString(L"Text is wrapped inside its box.", 16, 8, 112, 72);
     }},
    {L"SetFont",
     [](ShapesGame& game, GameEngine& engine, const MATRIX3X2&) {
         engine.SetFont(game.labelFontPtr.get());
         engine.DrawString(L"A font, a size, any script: àéîõü αβγ жзи", 16, 8, 112, 72);
     }},
};

void ShapesGame::GameStart() {
    labelFontPtr = std::make_unique<Font>(L"DejaVu Sans", 10.0F);
    coinPtr = std::make_unique<Bitmap>(L"examples/art/coin.bmp");
    coinPtr->SetTransparencyColor(255, 0, 255);
    region.CreatePolygon(star, 5, true);
}

void ShapesGame::GamePaint(RECT) {
    constexpr int columns = 4;
    constexpr int cellWidth = 128;
    constexpr int cellHeight = 96;
    Engine().FillWindowRect(248, 244, 232);
    int number = 0;
    for (const Sample& sample : samples) {
        const MATRIX3X2 matCell =
            MATRIX3X2::CreateTranslationMatrix(number % columns * cellWidth, number / columns * cellHeight);
        ++number;
        Engine().SetWorldMatrix(matCell);
        Engine().SetColor(COLOR(96, 88, 80, 255));
        Engine().SetFont(labelFontPtr.get());
        Engine().DrawString(sample.name, 6, 78, cellWidth, cellHeight);
        Engine().SetColor(COLOR(48, 96, 160, 255));
        sample.Paint(*this, Engine(), matCell);
    }
}
