#include "tests/support/Playground.h"

#include "engine/GameEngine.h"
#include "tests/support/StartedSounds.h"

#include <algorithm>
#include <iostream>

using platform::Picture;

namespace {
constexpr int scale = 4;
constexpr std::uint32_t magenta = 0xFFFF00FF;
constexpr std::uint32_t heroRed = 0xC1;
constexpr int heroCell = 16;

/// Every 16 x 16 part of the sheet has a colour that names its column, its row and which half it is.
Picture HeroSheet() {
    Picture sheet(128, 528);
    for (int y = 0; y < sheet.height; ++y) {
        for (int x = 0; x < sheet.width; ++x) {
            const auto half = static_cast<std::uint32_t>(x / (heroCell / 2));
            sheet.At(x, y) = 0xFF000000 | heroRed << 16 | half << 8 | static_cast<std::uint32_t>(y / heroCell);
        }
    }
    return sheet;
}

void WritePictures(Scene const& scene) {
    const auto write = [](std::string const& name, Picture const& picture) {
        platform::SaveBmp("Resources/Images/" + name, picture); // told apart by content, so a .png name is no matter
    };
    write("World1-1.png", Picture(scene.levelWidth, 448, SceneFolder::sky));
    write("CastleHalf.png", Picture(120, 200, SceneFolder::castle));
    write("PipeVerticalBig.bmp", Picture(32, 64, SceneFolder::pipe));
    write("PipeHorizontal.bmp", Picture(48, 32, SceneFolder::pipe));
    write("PipeVerticalSmall.bmp", Picture(32, 32, SceneFolder::pipe));
    write("Flag.bmp", Picture(16, 16, SceneFolder::flag));
    write("Pelkos.png", HeroSheet());
    write("Fireball.bmp", Picture(32, 8, SceneFolder::fireball));
    write("Explosion.bmp", Picture(48, 16, SceneFolder::explosion));
    write("Blocks.bmp", Picture(96, 80, SceneFolder::block));
    write("Coin.bmp", Picture(96, 16, SceneFolder::coin));
    write("CoinBlock.bmp", Picture(64, 16, SceneFolder::coin));
    write("Flower.bmp", Picture(64, 16, 0xFFFF0000));
    write("Mushroom.bmp", Picture(32, 16, 0xFFFF8080));
    write("Star.bmp", Picture(16, 16, 0xFFFFFF80));
    write("Skreel.bmp", Picture(48, 16, SceneFolder::enemy));
    write("Dorvak.bmp", Picture(64, 24, SceneFolder::enemy));
    write("Font.bmp", Picture(128, 48, 0xFF000001)); // the transparent colour: nothing covers the level
    write("CoinIcon.bmp", Picture(48, 8, magenta));
    for (auto const& [name, picture] : scene.pictures) write(name, picture);
}

void WriteSounds(TestFolder const& folder) {
    const std::string tone = ToneWav(440.0, 0.1, 100, 1, 8000);
    for (const char* const name : {"BlockBreak", "BlockBump", "CastleComplete", "Coin", "Dead", "FireballThrow", "Flag",
                                   "GameOver", "Jump", "KillEnemy", "Overworld", "OverworldHurry", "Pipe", "PowerUp",
                                   "Starrush", "Test", "Underworld", "UnderworldHurry"}) {
        folder.Write(std::string("Resources/Sound/") + name + ".mp3", tone);
    }
}

std::string Field(std::string label, int value) {
    label.resize(15, ' ');
    return label + std::to_string(value) + "\n";
}
} // namespace

std::string Solid(int left, int top, int right, int bottom) {
    std::ostringstream path;
    path << "M " << left << ' ' << top << " H " << right << " V " << bottom << " H " << left << " Z ";
    return path.str();
}

std::string Floor(int levelWidth) { return Solid(0, 200, levelWidth, 220); }

std::string HeroAt(int x, int y, int form) {
    return Field("PositionX:", x) + Field("PositionY:", y) + Field("FormState:", form);
}

std::string EnemyAt(int x, int y, int type) {
    return Field("PositionX:", x) + Field("PositionY:", y) + Field("Type:", type);
}

Scene PlainScene() { return {Floor(), 600, HeroAt(50, 184), ""}; }

SceneFolder::SceneFolder(Scene const& scene) : formerDirectory(std::filesystem::current_path()) {
    std::filesystem::current_path(folder.Path("."));
    for (const char* const name : {"Images", "Sound", "Files"}) {
        std::filesystem::create_directories(std::filesystem::path("Resources") / name);
    }
    folder.Write("Resources/Images/World1-1_Collision.svg", "<svg><path d=\"" + scene.outline + "\"/></svg>");
    if (scene.heroFile) folder.Write("Resources/Files/Data_Pelko.txt", *scene.heroFile);
    if (scene.enemyFile) folder.Write("Resources/Files/Data_Enemies.txt", *scene.enemyFile);
    WritePictures(scene);
    WriteSounds(folder);
}

SceneFolder::~SceneFolder() { std::filesystem::current_path(formerDirectory); }

Playground::Playground(Scene const& scene) : Playground(std::make_unique<SceneFolder>(scene)) {}

Playground::Playground(std::unique_ptr<SceneFolder> sceneFolderPtr)
    : folderPtr(std::move(sceneFolderPtr)), formerOutputPtr(std::cout.rdbuf(output.rdbuf())) {
    auto scriptedPtr = std::make_unique<platform::ScriptedDesktop>();
    desktopPtr = scriptedPtr.get();
    desktopPtr->onFrame = [this](int, platform::FrameView const& view) {
        frame = Picture(view.width, view.height);
        for (int y = 0; y < view.height; ++y) {
            std::copy_n(view.pixels + static_cast<std::ptrdiff_t>(y) * view.stride, view.width, &frame.At(0, y));
        }
    };
    platform::Desktop::Use(std::move(scriptedPtr));
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetGame(Quillfen::GetSingleton());
    Game().GameInitialize(nullptr);
    enginePtr->CreateGameWindow(1);
    enginePtr->CreateDeviceResources();
    Game().GameStart();
}

Playground::~Playground() {
    Game().GameEnd();
    delete GameEngine::GetSingleton();
    platform::Desktop::Use(nullptr);
    std::cout.rdbuf(formerOutputPtr);
}

Playground& Playground::Hold(int key) {
    desktopPtr->SetKey(key, true);
    return *this;
}

Playground& Playground::LetGo(int key) {
    desktopPtr->SetKey(key, false);
    return *this;
}

Playground& Playground::Tap(int key) {
    Game().KeyPressed(static_cast<TCHAR>(key));
    return *this;
}

Playground& Playground::Run(int ticks, double deltaTime) {
    for (int tick = 0; tick < ticks; ++tick) Game().GameTick(deltaTime);
    return *this;
}

Playground& Playground::Paint() {
    GameEngine::GetSingleton()->PaintFrame();
    return *this;
}

std::uint32_t Playground::ColourAt(DOUBLE2 levelPosition) const {
    const DOUBLE2 pixel = (levelPosition - Camera()) * scale;
    const int x = static_cast<int>(pixel.x);
    const int y = static_cast<int>(pixel.y);
    return x < 0 || y < 0 || x >= frame.width || y >= frame.height ? 0 : frame.At(x, y);
}

RECT2 Playground::BoundsOf(std::uint32_t colour) const {
    RECT bounds{frame.width, frame.height, 0, 0};
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            if (frame.At(x, y) != colour) continue;
            bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                      std::max(bounds.bottom, y + 1)};
        }
    }
    if (bounds.right == 0) return {};
    const auto inLevel = [](int pixel, double camera) { return static_cast<double>(pixel) / scale + camera; };
    return {inLevel(bounds.left, Camera().x), inLevel(bounds.top, Camera().y), inLevel(bounds.right, Camera().x),
            inLevel(bounds.bottom, Camera().y)};
}

Playground::HeroPicture Playground::PaintedHero() const {
    const auto partOf = [](std::uint32_t colour) { return static_cast<int>(colour >> 8 & 0xFF); };
    const auto rowOf = [](std::uint32_t colour) { return static_cast<int>(colour & 0xFF); };
    const DOUBLE2 top = Hero().GetPosition();
    const std::uint32_t left = ColourAt(top + DOUBLE2(-4.0, 1.0));
    const std::uint32_t right = ColourAt(top + DOUBLE2(4.0, 1.0));
    if (left >> 16 != (0xFF00 | heroRed) || right >> 16 != (0xFF00 | heroRed)) return {};
    HeroPicture picture;
    picture.isShown = true;
    picture.column = partOf(left) / 2;
    picture.row = rowOf(left);
    picture.mirrored = partOf(left) > partOf(right);
    return picture;
}

std::vector<std::string> Playground::TakeSounds() {
    const std::vector<StartedSound> started = StartedSounds(desktopPtr->mediaCommands);
    std::vector<std::string> sounds;
    for (; soundsTaken < started.size(); ++soundsTaken) sounds.push_back(started[soundsTaken].name);
    return sounds;
}

void Playground::ForgetRecords() {
    desktopPtr->mediaCommands.clear();
    desktopPtr->debugLines.clear();
    desktopPtr->boxes.clear();
    output.str("");
    soundsTaken = 0;
}

std::vector<std::wstring> Playground::Boxes() const {
    std::vector<std::wstring> texts;
    for (platform::ScriptedDesktop::Box const& box : desktopPtr->boxes) texts.push_back(box.text);
    return texts;
}
