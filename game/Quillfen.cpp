#include "game/Quillfen.h"

#include "engine/GameEngine.h"
#include "game/Actions.h"
#include "game/ChosenLevel.h"
#include "game/HUD.h"
#include "game/Handy.h"
#include "game/Level.h"
#include "game/Sound.h"
#include "game/StateReport.h"
#include "game/entities/EnemyKinds.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityKinds.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "game/player/CollisionList.h"
#include "game/player/Pelko.h"

#include <algorithm>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

namespace {
constexpr int scale = 4;       // window pixels per level pixel
constexpr int viewWidth = 256; // level pixels
constexpr int viewHeight = 224;
constexpr double followMargin =
    80.0; // level pixels between the view's left edge and the hero's, when the camera follows him

constexpr double freeCameraSpeed = 300.0;           // level pixels / s
constexpr double freeCameraTurn = std::numbers::pi; // radians / s
constexpr double freeCameraZoom = 1.0;              // level pixels per window pixel, each second
constexpr double unzoomed = 1.0 / scale;

constexpr int flushTicks = 15; // the output is flushed once in so many ticks

Quillfen* singletonPtr = nullptr;

/// Every picture, in the order in which the first frame asks for them.
std::vector<std::string> PicturesOfTheFirstFrame() {
    std::vector<std::string> pictures;
    for (const EntityKind& kind : EntityKinds()) pictures.emplace_back(kind.picture);
    pictures.insert(pictures.end(), {chosenLevel.background, chosenLevel.castle.file});
    for (const PipePlan& pipe : chosenLevel.pipes) pictures.emplace_back(pipe.picture);
    pictures.insert(pictures.end(), {chosenLevel.flag.picture, HUD::fontPicture, HUD::coinPicture, HeroSprite::picture,
                                     Fireballs::flyingPicture, Fireballs::explosionPicture});
    for (const EnemyMaker& maker : EnemyMakers()) pictures.emplace_back(maker.kindPtr->picture);
    pictures.emplace_back(BlockList::picture);
    return pictures;
}
} // namespace

Quillfen* Quillfen::GetSingleton() {
    if (singletonPtr == nullptr) singletonPtr = new Quillfen;
    return singletonPtr;
}

Quillfen::~Quillfen() { singletonPtr = nullptr; }

void Quillfen::GameInitialize(HINSTANCE hInstance) {
    AbstractGame::GameInitialize(hInstance);
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetTitle("Quillfen - Varnel, Odrik - 1KVT3");
    enginePtr->RunGameLoop(true);
    enginePtr->SetWidth(scale * viewWidth);
    enginePtr->SetHeight(scale * viewHeight);
    enginePtr->SetKeyList(ReleasedKeys());
    enginePtr->SetVSync(true);
    enginePtr->GetWICImagingFactory()->Prefetch(PicturesOfTheFirstFrame()); // decoded while the window opens
}

void Quillfen::GameStart() {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetBitmapInterpolationModeNearestNeighbor();
    Sound::GetSingleton()->PlayMusic(chosenLevel.music.calm, soundPlay, volumeUnchanged);
    cameraZoom = unzoomed;
    fontPtr = std::make_unique<Font>("emulogic", 24.0F);
    enginePtr->SetFont(fontPtr.get());
    EntityList::GetSingleton()->CreateCoins();
}

void Quillfen::GameEnd() {
    Singleton<Level>::Destroy();
    Singleton<HUD>::Destroy();
    Singleton<Handy>::Destroy();
    Singleton<Sound>::Destroy();
    fontPtr.reset();
    Singleton<Pelko>::Destroy();
    Singleton<BlockList>::Destroy();
    Singleton<EnemyList>::Destroy();
    Singleton<EntityList>::Destroy();
    Singleton<CollisionList>::Destroy();
}

void Quillfen::GameTick(double deltaTime) {
    if (paused) return;
    if (starCheat) Pelko::GetSingleton()->ActivateStar();
    Level::GetSingleton()->Tick(deltaTime);
    HUD::GetSingleton()->Tick(deltaTime);
    CollisionList::GetSingleton()->Tick(deltaTime); // all contacts, before anything moves
    Pelko::GetSingleton()->Tick(deltaTime);
    EnemyList::GetSingleton()->Tick(deltaTime);
    BlockList::GetSingleton()->Tick(deltaTime);
    EntityList::GetSingleton()->Tick(deltaTime);
    if (freeCamera) {
        UpdateFreeCamera(deltaTime);
    } else {
        UpdateCamera();
    }
    PrintHeroPosition();
    Sound::GetSingleton()->Tick(deltaTime);
}

void Quillfen::UpdateCamera() {
    Pelko* const pelkoPtr = Pelko::GetSingleton();
    const DOUBLE2 pelkoPos = pelkoPtr->GetPosition();
    const int half = pelkoPtr->GetWidth() / 2;
    cameraPosition.x = std::max(cameraPosition.x, pelkoPos.x - half - followMargin); // it never goes back
    StopCameraAtLevelEnd();
    if (cameraPosition.x > pelkoPos.x - half) {
        pelkoPtr->SetPosition(half + cameraPosition.x, Pelko::keepCoordinate); // and he cannot leave the view
    }
    const RoomPlan& room = chosenLevel.room;
    if (pelkoPos.y > room.top && pelkoPos.x > room.left && pelkoPos.x < room.right && pelkoPtr->IsAlive()) {
        cameraPosition = room.view;
    } else {
        cameraPosition.y = 0.0;
    }
}

void Quillfen::StopCameraAtLevelEnd() {
    const int visibleWidth = GameEngine::GetSingleton()->GetWidth() / scale;
    const int levelWidth = Level::GetSingleton()->GetWidth();
    if (visibleWidth + cameraPosition.x > levelWidth) cameraPosition.x = levelWidth - visibleWidth;
}

void Quillfen::UpdateFreeCamera(double deltaTime) {
    if (IsHeld(Action::turnRight)) cameraAngle += freeCameraTurn * deltaTime;
    if (IsHeld(Action::turnLeft)) cameraAngle -= freeCameraTurn * deltaTime;
    if (IsHeld(Action::zoomOut)) cameraZoom += freeCameraZoom * deltaTime;
    if (IsHeld(Action::zoomIn)) cameraZoom -= freeCameraZoom * deltaTime;
    if (IsHeld(Action::resetCamera)) {
        cameraAngle = 0.0;
        cameraZoom = unzoomed;
    }
    if (IsHeld(Action::cameraUp)) cameraPosition.y -= freeCameraSpeed * deltaTime;
    if (IsHeld(Action::cameraDown)) cameraPosition.y += freeCameraSpeed * deltaTime;
    if (IsHeld(Action::cameraLeft)) cameraPosition.x -= freeCameraSpeed * deltaTime;
    if (IsHeld(Action::cameraRight)) cameraPosition.x += freeCameraSpeed * deltaTime;
    cameraPosition.y = std::clamp(cameraPosition.y, 0.0, chosenLevel.lowestView);
    cameraPosition.x = std::max(cameraPosition.x, 0.0);
    StopCameraAtLevelEnd();
}

void Quillfen::PrintHeroPosition() {
    const DOUBLE2 pelkoPos = Pelko::GetSingleton()->GetPosition();
    std::cout << "Position Pelko: " << pelkoPos.x << ", " << pelkoPos.y << '\r';
    if (--ticksUntilFlush > 0) return; // a system call on every tick would be too expensive
    ticksUntilFlush = flushTicks;
    std::cout.flush();
}

void Quillfen::GamePaint(RECT /*rect*/) {
    // The camera's place in the level: scale, then rotate, then translate. The view is the inverse.
    const MATRIX3X2 matCameraScale = MATRIX3X2::CreateScalingMatrix(cameraZoom);
    const MATRIX3X2 matCameraRotate = MATRIX3X2::CreateRotationMatrix(cameraAngle);
    const MATRIX3X2 matCameraTranslate = MATRIX3X2::CreateTranslationMatrix(cameraPosition);
    const MATRIX3X2 matCameraTransform = matCameraScale * matCameraRotate * matCameraTranslate;
    const MATRIX3X2 matView = matCameraTransform.Inverse();
    GameEngine::GetSingleton()->SetWorldMatrix(matView);

    Level* const levelPtr = Level::GetSingleton();
    levelPtr->Paint(matView);
    Pelko::GetSingleton()->Paint(matView);
    levelPtr->PaintCastle(matView); // castle and pipes hide the hero who goes into them
    levelPtr->PaintPipes(matView);
    EnemyList::GetSingleton()->Paint(matView);
    EntityList::GetSingleton()->Paint(matView);
    BlockList::GetSingleton()->Paint(matView);
    CollisionList::GetSingleton()->Paint(matView);
    HUD::GetSingleton()->Paint();
    if (debugMode) PaintDebug(matView);
}

void Quillfen::PaintDebug(const MATRIX3X2& matView) {
    Level::GetSingleton()->PaintDebug(matView);
    Level::GetSingleton()->PaintDebugPipes(matView);
    Pelko::GetSingleton()->PaintDebug(matView);
    EnemyList::GetSingleton()->PaintDebug(matView);
    BlockList::GetSingleton()->PaintDebug(matView);
    EntityList::GetSingleton()->PaintDebug(matView);
    HUD::GetSingleton()->PaintDebug(true);
}

void Quillfen::KeyPressed(TCHAR key) {
    Pelko* const pelkoPtr = Pelko::GetSingleton();
    const std::optional<Action> action = ActionOfRelease(key);
    if (!action) return;
    switch (*action) {
    case Action::showBoxes: Toggle(debugMode, L"Debug mode: "); break;
    case Action::freeCamera: Toggle(freeCamera, L"Free camera mode: "); break;
    case Action::pause:
        Sound::GetSingleton()->PlaySound(effectTest, soundPlay, 100);
        paused = !paused;
        break;
    case Action::becomeSmall: pelkoPtr->SetFormState(heroSmall); break;
    case Action::becomeBig: pelkoPtr->SetFormState(heroBig); break;
    case Action::becomeFire: pelkoPtr->SetFormState(heroFire); break;
    case Action::goToStart:
        pelkoPtr->ResetToStart();
        pelkoPtr->SetAlive(true);
        pelkoPtr->SetState(heroStanding);
        cameraPosition = DOUBLE2(0.0, 0.0);
        break;
    case Action::goToRoom:
        pelkoPtr->GoUnderground();
        pelkoPtr->SetPosition(chosenLevel.room.debugStart.x, chosenLevel.room.debugStart.y);
        cameraPosition = DOUBLE2(0.0, Level::GetSingleton()->GetMiddleY());
        break;
    case Action::leaveRoom: pelkoPtr->ExitUnderground(); break;
    case Action::throwFireball:
        if (pelkoPtr->GetFormState() == heroFire) pelkoPtr->ShootFireball();
        break;
    case Action::keepStar: starCheat = !starCheat; break;
    case Action::quit: GameEngine::GetSingleton()->QuitGame(); break;
    default: break; // the other actions happen while their key is held
    }
}

void Quillfen::Toggle(bool& mode, wchar_t const* name) {
    mode = !mode;
    GameEngine::OutputDebugString(String(name) + static_cast<int>(mode) + L"\n");
}

void Quillfen::Report(StateReport& report) const {
    report.Add("debugMode", debugMode);
    report.Add("freeCamera", freeCamera);
    report.Add("paused", paused);
    report.Add("starCheat", starCheat);
    report.Add("angle", cameraAngle);
    report.Add("zoom", cameraZoom);
}
