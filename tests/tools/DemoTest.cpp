#include "tools/demo/Demo.h"

#include "platform/Messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

namespace {

Demo Read(const std::string& text) {
    std::istringstream stream(text);
    return ReadDemo(stream, "x.demo");
}

TEST(DemoFile, ReadsStepEventsAndEnd) {
    const Demo demo =
        Read("# walk\n\ndt 0.02\r\n0 press RIGHT   # at once\n95 release NUMPAD7\n110 press Q\nend 600\n");
    EXPECT_EQ(demo.frameSeconds, 0.02);
    EXPECT_EQ(demo.endFrame, 600);
    std::string events;
    for (const auto& event : demo.events)
        events += std::to_string(event.frame) + (event.isPress ? "+" : "-") + std::to_string(event.virtualKey) + " ";
    EXPECT_EQ(events, "0+39 95-103 110+81 "); // the codes of the right arrow, of 7 on the keypad and of Q
    EXPECT_EQ(Read("end 3").frameSeconds, 1.0 / 60.0);
}

TEST(DemoFile, NamesFileAndLineOfWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"0 press SHIFT\nend 1\n", "x.demo:1: unknown key 'SHIFT'"},
        {"\n5 press A\n4 release A\nend 9\n", "x.demo:3: out of order: frame 4 comes after frame 5"},
        {"5 press A\nend 4\n", "x.demo:2: out of order: frame 4 comes after frame 5"},
        {"5 hold A\nend 9\n", "x.demo:1: expected 'FRAME press KEY' or 'FRAME release KEY'"},
        {"5x press A\nend 9\n", "x.demo:1: expected 'FRAME press KEY' or 'FRAME release KEY'"},
        {"-1 press A\nend 9\n", "x.demo:1: expected 'FRAME press KEY' or 'FRAME release KEY'"},
        {"dt 0\nend 9\n", "x.demo:1: expected 'dt SECONDS'"},
        {"dt nan\nend 9\n", "x.demo:1: expected 'dt SECONDS'"},
        {"0 press A\ndt 0.1\nend 9\n", "x.demo:2: 'dt' must come before the first event"},
        {"end\n", "x.demo:1: expected 'end FRAME'"},
        {"end 9\n9 press A\n", "x.demo:2: nothing may follow 'end'"},
        {"0 press A\n", "x.demo:1: 'end FRAME' is missing"},
        {"", "x.demo:0: 'end FRAME' is missing"},
    };
    for (const auto& [text, fault] : cases)
        EXPECT_THAT([text = text] { Read(text); }, testing::ThrowsMessage<DemoError>(fault)) << text;
    EXPECT_THROW(ReadDemoFile("no/such.demo"), DemoError);
    EXPECT_THROW(ReadDemoFile("."), DemoError);
}

} // namespace
