#include "engine/StopWatch.h"
#include "platform/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(StopWatch, LeavesOutStoppedSpans) {
    auto desktopPtr = std::make_unique<platform::ScriptedDesktop>(0.25);
    platform::ScriptedDesktop& desktop = *desktopPtr;
    platform::Desktop::Use(std::move(desktopPtr));
    const auto wait = [&](int frames) {
        for (int i = 0; i < frames; ++i) desktop.Present(nullptr, {}, true);
    };
    wait(3);
    StopWatch watch;
    watch.Reset();
    wait(4);
    watch.Stop();
    wait(4);
    watch.Stop(); // a second stop changes nothing
    EXPECT_DOUBLE_EQ(watch.GetGameTime(), 1.0);
    watch.Start();
    wait(4);
    watch.Start();
    EXPECT_DOUBLE_EQ(watch.GetGameTime(), 2.0);
    watch.Reset();
    EXPECT_DOUBLE_EQ(watch.GetGameTime(), 0.0);
    platform::Desktop::Use(nullptr);
}

} // namespace
