#pragma once

#include "engine/DOUBLE2.h"
#include "game/Quillfen.h"
#include "game/player/Pelko.h"
#include "platform/Picture.h"
#include "platform/ScriptedDesktop.h"
#include "tests/support/TestSounds.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

/// What a small level consists of. Blocks and coins are where they always are, the first block at (256, 136).
struct Scene {
    /// Path data of the solid outline, traced clockwise on screen.
    std::string outline;
    int levelWidth = 600; // level pixels
    /// Contents of the data files; nothing: there is no such file.
    std::optional<std::string> heroFile;
    std::optional<std::string> enemyFile;
    /// Shown instead of the plain ones, by file name.
    std::map<std::string, platform::Picture> pictures = {};
};

/// A solid rectangle, as path data.
std::string Solid(int left, int top, int right, int bottom);
/// The ground that scenes usually have: its top is at y = 200 and a small hero on it at y = 184.
std::string Floor(int levelWidth = 600);
/// A record of the hero's data file.
std::string HeroAt(int x, int y, int form = heroSmall);
/// A record of the enemy file.
std::string EnemyAt(int x, int y, int type = 0);
/// A hero standing on the floor at x = 50, and nobody else.
Scene PlainScene();

/// A folder with everything that the game reads, and the working directory while it exists. The pictures have their
/// real sizes and each is filled with a colour of its own, so that a painted frame tells what lies on top.
class SceneFolder {
public:
    explicit SceneFolder(Scene const& scene);
    ~SceneFolder();

    // Colours, 0xAARRGGBB.
    static constexpr std::uint32_t sky = 0xFF6080A0;
    static constexpr std::uint32_t castle = 0xFF505050;
    static constexpr std::uint32_t pipe = 0xFF008000;
    static constexpr std::uint32_t flag = 0xFFFFFF00;
    static constexpr std::uint32_t block = 0xFF804000;
    static constexpr std::uint32_t coin = 0xFFFFD000;
    static constexpr std::uint32_t enemy = 0xFF400040;
    static constexpr std::uint32_t fireball = 0xFFFF6000;
    static constexpr std::uint32_t explosion = 0xFFFF9000;

private:
    TestFolder folder;
    std::filesystem::path formerDirectory;
};

/// The real game in a small level, without the loop: keys are held, ticks are run with a fixed step, and outcomes are
/// looked at. There is one at a time.
class Playground {
public:
    explicit Playground(Scene const& scene = PlainScene());
    /// In the real level, with the files of the working directory.
    static Playground InRealLevel() { return Playground(nullptr); }
    ~Playground();

    Playground& Hold(int key);
    Playground& LetGo(int key);
    /// The release of a key that the game watches.
    Playground& Tap(int key);
    Playground& Run(int ticks, double deltaTime = 1.0 / 60.0);
    /// One paint pass; the hero turns to where the arrow keys point.
    Playground& Paint();

    Pelko& Hero() const { return *Pelko::GetSingleton(); }
    Quillfen& Game() const { return *Quillfen::GetSingleton(); }
    /// The top-left corner of what is seen.
    DOUBLE2 Camera() const { return Game().GetCameraPosition(); }
    /// The colour at a place of the level in the frame painted last, which must show it unrotated at scale 4.
    std::uint32_t ColourAt(DOUBLE2 levelPosition) const;
    /// The bounds in level pixels of everything in the frame painted last that has this colour; all zero for nothing.
    RECT2 BoundsOf(std::uint32_t colour) const;

    /// What the frame painted last shows of the hero. The picture sheet of a scene can be read back from its colours.
    struct HeroPicture {
        bool isShown = false;
        int column = 0;
        int row = 0; // of 16 pixels, from the top of the sheet to the top of the cell
        bool mirrored = false;
    };
    HeroPicture PaintedHero() const;

    /// The files of the sounds that were started or resumed since the last call, in order.
    std::vector<std::string> TakeSounds();
    /// Forgets what was written down so far, so that a long run does not fill the memory.
    void ForgetRecords();
    std::vector<std::wstring> const& DebugLines() const { return desktopPtr->debugLines; }
    /// The texts of the message boxes.
    std::vector<std::wstring> Boxes() const;
    /// What went to standard output.
    std::string Output() const { return output.str(); }

private:
    explicit Playground(std::unique_ptr<SceneFolder> sceneFolderPtr);

    std::unique_ptr<SceneFolder> folderPtr; // null in the real level
    platform::ScriptedDesktop* desktopPtr;
    std::ostringstream output;
    std::streambuf* formerOutputPtr;
    platform::Picture frame;
    std::size_t soundsTaken = 0;
};
