#pragma once

#include "engine/Bitmap.h"
#include "engine/String.h"
#include "game/Singleton.h"

class StateReport;

/// Score, coins, world and time across the top of the window, and the clock of the game.
class HUD {
public:
    static constexpr char const* fontPicture = "Resources/Images/Font.bmp";
    static constexpr char const* coinPicture = "Resources/Images/CoinIcon.bmp";

    static HUD* GetSingleton() { return Singleton<HUD>::Get(); }
    virtual ~HUD() = default;

    /// Advances the clock, by frames and not by seconds, and the coin's animation.
    void Tick(double deltaTime);
    /// In window pixels.
    void Paint();
    /// With `show`, a bar with the time of the last frame and of the longest one so far.
    void PaintDebug(bool show);

    void AddScore(int points) { score += points; }
    /// A coin is worth 200 points.
    void AddCoin();

    /// What is left; nothing happens at 0, it goes on below.
    int GetTime() const { return time; }
    int GetScore() const { return score; }
    int GetCoins() const { return coins; }
    void Report(StateReport& report) const;

    /// Draws `text` in the cells of the font picture, 24 x 24 window pixels each, from (`x`, `y`) to the right.
    void DrawBitmapText(String const& text, int x, int y);
    void DrawCoinIcon(int x, int y);
    /// The digits of `value`, with zeros before them up to `width` characters: -5 in three characters is "0-5".
    static String ToPaddedString(int value, int width);

private:
    friend class Singleton<HUD>;
    HUD();

    int time = 400; // one for every 30 ticks
    int tickCount = 0;
    int score = 0;
    int coins = 0;
    int coinFrame = 0;
    int peakHold = 30;      // ticks until the peak counts: the first frames still load
    double lastDelta = 0.0; // seconds
    double peakDelta = 0.0;
    Bitmap fontBitmap;
    Bitmap coinIconBitmap;
};
