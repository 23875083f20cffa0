#pragma once

#include "engine/DOUBLE2.h"
#include "engine/RECT2.h"
#include "game/Quillfen.h"
#include "game/player/Pelko.h"
#include "tests/support/Stage.h"
#include "tests/support/TestFolder.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

/// A solid rectangle, as path data of an outline.
std::string Solid(DOUBLE2 topLeft, DOUBLE2 bottomRight);
/// A record of the hero's data file.
std::string HeroAt(DOUBLE2 place, int form = 0);
/// A record of the enemy file.
std::string EnemyAt(DOUBLE2 place, int type = 0);

/// What a small level consists of; if nothing else is said, a hero at x = 50 on the ground, whose top is at y = 200.
/// Blocks and coins are where they always are, the first block at (256, 136).
struct Scene {
    /// Path data of the solid outline, traced clockwise on screen.
    std::string outline = Solid({0, 200}, {600, 220});
    int levelWidth = 600; // level pixels
    /// Contents of the data files; nothing: there is no such file.
    std::optional<std::string> heroFile = HeroAt({50, 184});
    std::optional<std::string> enemyFile = "";
};

/// A folder with everything that the game reads, and the working directory while it exists. The pictures have their
/// real sizes, and each pixel's colour names its picture and its cell, so that a painted frame tells what lies on top.
class SceneFolder {
public:
    explicit SceneFolder(Scene const& scene);
    ~SceneFolder();

private:
    TestFolder folder;
    std::filesystem::path formerDirectory;
};

/// The real game in a small level, without the loop: keys are held, ticks are run with a fixed step, and outcomes are
/// looked at. There is one at a time.
class Playground {
public:
    explicit Playground(Scene const& scene = {});
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
    /// The top-left corner of what is seen.
    DOUBLE2 Camera() const { return Game().GetCameraPosition(); }

    /// What is on top at a place of the level.
    struct Seen {
        std::string picture = "nothing"; // its file's name without the ending
        int column = 0;                  // of its cells
        int row = 0;
        bool rightHalf = false; // of the cell
        bool lowerHalf = false;
    };
    // All of these look at the frame painted last, which must show the level unrotated at scale 4.
    Seen At(DOUBLE2 levelPosition) const;
    std::uint32_t ColourAt(DOUBLE2 levelPosition) const;
    /// The bounds in level pixels of all that is seen of a picture; all zero for nothing.
    RECT2 BoundsOf(std::string const& picture) const;

    /// The files of the sounds that were started or resumed since the last call, in order.
    std::vector<std::string> TakeSounds();
    /// The volume, 0 to 1000, that the last start of this file was given; -1 for none.
    int VolumeOf(std::string const& sound) const;
    /// Forgets what was written down so far, so that a long run does not fill the memory.
    void ForgetRecords();
    std::vector<std::wstring> TakeDebugLines() { return std::exchange(stage->debugLines, {}); }
    /// The texts of the message boxes since the last call.
    std::vector<std::wstring> TakeMessages() { return stage.TakeMessages(); }
    /// What went to standard output.
    std::string Output() const { return output.str(); }

private:
    explicit Playground(std::unique_ptr<SceneFolder> sceneFolderPtr);
    static Quillfen& Game() { return *Quillfen::GetSingleton(); }

    std::unique_ptr<SceneFolder> folderPtr; // null in the real level
    Stage stage;
    std::ostringstream output;
    std::streambuf* formerOutputPtr;
    std::size_t soundsTaken = 0;
};
