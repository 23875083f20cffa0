#include "game/Level.h"

#include "engine/Bitmap.h"
#include "engine/GameEngine.h"
#include "engine/HitRegion.h"
#include "game/ChosenLevel.h"
#include "game/HUD.h"
#include "game/Sound.h"
#include "game/SpriteSheet.h"
#include "game/StateReport.h"
#include "game/player/Pelko.h"

namespace {
constexpr double flagpoleWidth = 2.0; // level pixels
constexpr double flagSpeed = 120.0;   // level pixels per second

constexpr int pipeEntryMargin = 3; // level pixels at each side of the pipe where the hero cannot enter
constexpr int pipeExitWidth = 9;

std::vector<std::unique_ptr<Bitmap>> LoadPipes() {
    std::vector<std::unique_ptr<Bitmap>> bitmaps;
    for (const PipePlan& pipe : chosenLevel.pipes) bitmaps.push_back(std::make_unique<Bitmap>(pipe.picture));
    return bitmaps;
}
} // namespace

Level::Level()
    : backgroundBitmapPtr(std::make_unique<Bitmap>(chosenLevel.background)),
      castleBitmapPtr(std::make_unique<Bitmap>(chosenLevel.castle.file)), pipeBitmaps(LoadPipes()),
      flagBitmapPtr(LoadSpriteSheet(chosenLevel.flag.picture)), collisionRegionPtr(std::make_unique<HitRegion>()) {
    collisionRegionPtr->CreateFromFile(chosenLevel.outline);

    PlacePipeEntries();
    const FlagPlan& flag = chosenLevel.flag;
    flagpoleRect = {flag.poleTop.x, flag.poleTop.y, flag.poleTop.x + flagpoleWidth, flag.poleFootY};
    flagPosition = DOUBLE2(flag.flagRight - flagBitmapPtr->GetWidth(), flag.upY);
}

Level::~Level() = default;

void Level::PlacePipeEntries() {
    for (std::size_t i = 0; i < pipeBitmaps.size(); ++i) {
        const auto& [picture, x, y, use] = chosenLevel.pipes[i];
        const Bitmap& bitmap = *pipeBitmaps[i];
        const int floorY = y + bitmap.GetHeight();
        if (use == pipeLeadsDown)
            pipeEntryRectVertical = RECT2(x + pipeEntryMargin, y - 1, x + bitmap.GetWidth() - pipeEntryMargin, y);
        if (use == pipeLeadsOut) pipeEntryRectHorizontal = RECT2(x - pipeExitWidth, floorY - 1, x, floorY);
    }
}

void Level::Tick(double deltaTime) {
    if (flagReached) {
        // The test comes before the move, so the flag may go one step too far; the next tick sets it back.
        if (flagPosition.y < chosenLevel.flag.downY) {
            flagPosition.y += flagSpeed * deltaTime;
        } else {
            flagPosition.y = chosenLevel.flag.downY;
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

void Level::PaintCastle(MATRIX3X2 matView) { PaintAt(castleBitmapPtr.get(), chosenLevel.castle.position, matView); }

void Level::PaintPipes(MATRIX3X2 matView) {
    for (std::size_t i = 0; i < pipeBitmaps.size(); ++i) {
        PaintAt(pipeBitmaps[i].get(), DOUBLE2(chosenLevel.pipes[i].x, chosenLevel.pipes[i].y), matView);
    }
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

void Level::StartMusic(const MusicPlan& music) {
    constexpr int hurryTime = 100; // at this time on the HUD, and below it, the music hurries
    Sound::GetSingleton()->PlayMusic(HUD::GetSingleton()->GetTime() > hurryTime ? music.calm : music.hurried, soundPlay,
                                     volumeUnchanged);
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
