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

    /// Advances the clock and the coin's animation. The clock counts ticks, not seconds.
    void Tick(double deltaTime);
    /// Paints in window coordinates.
    void Paint();
    /// If `show` is true, paints a bar with the time of the last frame and of the longest frame so far.
    void PaintDebug(bool show);

    void AddScore(int points) { score += points; }
    /// A coin is worth 200 points.
    void AddCoin();

    /// The time left. It falls below 0, and nothing happens then.
    int GetTime() const { return time; }
    int GetScore() const { return score; }
    int GetCoins() const { return coins; }
    void Report(StateReport& report) const;

    /// Draws `text` with the font picture. Its top-left corner is (`x`, `y`); a character takes 24 x 24 window pixels.
    void DrawBitmapText(String const& text, int x, int y);
    void DrawCoinIcon(int x, int y);
    /// The digits of `value`, with zeros before them up to `width` characters: -5 in three characters is "0-5".
    static String ToPaddedString(int value, int width);

private:
    friend class Singleton<HUD>;
    HUD();

    int time = 400; // falls by one every 30 ticks
    int tickCount = 0;
    int score = 0;
    int coins = 0;
    int coinFrame = 0;
    int peakHold = 30;      // ticks until the peak is recorded: the first frames load files
    double lastDelta = 0.0; // seconds
    double peakDelta = 0.0;
    Bitmap fontBitmap;
    Bitmap coinIconBitmap;
};
