#include "game/Quillfen.h"

#include "engine/GameEngine.h"
#include "game/entities/EntityList.h"
#include "platform/Messages.h"
#include "tests/support/Playground.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>

TEST(Quillfen, EndsBeforeTheFrameAfterEscapeIsLetGo) {
    const SceneFolder folder((Scene()));
    const Stage stage;
    std::ostringstream output;
    std::streambuf* const formerOutputPtr = std::cout.rdbuf(output.rdbuf());
    stage->Press(3, VK_ESCAPE);
    stage->Release(10, VK_ESCAPE);
    stage->End(100);
    GameEngine::GetSingleton()->SetGame(Quillfen::GetSingleton());
    EXPECT_EQ(GameEngine::GetSingleton()->Run(nullptr, 1), 0);
    std::cout.rdbuf(formerOutputPtr);
    EXPECT_EQ(stage->framesShown, 10);
    EXPECT_EQ(stage->shown.width, 1024);
    EXPECT_EQ(stage->shown.height, 896);
    EXPECT_TRUE(output.str().starts_with("Position Pelko: 50, 184\r")) << output.str().substr(0, 60);
    EXPECT_EQ(std::ranges::count(output.str(), '\r'), 10);
}

// The debug view

TEST(DebugView, TintsEveryBoxOverThePicture) {
    Scene scene;
    scene.levelWidth = 3392;
    scene.enemyFile = EnemyAt({150, 192}) + EnemyAt({190, 188}, 1);
    Playground play(scene);
    for (const int content : {2, 3, 4}) EntityList::GetSingleton()->AddEntity({30.0 * content, 100}, content, 0);
    struct {
        const char* what;
        DOUBLE2 hero;
        DOUBLE2 place;
        std::uint32_t tint; // 0xAARRGGBB
    } const boxes[] = {
        {"star", {50, 184}, {128, 122}, 0x96FFFFFF},           {"mushroom", {50, 184}, {98, 120}, 0x96FF00FF},
        {"flower", {50, 184}, {68, 120}, 0x5050C832},          {"hero's sides", {50, 184}, {55, 192}, 0x6400C800},
        {"hero's middle", {50, 184}, {50, 192}, 0xFF0000FF},   {"Skreel", {50, 184}, {148, 192}, 0x96323232},
        {"Dorvak", {50, 184}, {188, 190}, 0x9600C800},         {"block", {50, 184}, {255.8, 144}, 0xFFFF0000},
        {"outline", {50, 184}, {100, 210}, 0x96FF0000},        {"pipe's mouth", {930, 60}, {930, 135.5}, 0x640000FF},
        {"pole", {3150, 184}, {3176, 100}, 0x960000FF},        {"coin", {150, 300}, {88, 306}, 0x96FFFF00},
        {"pipe's exit", {150, 300}, {204, 423.5}, 0x640000FF},
    };
    for (const auto& [what, hero, place, tint] : boxes) {
        SCOPED_TRACE(what);
        play.Hero().SetPosition(hero.x, hero.y);
        const std::uint32_t plain = play.Run(1).Paint().ColourAt(place);
        play.Tap('E').Paint().Tap('E');
        for (int shift = 0; shift < 24; shift += 8) {
            const double opacity = (tint >> 24) / 255.0;
            const auto channel = [shift](std::uint32_t colour) { return static_cast<int>(colour >> shift & 255); };
            EXPECT_NEAR(channel(play.ColourAt(place)), channel(tint) * opacity + channel(plain) * (1 - opacity), 1.5);
        }
    }
}

TEST(DebugView, MeasuresFramesButNotTheFirstOnes) {
    Playground play;
    play.Tap('E').Run(29, 0.04).Paint().Run(1, 0.02).Paint().Run(1, 0.01).Paint();
    // The bar's colours end where they should, whatever the letters over it cover. The window's 1024 pixels are 0.05 s.
    const auto rightEnd = [&play](std::uint32_t colour) {
        double end = 0.0;
        for (double x = 0.0; x < 256.0; x += 0.25)
            for (double y = 0.25; y < 2.5; y += 0.25)
                if (play.ColourAt({x, y}) == colour) end = x * 4.0 + 1.0;
        return end;
    };
    EXPECT_NEAR(rightEnd(0xFFB22222), 1024 * 0.01 / 0.05, 8.0) << "the last frame";
    EXPECT_NEAR(rightEnd(0xFFD2691E), 1024 * 0.02 / 0.05, 8.0) << "the longest one";
    play.Tap('E').Paint();
    EXPECT_EQ(rightEnd(0xFFB22222), 0.0);
}
