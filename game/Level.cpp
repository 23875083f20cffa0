#include "game/Level.h"

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"
#include "engine/HitRegion.h"
#include "game/Sound.h"
#include "game/SpriteSheet.h"
#include "game/StateReport.h"
#include "game/player/Pelko.h"

namespace {
// Level pixels; the top-left corners of pictures.
constexpr DOUBLE2 castlePosition(3272.0, 0.0);
constexpr DOUBLE2 pipeBigPosition(914.0, 136.0);
constexpr DOUBLE2 pipeHorizontalPosition(208.0, 392.0);
constexpr DOUBLE2 pipeSmallPosition(2610.0, 168.0);

constexpr DOUBLE2 flagpoleTop(3175.0, 40.0);
constexpr double flagpoleWidth = 2.0;
constexpr double flagpoleFootY = 184.0;
constexpr double flagRight = 3176.0;
constexpr double flagUpY = 41.0;
constexpr double flagDownY = 162.0;
constexpr double flagSpeed = 120.0; // level pixels per second

constexpr int pipeEntryMargin = 3; // level pixels at each side of the pipe that do not let the hero in
constexpr int pipeExitWidth = 9;
} // namespace

Level::Level()
    : backgroundBitmapPtr(std::make_unique<Bitmap>("Resources/Images/World1-1.png")),
      castleBitmapPtr(std::make_unique<Bitmap>("Resources/Images/CastleHalf.png")),
      pipeBigBitmapPtr(std::make_unique<Bitmap>("Resources/Images/PipeVerticalBig.bmp")),
      pipeHorizontalBitmapPtr(std::make_unique<Bitmap>("Resources/Images/PipeHorizontal.bmp")),
      pipeSmallBitmapPtr(std::make_unique<Bitmap>("Resources/Images/PipeVerticalSmall.bmp")),
      flagBitmapPtr(LoadSpriteSheet("Resources/Images/Flag.bmp")), collisionRegionPtr(std::make_unique<HitRegion>()) {
    collisionRegionPtr->CreateFromFile("Resources/Images/World1-1_Collision.svg");

    pipeEntryRectVertical = {pipeBigPosition.x + pipeEntryMargin, pipeBigPosition.y - 1.0,
                             pipeBigPosition.x + pipeBigBitmapPtr->GetWidth() - pipeEntryMargin, pipeBigPosition.y};
    const double pipeFloorY = pipeHorizontalPosition.y + pipeHorizontalBitmapPtr->GetHeight();
    pipeEntryRectHorizontal = {pipeHorizontalPosition.x - pipeExitWidth, pipeFloorY - 1.0, pipeHorizontalPosition.x,
                               pipeFloorY};
    flagpoleRect = {flagpoleTop.x, flagpoleTop.y, flagpoleTop.x + flagpoleWidth, flagpoleFootY};
    flagPosition = {flagRight - flagBitmapPtr->GetWidth(), flagUpY};
}

Level::~Level() = default;

void Level::Tick(double deltaTime) {
    if (flagReached) {
        // Tested before it moves: the flag may pass its place by one step and is set back on the next tick.
        if (flagPosition.y < flagDownY) {
            flagPosition.y += flagSpeed * deltaTime;
        } else {
            flagPosition.y = flagDownY;
            flagDown = true;
        }
    }
    if (flagDown) {
        Pelko::GetSingleton()->StartAutoMove(heroWalksIntoCastle);
        Sound::GetSingleton()->PlayMusic(musicCastleComplete, soundPlay, volumeUnchanged);
    }
}

void Level::Paint(MATRIX3X2 matView) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(matView);
    enginePtr->DrawBitmap(backgroundBitmapPtr.get(), 0, 0);
    enginePtr->DrawBitmap(flagBitmapPtr.get(), flagPosition);
}

void Level::PaintCastle(MATRIX3X2 matView) { PaintAt(castleBitmapPtr.get(), castlePosition, matView); }

void Level::PaintPipes(MATRIX3X2 matView) {
    PaintAt(pipeBigBitmapPtr.get(), pipeBigPosition, matView);
    PaintAt(pipeHorizontalBitmapPtr.get(), pipeHorizontalPosition, matView);
    PaintAt(pipeSmallBitmapPtr.get(), pipeSmallPosition, matView);
}

void Level::PaintDebug(MATRIX3X2 matView) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(matView);
    enginePtr->SetColor(COLOR(255, 0, 0, 150));
    enginePtr->FillHitRegion(collisionRegionPtr.get());
    enginePtr->SetColor(COLOR(0, 0, 255, 150));
    enginePtr->FillRect(flagpoleRect);
}

void Level::PaintDebugPipes(MATRIX3X2 matView) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(matView);
    enginePtr->SetColor(COLOR(0, 0, 255, 100));
    enginePtr->FillRect(pipeEntryRectVertical);
    enginePtr->FillRect(pipeEntryRectHorizontal);
}

int Level::GetWidth() const { return backgroundBitmapPtr->GetWidth(); }

int Level::GetHeight() const { return backgroundBitmapPtr->GetHeight(); }

void Level::Report(StateReport& report) const {
    report.Add("flagReached", flagReached);
    report.Add("flagPosition", flagPosition);
}

void Level::PaintAt(Bitmap* bitmapPtr, DOUBLE2 position, const MATRIX3X2& matView) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetWorldMatrix(MATRIX3X2::CreateTranslationMatrix(position) * matView);
    enginePtr->DrawBitmap(bitmapPtr, 0, 0);
}
