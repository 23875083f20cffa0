#include "tests/support/Playground.h"

#include "engine/GameEngine.h"
#include "tests/support/StartedSounds.h"
#include "tests/support/TestSounds.h"

#include <algorithm>
#include <iostream>

using platform::Picture;

namespace {
constexpr int scale = 4;

struct Sheet {
    std::string name; // of the file, without its ending
    const char* ending;
    int width;
    int height;
    int cellWidth;
    int cellHeight;
};
constexpr int sheetLevelWidth = 0; // stands for the scene's
const std::vector<Sheet> sheets = {
    {"World1-1", ".png", sheetLevelWidth, 448, 10000, 10000},
    {"CastleHalf", ".png", 120, 200, 120, 200},
    {"PipeVerticalBig", ".bmp", 32, 64, 32, 64},
    {"PipeHorizontal", ".bmp", 48, 32, 48, 32},
    {"PipeVerticalSmall", ".bmp", 32, 32, 32, 32},
    {"Flag", ".bmp", 16, 16, 16, 16},
    {"Pelkos", ".png", 128, 528, 16, 16},
    {"Fireball", ".bmp", 32, 8, 8, 8},
    {"Explosion", ".bmp", 48, 16, 16, 16},
    {"Blocks", ".bmp", 96, 80, 16, 16},
    {"Coin", ".bmp", 96, 16, 16, 16},
    {"CoinBlock", ".bmp", 64, 16, 16, 16},
    {"Flower", ".bmp", 64, 16, 16, 16},
    {"Mushroom", ".bmp", 32, 16, 16, 16},
    {"Star", ".bmp", 16, 16, 16, 16},
    {"Skreel", ".bmp", 48, 16, 16, 16},
    {"Dorvak", ".bmp", 64, 24, 16, 24},
    {"Font", ".bmp", 128, 48, 8, 8},
    {"CoinIcon", ".bmp", 48, 8, 8, 8},
};

// A pixel's red says which picture it is of, green and blue which half of which column and row of its cells.
constexpr std::uint32_t firstRed = 0x40;

std::uint32_t PixelOf(std::size_t sheet, int x, int y) {
    const auto half = [](int position, int length) { return static_cast<std::uint32_t>(2 * position / length & 0xFF); };
    return 0xFF000000 | (firstRed + static_cast<std::uint32_t>(sheet)) << 16 |
           half(x, sheets.at(sheet).cellWidth) << 8 | half(y, sheets.at(sheet).cellHeight);
}

void WritePictures(int levelWidth) {
    for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
        Picture picture(sheets[sheet].width == sheetLevelWidth ? levelWidth : sheets[sheet].width,
                        sheets[sheet].height);
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x) picture.At(x, y) = PixelOf(sheet, x, y);
        if (sheets[sheet].name == "Font") // a blank is transparent
            for (int i = 0; i < 64; ++i) picture.At(i % 8, i / 8) = 0xFF000001;
        // Told apart by content, so that the ending is no matter.
        platform::SaveBmp("Resources/Images/" + sheets[sheet].name + sheets[sheet].ending, picture);
    }
}

void WriteSounds(TestFolder const& folder) {
    const std::string tone = ToneWav(440.0, 0.1, 100, 1, 8000);
    for (const char* const name : {"BlockBreak", "BlockBump", "CastleComplete", "Coin", "Dead", "FireballThrow", "Flag",
                                   "GameOver", "Jump", "KillEnemy", "Overworld", "OverworldHurry", "Pipe", "PowerUp",
                                   "Starrush", "Test", "Underworld", "UnderworldHurry"}) {
        folder.Write(std::string("Resources/Sound/") + name + ".mp3", tone);
    }
}

std::string Record(DOUBLE2 place, const char* label, int value) {
    std::ostringstream text;
    text << "PositionX:     " << place.x << "\nPositionY:     " << place.y << "\n" << label << value << "\n";
    return text.str();
}
} // namespace

std::string Solid(DOUBLE2 topLeft, DOUBLE2 bottomRight) {
    std::ostringstream path;
    path << "M " << topLeft.x << ' ' << topLeft.y << " H " << bottomRight.x << " V " << bottomRight.y << " H "
         << topLeft.x << " Z ";
    return path.str();
}

std::string HeroAt(DOUBLE2 place, int form) { return Record(place, "FormState:     ", form); }

std::string EnemyAt(DOUBLE2 place, int type) { return Record(place, "Type:          ", type); }

SceneFolder::SceneFolder(Scene const& scene) : formerDirectory(std::filesystem::current_path()) {
    std::filesystem::current_path(folder.Root());
    std::filesystem::create_directories("Resources/Images");
    folder.Write("Resources/Images/World1-1_Collision.svg", "<svg><path d=\"" + scene.outline + "\"/></svg>");
    if (scene.heroFile) folder.Write("Resources/Files/Data_Pelko.txt", *scene.heroFile);
    if (scene.enemyFile) folder.Write("Resources/Files/Data_Enemies.txt", *scene.enemyFile);
    WritePictures(scene.levelWidth);
    WriteSounds(folder);
}

SceneFolder::~SceneFolder() { std::filesystem::current_path(formerDirectory); }

Playground::Playground(Scene const& scene) : Playground(std::make_unique<SceneFolder>(scene)) {}

Playground::Playground(std::unique_ptr<SceneFolder> sceneFolderPtr)
    : folderPtr(std::move(sceneFolderPtr)), formerOutputPtr(std::cout.rdbuf(output.rdbuf())) {
    GameEngine* const enginePtr = GameEngine::GetSingleton();
    enginePtr->SetGame(&Game());
    Game().GameInitialize(nullptr);
    enginePtr->CreateGameWindow(1);
    enginePtr->CreateDeviceResources();
    Game().GameStart();
}

Playground::~Playground() {
    Game().GameEnd();
    delete GameEngine::GetSingleton();
    std::cout.rdbuf(formerOutputPtr);
}

Playground& Playground::Hold(int key) {
    stage->SetKey(key, true);
    return *this;
}

Playground& Playground::LetGo(int key) {
    stage->SetKey(key, false);
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

Playground::Seen Playground::At(DOUBLE2 levelPosition) const {
    const std::uint32_t colour = ColourAt(levelPosition);
    const std::uint32_t sheet = (colour >> 16 & 0xFF) - firstRed;
    if (sheet >= sheets.size()) return {};
    return {sheets[sheet].name, static_cast<int>(colour >> 9 & 0x7F), static_cast<int>(colour >> 1 & 0x7F),
            (colour >> 8 & 1) != 0, (colour & 1) != 0};
}

std::uint32_t Playground::ColourAt(DOUBLE2 levelPosition) const {
    const Picture& frame = stage->shown;
    const DOUBLE2 pixel = (levelPosition - Camera()) * scale;
    const int x = static_cast<int>(pixel.x);
    const int y = static_cast<int>(pixel.y);
    return x < 0 || y < 0 || x >= frame.width || y >= frame.height ? 0 : frame.At(x, y);
}

RECT2 Playground::BoundsOf(std::string const& picture) const {
    const Picture& frame = stage->shown;
    const auto sheet = static_cast<std::size_t>(std::ranges::find(sheets, picture, &Sheet::name) - sheets.begin());
    const std::uint32_t red = PixelOf(sheet, 0, 0) >> 16 & 0xFF;
    RECT bounds{frame.width, frame.height, 0, 0};
    for (int y = 0; y < frame.height; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            if ((frame.At(x, y) >> 16 & 0xFF) != red) continue;
            bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                      std::max(bounds.bottom, y + 1)};
        }
    }
    if (bounds.right == 0) return {};
    const auto inLevel = [](int pixel, double camera) { return static_cast<double>(pixel) / scale + camera; };
    return {inLevel(bounds.left, Camera().x), inLevel(bounds.top, Camera().y), inLevel(bounds.right, Camera().x),
            inLevel(bounds.bottom, Camera().y)};
}

std::vector<std::string> Playground::TakeSounds() {
    const std::vector<StartedSound> started = StartedSounds(stage->mediaCommands);
    std::vector<std::string> sounds;
    for (; soundsTaken < started.size(); ++soundsTaken) sounds.push_back(started[soundsTaken].name);
    return sounds;
}

int Playground::VolumeOf(std::string const& sound) const {
    int volume = -1;
    for (StartedSound const& started : StartedSounds(stage->mediaCommands))
        if (started.name == sound) volume = started.volume;
    return volume;
}

void Playground::ForgetRecords() {
    stage->mediaCommands.clear();
    stage->debugLines.clear();
    output.str("");
    soundsTaken = 0;
}
