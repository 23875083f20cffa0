#pragma once

#include "engine/AbstractGame.h"
#include "engine/Callable.h"
#include "engine/DOUBLE2.h"
#include "engine/Font.h"
#include "engine/MATRIX3X2.h"

#include <memory>

class StateReport;

/// The game: it ticks and paints its parts once per frame in a fixed order, moves the camera, and carries out the
/// actions of released keys.
class Quillfen : public AbstractGame, public Callable {
public:
    /// The one game, made on the first call. Give it to the engine, which deletes it.
    static Quillfen* GetSingleton();
    ~Quillfen() override;
    Quillfen(Quillfen const&) = delete;
    Quillfen& operator=(Quillfen const&) = delete;

    void GameInitialize(HINSTANCE hInstance) override;
    void GameStart() override;
    void GameEnd() override;
    void KeyPressed(TCHAR key) override;
    void GameTick(double deltaTime) override;
    void GamePaint(RECT rect) override;
    /// Nothing in this game waits for a caller.
    void CallAction(Caller* /*callerPtr*/) override {}

    void SetCameraPosition(double x, double y) { cameraPosition = DOUBLE2(x, y); }
    /// The level position of the window's top-left corner.
    DOUBLE2 GetCameraPosition() const { return cameraPosition; }
    /// Whether the debug view is drawn. Its text depends on the fonts of the machine.
    bool ShowsDebug() const { return debugMode; }
    void Report(StateReport& report) const;

private:
    Quillfen() = default;
    void UpdateCamera();
    void UpdateFreeCamera(double deltaTime);
    void StopCameraAtLevelEnd();
    void PrintHeroPosition();
    void PaintDebug(const MATRIX3X2& matView);
    static void Toggle(bool& mode, wchar_t const* name);

    bool debugMode = false;
    bool freeCamera = false;
    bool paused = false;
    bool starCheat = false;
    double cameraAngle = 0.0; // radians
    double cameraZoom = 0.0;  // level pixels per window pixel
    DOUBLE2 cameraPosition;
    int ticksUntilFlush = 0;
    std::unique_ptr<Font> fontPtr;
};
