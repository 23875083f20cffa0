#include "game/HUD.h"

#include "engine/COLOR.h"
#include "engine/GameEngine.h"
#include "engine/MATRIX3X2.h"
#include "game/ChosenLevel.h"
#include "game/StateReport.h"

#include <algorithm>
#include <string>

namespace {
constexpr int ticksPerTimeUnit = 30;
constexpr int ticksPerCoinFrame = 10;
constexpr int coinFrameCount = 6;

// Window pixels
constexpr int pixelScale = 3;
constexpr int row1 = 20;
constexpr int rowHeight = 26;
constexpr int row2 = row1 + rowHeight;
constexpr int column1 = 50;
constexpr int columnWidth = 270;
constexpr int column2 = column1 + columnWidth;
constexpr int column3 = column2 + columnWidth;
constexpr int column4 = column3 + columnWidth;

// The font picture
constexpr int cellSize = 8;
constexpr int cellsPerRow = 16;
constexpr int firstCharacter = 32;

/// Draws a piece of `bitmap`, three times as large, with its top-left corner at (`x`, `y`) of the window.
void DrawPiece(Bitmap& bitmap, RECT piece, int x, int y) {
    const MATRIX3X2 matScale = MATRIX3X2::CreateScalingMatrix(pixelScale);
    const MATRIX3X2 matTranslate = MATRIX3X2::CreateTranslationMatrix(x, y);
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(matScale * matTranslate);
    enginePtr->DrawBitmap(&bitmap, 0, 0, piece);
}
} // namespace

HUD::HUD() : fontBitmap(fontPicture), coinIconBitmap(coinPicture) {
    fontBitmap.SetTransparencyColor(0, 0, 1);
    coinIconBitmap.SetTransparencyColor(255, 0, 255);
}

void HUD::Tick(double deltaTime) {
    ++tickCount;
    peakHold = std::max(peakHold - 1, 0);
    lastDelta = deltaTime;
    if (tickCount % ticksPerTimeUnit == 0) --time;
    if (tickCount % ticksPerCoinFrame == 0) coinFrame = (coinFrame + 1) % coinFrameCount;
}

void HUD::Paint() {
    GameEngine::GetSingleton()->SetWorldMatrix(MATRIX3X2::CreateIdentityMatrix());
    DrawBitmapText("PELKO", column1, row1);
    DrawBitmapText(ToPaddedString(score, 6), column1, row2);
    DrawBitmapText(String("x ") + coins, column2, row2);
    DrawBitmapText(chosenLevel.worldLabel, column3, row1);
    DrawBitmapText(chosenLevel.worldName, column3 + rowHeight, row2);
    DrawBitmapText("TIME", column4, row1);
    DrawBitmapText(String(" ") + ToPaddedString(time, 3), column4, row2);
    PaintDebug(false);
    // Half the strip is three of its six frames, the icon's width on the screen: it ends where the coins' text begins.
    DrawCoinIcon(column2 - coinIconBitmap.GetWidth() / 2, row2);
}

void HUD::PaintDebug(bool show) {
    if (!show) return;
    constexpr double longestFrame = 0.05; // seconds; the engine clamps there, and the bar spans the window
    constexpr int barHeight = 11;
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(MATRIX3X2::CreateIdentityMatrix());
    if (lastDelta > peakDelta && peakHold <= 0) peakDelta = lastDelta;
    const int width = enginePtr->GetWidth();
    const double pixelsPerSecond = width / longestFrame;
    enginePtr->SetColor(COLOR(210, 105, 30, 255));
    enginePtr->FillRect(0, 0, static_cast<int>(peakDelta * pixelsPerSecond), barHeight);
    enginePtr->SetColor(COLOR(178, 34, 34, 255));
    enginePtr->FillRect(0, 0, static_cast<int>(lastDelta * pixelsPerSecond), barHeight);
    enginePtr->SetColor(COLOR(0, 0, 0, 255));
    enginePtr->DrawRect(0, 0, width, barHeight);
    enginePtr->SetDefaultFont();
    enginePtr->DrawString(String("deltaTime: ") + lastDelta + "\t\t\t\t\tPeak: " + peakDelta + "\t\t\t\t\tMax: 0.05", 0,
                          -2, -1, -1);
}

void HUD::AddCoin() {
    constexpr int pointsPerCoin = 200;
    ++coins;
    AddScore(pointsPerCoin);
}

void HUD::Report(StateReport& report) const {
    report.Add("tickCount", tickCount);
    report.Add("coinFrame", coinFrame);
    report.Add("peakHold", peakHold);
    report.Add("lastDelta", lastDelta);
    report.Add("peakDelta", peakDelta);
}

void HUD::DrawBitmapText(String const& text, int x, int y) {
    for (int index = 0; index < text.GetLength(); ++index) {
        const int cell = static_cast<int>(text.CharAt(index)) - firstCharacter;
        const int left = cell % cellsPerRow * cellSize;
        const int top = cell / cellsPerRow * cellSize;
        DrawPiece(fontBitmap, {left, top, left + cellSize, top + cellSize}, x + index * cellSize * pixelScale, y);
    }
}

void HUD::DrawCoinIcon(int x, int y) {
    const int frameWidth = coinIconBitmap.GetWidth() / coinFrameCount;
    const int left = frameWidth * coinFrame;
    DrawPiece(coinIconBitmap, {left, 0, left + frameWidth, coinIconBitmap.GetHeight()}, x, y);
}

String HUD::ToPaddedString(int value, int width) {
    const String digits = String("") + value;
    String padded("");
    for (int length = digits.GetLength(); length < width; ++length) padded += '0';
    return padded + digits;
}
