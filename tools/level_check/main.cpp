// Checks the level as the game reads it; for level designers, and run by a test.

#include "game/ChosenLevel.h"
#include "platform/Picture.h"
#include "platform/Unicode.h"
#include "tools/art/Palette.h"
#include "tools/demo/DemoRun.h"
#include "tools/level_check/Findings.h"
#include "tools/level_check/OutlineCheck.h"
#include "tools/level_check/PlaceCheck.h"
#include "tools/level_check/PlayCheck.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>

namespace {

constexpr int cleanExitCode = 0;
constexpr int findingsExitCode = 1;
constexpr int usageExitCode = 2;

int Check(const std::string& picturePath) {
    const auto level = platform::LoadPicture(chosenLevel.background);
    if (!level) {
        std::fprintf(stderr, "level_check: %s cannot be read\n", chosenLevel.background);
        return usageExitCode;
    }
    const pictures::Palette palette("art/palette.txt");

    // everything is asked of the running game: its loader, its lists, its hero
    Findings findings;
    Demo oneFrame;
    oneFrame.endFrame = 1;
    RunDemo(oneFrame, [&](platform::ScriptedDesktop& desktop, int, const platform::FrameView&) {
        const Outline outline(chosenLevel.outline, findings);
        outline.CheckShape(findings);
        const SolidMap map{level->width, level->height, outline.Fill(level->width, level->height)};
        CheckPicture(map, *level, palette, findings);
        CheckPlaces(map, findings);
        PlayCheck(desktop, map).Run(findings);
        for (const platform::ScriptedDesktop::Box& box : desktop.boxes) {
            findings.Add("the game says: " + platform::ToUtf8(box.text), {});
        }
    });

    findings.Print();
    if (findings.IsEmpty()) {
        std::printf("nothing wrong with the level\n");
        return cleanExitCode;
    }
    if (!findings.SavePicture(*level, picturePath)) {
        std::fprintf(stderr, "level_check: %s cannot be written\n", picturePath.c_str());
        return usageExitCode;
    }
    std::printf("shown in %s\n", picturePath.c_str());
    return findingsExitCode;
}

} // namespace

/// level_check [FOLDER [PICTURE]]: FOLDER holds Resources/ and art/ (here, when not given); the findings are shown in
/// PICTURE (level_check.png).
int main(int argc, char** argv) {
    if (argc > 3) {
        std::fprintf(stderr, "usage: level_check [FOLDER [PICTURE]]\n");
        return usageExitCode;
    }
    try {
        const std::string picturePath = std::filesystem::absolute(argc > 2 ? argv[2] : "level_check.png").string();
        if (argc > 1) std::filesystem::current_path(argv[1]);
        return Check(picturePath);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "level_check: %s\n", fault.what());
        return usageExitCode;
    }
}
