#include "engine/Bitmap.h"
#include "platform/Unicode.h"
#include "tests/support/EngineStage.h"
#include "tests/support/TestFolder.h"

#include <iostream>

namespace {

using BitmapDeathTest = EngineStage;

TEST_F(BitmapDeathTest, TakesEitherSlashAndReportsTheNameAsItIs) {
    GameEngine& engine = *GameEngine::GetSingleton();
    engine.SetWidth(10);
    engine.SetHeight(10);
    engine.CreateDeviceResources();
    const TestFolder folder;
    folder.Write("pictures/dot.png", "");
    platform::SavePng((folder.Root() / "pictures/dot.png").string(), platform::Picture(3, 2));
    EXPECT_EQ(Bitmap(folder.Path("pictures/dot.png").c_str()).GetWidth(), 3);
    EXPECT_EQ(Bitmap(String(folder.Root().c_str()) + "\\pictures\\dot.png").GetHeight(), 2);

    GTEST_FLAG_SET(death_test_style, "threadsafe");
    stage->onBox = [](const auto& box) { std::cerr << platform::ToUtf8(box.text); };
    EXPECT_EXIT(Bitmap(L"no\\such/dot.png"), testing::ExitedWithCode(255),
                R"(^IMAGE LOADING ERROR File no\\such/dot.png)");
}

} // namespace
