// Plays the demos with the demo player, each in a process of its own, since sounds are numbered for the life of one.

#include "tests/support/Program.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> DemoNames() {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator("demos"))
        if (file.path().extension() == ".demo") names.push_back(file.path().stem().string());
    return names;
}

class KeptPlay : public testing::TestWithParam<std::string> {};

TEST_P(KeptPlay, IsTheSameToTheLastBitAndPixel) {
    const Ending ending = RunProgram("demo_player demos/" + GetParam() + ".demo --check");
    EXPECT_EQ(ending.exitCode, 0) << ending.told;
}

INSTANTIATE_TEST_SUITE_P(Demos, KeptPlay, testing::ValuesIn(DemoNames()), [](const auto& kept) {
    std::string name = kept.param;
    std::erase(name, '-');
    return name;
});

/// A demo of two seconds and a bit, in a folder of its own, with what is kept of it.
class DemoPlayer : public testing::Test {
protected:
    DemoPlayer() {
        WriteDemo("end 130");
        EXPECT_EQ(Run(Path("walk.demo") + " --renew").exitCode, 0);
    }
    void WriteDemo(const std::string& end) const {
        folder.Write("walk.demo", "20 press RIGHT\n50 press E\n52 release E\n" + end);
    }
    static Ending Run(const std::string& arguments) { return RunProgram("demo_player " + arguments); }
    std::string Path(const std::string& name) const { return (folder.Root() / name).string(); }
    /// Makes another hash of the last one in the file that follows `name`.
    void ChangeHash(const std::string& file, const std::string& name) const {
        std::string kept = folder.Read(file);
        char& digit = kept.at(kept.rfind(name) + name.size());
        digit = digit == '0' ? '1' : '0';
        folder.Write(file, kept);
    }

    TestFolder folder;
};

TEST_F(DemoPlayer, NamesWhatIsNotAsKeptAndShowsTheFrame) {
    EXPECT_EQ(Run(Path("walk.demo") + " --check").told, "");
    ChangeHash("walk.trace-hashes", " hud=");
    ChangeHash("walk.picture-hashes", "120 picture=");
    const Ending ending = Run(Path("walk.demo") + " --check");
    EXPECT_EQ(ending.exitCode, 1);
    EXPECT_THAT(ending.told, HasSubstr("trace-hashes: second 2 differs; at its end, in frame 129, these are\n  hud {"));
    const auto file = ending.told.find("frame 120 looks different, see ") + 31;
    EXPECT_TRUE(std::filesystem::remove(ending.told.substr(file, ending.told.find('\n', file) - file)));

    EXPECT_EQ(Run(Path("walk.demo") + " --renew").exitCode, 0);
    const std::string kept = folder.Read("walk.trace-hashes");
    folder.Write("walk.trace-hashes", kept.substr(0, kept.find('\n')) + " gone=1" + kept.substr(kept.find('\n')));
    EXPECT_THAT(Run(Path("walk.demo") + " --check").told, HasSubstr("trace-hashes: second 0 differs"));
    WriteDemo("end 100");
    EXPECT_THAT(Run(Path("walk.demo") + " --check").told, HasSubstr("picture-hashes: it ends too early"));
}

TEST_F(DemoPlayer, NamesTheFirstFieldInWhichTracesDiffer) {
    const std::string start = "{\"tick\":0}\n{\"tick\":1,\"media\":[\"a,\\\"{\"],\"hero\":{\"x\":1,\"velocity\":[0,";
    folder.Write("old", start + "12.5]}}\n");
    const auto difference = [&](const std::string& text) {
        folder.Write("new", text);
        return Run("--compare " + Path("old") + ' ' + Path("new")).told;
    };
    EXPECT_EQ(difference(start + "12.5]}}\n"), "");
    EXPECT_EQ(difference(start + "12.25]}}\n"), "tick 1: hero.velocity[1] was 12.5 and is 12.25\n");
    EXPECT_EQ(difference("{\"tick\":0}\n"), "tick 1: only the old trace goes on\n");
    EXPECT_EQ(difference("}]{\n"), "tick 0:  was {\"tick\":0 and is \n");
}

TEST_F(DemoPlayer, AnswersBadInputWithOneLine) {
    folder.Write("bad.demo", "end 1\n\nend 2\n");
    folder.Write("new.demo", "end 1\n");
    const std::string walk = Path("walk.demo");
    const std::pair<std::string, std::string> cases[] = {
        {"", "usage: demo_player DEMO "},
        {"no.demo", "no.demo: cannot be opened"},
        {Path("bad.demo"), Path("bad.demo") + ":3: nothing may follow 'end'"},
        {Path("new.demo") + " --check", Path("new.trace-hashes") + ": cannot be opened"},
        {walk + " --check --renew", "unexpected '--renew'"},
        {walk + " --every 0", "--every needs a whole number from 1 on, not '0'"},
        {walk + " --trace no/folder", "no/folder: cannot be written"},
        {walk + " --frames /dev/null/frames", "/dev/null/frames: cannot be made"},
        {"--compare no.trace no.trace", "no.trace: cannot be opened"},
    };
    for (const auto& [arguments, answer] : cases) {
        const Ending ending = Run(arguments);
        EXPECT_EQ(ending.exitCode, 2) << arguments;
        EXPECT_THAT(ending.told, StartsWith("demo_player: " + answer));
        EXPECT_EQ(ending.told.find('\n'), ending.told.size() - 1) << ending.told;
    }
}

} // namespace
