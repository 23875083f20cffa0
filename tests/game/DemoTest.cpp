// Plays the demos and looks at what a player would notice.

#include "game/HUD.h"
#include "game/Level.h"
#include "game/Quillfen.h"
#include "game/entities/EntityList.h"
#include "game/player/Pelko.h"
#include "platform/Messages.h"
#include "tests/support/StartedSounds.h"
#include "tools/demo/DemoRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::Not;

struct Moment {
    DOUBLE2 hero;
    int form;
    bool alive;
    bool invulnerable;
    bool star;
    DOUBLE2 camera;
    int score;
    int coins;
    bool flagDown;
    bool underAnEnemy; // or on top of one
};

struct Play {
    Demo demo;
    int exitCode = -1;
    std::vector<Moment> moments;
    std::vector<StartedSound> sounds;
    int coinsLeftBelow = 0;

    explicit Play(std::string const& name) : demo(ReadDemoFile("demos/" + name + ".demo")) {
        bool touchesVertically = false;
        exitCode = RunDemo(demo, [&](platform::ScriptedDesktop& desktop, int frame, platform::FrameView const&) {
            const Pelko& hero = *Pelko::GetSingleton();
            const HUD& hud = *HUD::GetSingleton();
            moments.push_back({hero.GetPosition(), hero.GetFormState(), hero.IsAlive(), hero.IsInvulnerable(),
                               hero.IsStarActive(), Quillfen::GetSingleton()->GetCameraPosition(), hud.GetScore(),
                               hud.GetCoins(), Level::GetSingleton()->IsFlagDown(), touchesVertically});
            touchesVertically = false;
            desktop.onDebugString = [&touchesVertically](std::wstring_view line) {
                if (line.find(L"Enemy - Vertical") != line.npos) touchesVertically = true;
            };
            if (frame + 1 < demo.endFrame) return;
            sounds = StartedSounds(desktop.mediaCommands);
            const EntityList& entities = *EntityList::GetSingleton();
            for (int i = 0; i < entities.GetSize(); ++i)
                coinsLeftBelow += entities.GetType(i) == entityCoin && HasBox(entities.GetHitRect(i));
        });
    }

    Moment const& Last() const { return moments.back(); }
    /// The first frame at or after `from` for which `is` holds; the number of frames if there is none.
    template <typename Condition>
    int FirstFrame(Condition is, int from = 0) const {
        return static_cast<int>(std::find_if(moments.begin() + from, moments.end(), is) - moments.begin());
    }
    /// The names of the tracks in the order in which they started or went on, each change once.
    std::vector<std::string> Music() const {
        std::vector<std::string> tracks;
        for (StartedSound const& sound : sounds) {
            const bool isTrack = sound.name.find("world") != std::string::npos || sound.name == "CastleComplete" ||
                                 sound.name == "Starrush";
            if (isTrack && (tracks.empty() || tracks.back() != sound.name)) tracks.push_back(sound.name);
        }
        return tracks;
    }
    int CountOf(std::string const& sound) const {
        return static_cast<int>(
            std::count_if(sounds.begin(), sounds.end(), [&](StartedSound const& s) { return s.name == sound; }));
    }
    /// The forms the hero had, in order, without the flicker of the changes.
    std::vector<int> Forms() const {
        std::vector<int> forms;
        for (Moment const& at : moments)
            if (!at.invulnerable && (forms.empty() || forms.back() != at.form)) forms.push_back(at.form);
        return forms;
    }
    /// What was ever added to the score in one tick, other than nothing.
    std::vector<int> Gains() const {
        std::vector<int> gains;
        for (std::size_t i = 1; i < moments.size(); ++i)
            if (moments[i].score != moments[i - 1].score) gains.push_back(moments[i].score - moments[i - 1].score);
        return gains;
    }
};

void ExpectPlayersKeysOnly(Demo const& demo) {
    EXPECT_THAT(demo.events, Each(Field(&Demo::Event::virtualKey, AnyOf(VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_SPACE))));
}

TEST(PlayedDemo, FinishesTheLevel) {
    const Play play("finish");
    EXPECT_EQ(play.exitCode, 0);
    ExpectPlayersKeysOnly(play.demo);
    const int won = play.FirstFrame([](Moment const& at) { return at.flagDown; });
    EXPECT_LE(won * play.demo.frameSeconds, 75.0);
    EXPECT_THAT(play.moments, Each(Field(&Moment::alive, true)));
    EXPECT_THAT(play.Forms(), ElementsAre(heroSmall, heroBig)) << "he is never hurt";

    // past the castle's front and behind it, standing on the ground
    EXPECT_GT(play.Last().hero.x, 3272 + 16);
    EXPECT_NEAR(play.Last().hero.y, 200 - 32, 1e-6);
    EXPECT_EQ(play.Last().camera, DOUBLE2(3392 - 256, 0));

    EXPECT_THAT(play.Music(), ElementsAre("Overworld", "Starrush", "Overworld", "CastleComplete"));
    EXPECT_GE(play.CountOf("Flag"), 1);
    // two coins, mushroom and star; six enemies by feet or star, and two that the Dorvak ran over
    EXPECT_EQ(play.Last().coins, 2);
    EXPECT_EQ(play.Last().score, 2 * 200 + 2 * 1000 + 6 * 100 + 2 * 200);
}

TEST(PlayedDemo, TakesEveryGiftThrowsFireballsAndLosesBothForms) {
    const Play play("gifts");
    EXPECT_EQ(play.exitCode, 0);
    ExpectPlayersKeysOnly(play.demo);
    EXPECT_THAT(play.Forms(), ElementsAre(heroSmall, heroBig, heroSmall, heroBig, heroFire, heroSmall));
    EXPECT_TRUE(play.Last().alive);

    // two mushrooms and the one that makes nobody grow, the flower; and the star, whose music is its sound
    const std::vector<int> gains = play.Gains();
    EXPECT_EQ(std::count_if(gains.begin(), gains.end(), [](int gain) { return gain >= 1000; }), 5);
    EXPECT_EQ(play.CountOf("PowerUp"), 4);
    const int starBegins = play.FirstFrame([](Moment const& at) { return at.star; });
    const int starEnds = play.FirstFrame([](Moment const& at) { return !at.star; }, starBegins);
    EXPECT_EQ(starEnds - starBegins, 300);
    EXPECT_THAT(play.Music(), ElementsAre("Overworld", "Starrush", "Overworld"));

    EXPECT_GE(play.CountOf("FireballThrow"), 3);
    const auto thrown = std::find_if(play.sounds.begin(), play.sounds.end(),
                                     [](StartedSound const& sound) { return sound.name == "FireballThrow"; });
    ASSERT_NE(thrown, play.sounds.end());
    const auto hit =
        std::find_if(thrown, play.sounds.end(), [](StartedSound const& sound) { return sound.name == "KillEnemy"; });
    ASSERT_NE(hit, play.sounds.end()) << "the first fireball hits";
    EXPECT_LT(hit->frame - thrown->frame, 72) << "within the 200 pixels that it flies";
}

TEST(PlayedDemo, GoesDownThePipeTakesAllCoinsAndComesBack) {
    const Play play("below");
    EXPECT_EQ(play.exitCode, 0);
    ExpectPlayersKeysOnly(play.demo);
    const int below = play.FirstFrame([](Moment const& at) { return at.camera == DOUBLE2(0, 224); });
    const int above = play.FirstFrame([](Moment const& at) { return at.camera.y == 0; }, below);
    ASSERT_LT(above, static_cast<int>(play.moments.size()));
    EXPECT_EQ(play.coinsLeftBelow, 0);
    const auto index = [](int frame) { return static_cast<std::size_t>(frame); };
    EXPECT_EQ(play.moments[index(above)].coins - play.moments[index(below)].coins, 19);
    EXPECT_EQ(play.moments[index(above)].score - play.moments[index(below)].score, 19 * 200);
    EXPECT_NEAR(play.moments[index(above)].hero.x, 2623, 1) << "out of the short pipe";
    EXPECT_GT(play.Last().hero.x, 2642) << "and on";
    EXPECT_EQ(play.CountOf("Pipe"), 2);
    EXPECT_THAT(play.Music(), ElementsAre("Overworld", "Underworld", "Overworld"));
}

TEST(PlayedDemo, DiesInEveryWayAndComesBackAtBothPoints) {
    const Play play("falls");
    EXPECT_EQ(play.exitCode, 0);
    ExpectPlayersKeysOnly(play.demo);
    std::vector<std::string> deaths;
    std::vector<double> returns; // where, in x
    int frame = 0;
    const int end = static_cast<int>(play.moments.size());
    while (true) {
        frame = play.FirstFrame([](Moment const& at) { return !at.alive || at.hero.y > 230; }, frame);
        if (frame == end) break;
        const auto at = static_cast<std::size_t>(frame);
        if (play.moments[at].alive)
            deaths.emplace_back("pit");
        else
            deaths.emplace_back(play.moments[at].underAnEnemy ? "from above" : "from the side");
        frame = play.FirstFrame([](Moment const& back) { return back.alive && back.hero.y < 230; }, frame);
        if (frame < end) returns.push_back(play.moments[static_cast<std::size_t>(frame)].hero.x);
    }
    EXPECT_THAT(deaths, ElementsAre("from the side", "pit", "from above", "pit", "from the side"));
    EXPECT_THAT(returns, ElementsAre(8, 8, 8, 1072, 1072));
    EXPECT_EQ(play.CountOf("Dead"), 3) << "a fall into a pit is silent";
    EXPECT_THAT(play.Gains(), Each(testing::Gt(0)));
    EXPECT_TRUE(play.Last().alive);
}

} // namespace
