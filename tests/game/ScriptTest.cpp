// Plays the cases in tests/game/scripts; scripts/README.md says which words they are written with.

#include "tests/support/Script.h"
#include "game/HUD.h"
#include "game/Level.h"
#include "game/entities/EnemyList.h"
#include "game/entities/EntityList.h"
#include "game/player/BlockList.h"
#include "tests/support/Playground.h"
#include "tools/demo/Demo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <set>

namespace {

using Line = ScriptCase::Line;
using Texts = std::vector<std::string>;
using Words = std::map<std::string, std::function<void()>>;
using Questions = std::map<std::string, std::function<std::string()>>;

template <typename List>
std::string Joined(List const& texts) {
    std::string joined;
    for (std::string const& text : texts) joined += text + " ";
    return joined.empty() ? "none" : joined.substr(0, joined.size() - 1);
}

template <typename... Values>
std::string Text(Values... values) {
    std::ostringstream text;
    text.precision(15);
    ((text << std::boolalpha << values << ' '), ...);
    return text.str();
}
std::string Text(DOUBLE2 point) { return Text(point.x, point.y); }
std::string Text(RECT2 box) { return HasBox(box) ? Text(box.left, box.top, box.right, box.bottom) : "none"; }

std::optional<double> Number(std::string const& word) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && *end == '\0' ? std::optional(number) : std::nullopt;
}

bool Agree(std::string const& is, std::string const& comparison, std::string const& wanted) {
    const auto isNumber = Number(is);
    const auto wantedNumber = Number(wanted);
    if (!isNumber || !wantedNumber) return is == wanted;
    if (comparison == "<=") return isNumber <= wantedNumber;
    if (comparison == ">=") return isNumber >= wantedNumber;
    return std::abs(*isNumber - *wantedNumber) <= (comparison == "near" ? 0.5 : 0.001);
}

Pelko& Hero() { return *Pelko::GetSingleton(); }
HUD& Hud() { return *HUD::GetSingleton(); }
EnemyList& Enemies() { return *EnemyList::GetSingleton(); }
EntityList& Entities() { return *EntityList::GetSingleton(); }
BlockList& Blocks() { return *BlockList::GetSingleton(); }

/// Plays the lines of one case and keeps what is wrong with them, or with what came of them.
class CasePlayer {
public:
    explicit CasePlayer(std::vector<Line> const& lines) {
        for (Line const& line : lines) Try(line, [&] { Read(line); });
        if (!faults.empty()) return;
        if (hasFloor) scene.outline += Solid({0, 200}, {1.0 * scene.levelWidth, 220});
        playPtr = std::make_unique<Playground>(scene);
        for (int tick = 0; tick <= lastTick; ++tick) {
            for (Event const& event : events)
                if (event.HappensAt(tick)) Try(event.line, [&] { Act(); });
            before = Hero().GetPosition();
            playPtr->Run(1, seconds);
        }
    }

    std::vector<Line> faults;

private:
    struct Event {
        int first; // the ticks before which it happens
        int last;
        int step;
        Line line;
        bool HappensAt(int tick) const { return first <= tick && tick <= last && (tick - first) % step == 0; }
    };

    void Try(Line const& line, std::function<void()> const& action) {
        words = std::istringstream(line.text);
        try {
            action();
            if (More()) throw Word() + " is too much";
        } catch (std::string const& fault) {
            faults.push_back({line.number, line.text + ": " + fault});
        } catch (std::exception const&) { // by whatever did not know what to do with the word
            faults.push_back({line.number, line.text + ": '" + lastWord + "' is not understood here"});
        }
    }

    void Read(Line const& line) {
        const std::string time = Word();
        if (sceneWords.contains(time)) return sceneWords.at(time)();
        const int former = events.empty() ? 0 : events.back().first;
        const auto tick = [=](std::string const& word) { return std::stoi(word) + (word[0] == '+' ? former : 0); };
        const std::size_t dots = time.find("..");
        const std::size_t slash = time.find('/');
        const Event event{tick(time), dots == time.npos ? tick(time) : tick(time.substr(dots + 2)),
                          slash == time.npos ? 1 : std::stoi(time.substr(slash + 1)), line};
        if (event.first < former) throw "tick " + time + " comes after tick " + std::to_string(former);
        if (event.last < event.first || event.step < 1) throw std::exception();
        events.push_back(event);
        lastTick = std::max(lastTick, event.last);
        words.ignore(std::numeric_limits<std::streamsize>::max());
    }

    void Act() {
        Word(); // the time
        actions.at(Word())();
    }

    void Expect() {
        const std::string answer = questions.at(Word())();
        Texts wanted;
        while (More()) wanted.push_back(Word());
        const std::string comparison = wanted.empty() ? "" : wanted.front();
        if (comparison == "<=" || comparison == ">=" || comparison == "near") wanted.erase(wanted.begin());
        const auto agree = [&](std::string const& is, std::string const& want) { return Agree(is, comparison, want); };
        if (!std::ranges::equal(WordsOf(answer), wanted, agree)) throw "it is " + Joined(WordsOf(answer));
    }

    // The words of the line that is read or done. What throws did not understand the last one.

    bool More() { return !(words >> std::ws).eof(); }
    std::string const& Word() {
        if (!(words >> lastWord)) lastWord = "end of line";
        return lastWord;
    }
    double Double() { return Number(Word()).value(); }
    int Int() { return static_cast<int>(Double()); }
    DOUBLE2 Point() {
        const double x = Double();
        return {x, Double()};
    }
    int OneOf(Texts const& names) {
        return Checked(std::ranges::find(names, Word()) - names.begin(), std::ssize(names));
    }
    int Key() { return Checked(DemoKey(Word()), 256); }
    int Index(int count) { return Checked(Int(), count); }
    static int Checked(std::ptrdiff_t index, std::ptrdiff_t count) {
        return index >= 0 && index < count ? static_cast<int>(index) : throw std::exception();
    }
    int Enemy() { return Index(15); }
    /// Something that was added; the placed coins come first in its list.
    int Item() { return placedCoins + Index(Entities().GetSize() - placedCoins); }

    template <typename List>
    std::string About(List& list, int index, Texts const& types) {
        switch (OneOf({"at", "x", "y", "box", "type"})) {
        case 0: return Text(list.GetPosition(index));
        case 1: return Text(list.GetPosition(index).x);
        case 2: return Text(list.GetPosition(index).y);
        case 3: return Text(list.GetHitRect(index));
        default: return list.GetType(index) < 0 ? "gone" : types.at(static_cast<std::size_t>(list.GetType(index)));
        }
    }

    /// What is seen at a place in the upper left quarter of a picture's cell.
    std::string CellAt(DOUBLE2 place) {
        const Playground::Seen seen = playPtr->Paint().At(place);
        return Text(seen.picture, seen.column, seen.row, seen.rightHalf ? "mirrored" : "",
                    seen.lowerHalf ? "flipped" : "");
    }

    /// As many characters of the HUD's font as are asked for; '_' for what is not of it.
    std::string TextAt(DOUBLE2 place) {
        playPtr->Paint();
        std::string text;
        for (int length = Int(); length > 0; --length, place.x += 6) {
            const Playground::Seen seen = playPtr->At(place);
            text += seen.picture == "Font" ? static_cast<char>(32 + 16 * seen.row + seen.column) : '_';
        }
        return text;
    }

    std::string DebugLines() {
        std::set<std::string> lines;
        for (std::wstring const& line : playPtr->TakeDebugLines()) lines.emplace(line.begin(), line.end());
        return Joined(lines);
    }

    static constexpr int placedCoins = 19;
    Scene scene{.outline = ""};
    bool hasFloor = true;
    double seconds = 1.0 / 60.0; // of a tick
    std::vector<Event> events;
    int lastTick = 0;
    std::istringstream words; // of the line that is read or done
    std::string lastWord;
    std::unique_ptr<Playground> playPtr;
    DOUBLE2 before; // where the hero was a tick ago

    // One word a line.
    // clang-format off
    const Texts forms = {"small", "big", "fire"};
    const Words sceneWords = {
        {"dt", [this] { seconds = Double(); }},
        {"level", [this] { scene.levelWidth = Int(); }},
        {"bottomless", [this] { hasFloor = false; }},
        {"solid", [this] { const DOUBLE2 corner = Point(); scene.outline += Solid(corner, Point()); }},
        {"hero", [this] { const DOUBLE2 place = Point(); scene.heroFile = HeroAt(place, More() ? Int() : 0); }},
        {"skreel", [this] { *scene.enemyFile += EnemyAt(Point(), 0); }},
        {"dorvak", [this] { *scene.enemyFile += EnemyAt(Point(), 1); }},
    };
    const Words actions = {
        {"expect", [this] { Expect(); }},
        {"press", [this] { playPtr->Hold(Key()); }},
        {"release", [this] { const int key = Key(); playPtr->LetGo(key).Tap(key); }},
        {"paint", [this] { playPtr->Paint(); }},
        {"clock", [this] { for (int ticks = Int(); ticks > 0; --ticks) Hud().Tick(seconds); }},
        {"score", [this] { Hud().AddScore(Int()); }},
        {"coins", [this] { for (int count = Int(); count > 0; --count) Hud().AddCoin(); }},
        {"flag", [] { Level::GetSingleton()->SetFlagReached(); }},
        {"hurt", [] { Hero().Hurt(); }},
        {"grow", [] { Hero().Grow(); }},
        {"star", [] { Hero().ActivateStar(); }},
        {"die", [] { Hero().SetAlive(false); }},
        {"form", [this] { Hero().SetFormState(OneOf(forms)); }},
        {"move", [this] { Hero().StartAutoMove(OneOf({"sink", "out", "home"})); }},
        {"hero", [this] { const DOUBLE2 place = Point(); Hero().SetPosition(place.x, place.y); }},
        {"enemy", [this] { const int i = Enemy(); Enemies().Move(i, Point() - Enemies().GetPosition(i)); }},
        {"item", [this] { const int i = Item(); Entities().Move(i, Point() - Entities().GetPosition(i)); }},
        {"stomp", [this] { Enemies().Stomp(Enemy()); }},
        {"kill", [this] { Enemies().Kill(Enemy()); }},
        {"turn", [this] { const int i = Enemy(); Enemies().SetMovingLeft(i, OneOf({"right", "left"}) == 1); }},
        {"add", [this] {
            const int content = OneOf({"nothing", "coin", "flower", "mushroom", "star", "unknown"});
            const DOUBLE2 place = Point();
            Entities().AddEntity(place, content, More() ? Int() : 0); }},
        {"state", [this] { const int i = Item(); Entities().SetState(i, OneOf({"idle", "emerging", "active", "gone"})); }},
    };
    const Texts entityTypes = {"coinblock", "coin", "flower", "mushroom", "star"};
    const Questions questions = {
        {"x", [] { return Text(Hero().GetPosition().x); }},
        {"y", [] { return Text(Hero().GetPosition().y); }},
        {"vx", [this] { return Text((Hero().GetPosition().x - before.x) / seconds); }},
        {"vy", [this] { return Text((Hero().GetPosition().y - before.y) / seconds); }},
        {"hero", [] { return Text(Hero().GetPosition()); }},
        {"form", [this] { return forms.at(static_cast<std::size_t>(Hero().GetFormState())); }},
        {"alive", [] { return Text(Hero().IsAlive()); }},
        {"invulnerable", [] { return Text(Hero().IsInvulnerable()); }},
        {"star", [] { return Text(Hero().IsStarActive()); }},
        {"facing", [] { return Text(Hero().IsFacingRight() ? "right" : "left"); }},
        {"sidebox", [] { return Text(Hero().GetHitRectHorizontal()); }},
        {"midline", [] { return Text(Hero().GetHitRectVertical()); }},
        {"enemy", [this] { return About(Enemies(), Enemy(), {"skreel", "dorvak"}); }},
        {"block", [this] { return About(Blocks(), Index(44), {"brick", "question", "", "used", "broken", "treasure"}); }},
        {"coin", [this] { return About(Entities(), Index(placedCoins), entityTypes); }},
        {"item", [this] { return About(Entities(), Item(), entityTypes); }},
        {"variant", [this] { return Text(Entities().GetMushroomVariant(Item())); }},
        {"items", [] { return Text(Entities().GetSize() - placedCoins); }},
        {"score", [] { return Text(Hud().GetScore()); }},
        {"coins", [] { return Text(Hud().GetCoins()); }},
        {"time", [] { return Text(Hud().GetTime()); }},
        {"camera", [this] { return Text(playPtr->Camera()); }},
        {"flagdown", [] { return Text(Level::GetSingleton()->IsFlagDown()); }},
        {"sounds", [this] { return Joined(playPtr->TakeSounds()); }},
        {"volume", [this] { return Text(playPtr->VolumeOf(Word())); }},
        {"lines", [this] { return DebugLines(); }},
        {"bounds", [this] { return Text(playPtr->Paint().BoundsOf(Word())); }},
        {"cell", [this] { return CellAt(Point()); }},
        {"text", [this] { return TextAt(Point()); }},
    };
    // clang-format on
};

class Script : public testing::TestWithParam<ScriptCase> {};

TEST_P(Script, Holds) {
    for (Line const& fault : CasePlayer(GetParam().lines).faults)
        ADD_FAILURE_AT(GetParam().file.c_str(), fault.number) << fault.text;
}

INSTANTIATE_TEST_SUITE_P(Game, Script, testing::ValuesIn(ReadScripts("tests/game/scripts")),
                         [](auto const& each) { return each.param.name; });

TEST(ScriptReader, SaysWhichLineIsWrongAndWhy) {
    struct {
        const char* line;
        const char* fault;
    } const cases[] = {
        {"walk 3", "'walk' is not understood here"},
        {"hero 50", "'end of line' is not understood here"},
        {"hero 50 high", "'high' is not understood here"},
        {"hero 50 184 0 5", "5 is too much"},
        {"each name\n| 1 2", "'|' is not understood here"},
        {"1 press SHIFT", "'SHIFT' is not understood here"},
        {"1 expect enemy 15 type gone", "'15' is not understood here"},
        {"1 expect enemy 1 colour red", "'colour' is not understood here"},
        {"1 expect bounds Dragon none", "'Dragon' is not understood here"},
        {"3..1 hurt", "'3..1' is not understood here"},
        {"2 hurt\n1 hurt", "tick 1 comes after tick 2"},
        {"1 expect x 50.01", "it is 50"},
        {"1 expect x >= 51", "it is 50"},
        {"1 expect x <= 49", "it is 50"},
        {"1 expect hero near 50 184.6", "it is 50 184"},
        {"1 expect hero 50", "it is 50 184"},
        {"1 expect alive false", "it is true"},
    };
    for (auto const& [line, fault] : cases) {
        std::istringstream script(std::string("# wrong\ncase wrong\n") + line);
        const std::vector<Line> faults = CasePlayer(ReadScript(script, "")[0].lines).faults;
        ASSERT_EQ(faults.size(), 1U) << line;
        EXPECT_EQ(faults[0].number, std::string(line).find('\n') == std::string::npos ? 3 : 4) << line;
        EXPECT_THAT(faults[0].text, testing::EndsWith(fault));
    }
}

} // namespace
