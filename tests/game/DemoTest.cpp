// Plays the demos and looks at what a player would notice. Everything else of a play is kept beside its demo.

#include "game/HUD.h"
#include "game/Level.h"
#include "game/Quillfen.h"
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
using testing::Each;
using testing::ElementsAre;
using testing::Field;

struct Moment {
    DOUBLE2 hero;
    int form;
    bool alive;
    bool invulnerable;
    DOUBLE2 camera;
    int coins;
    bool flagDown;
    bool underAnEnemy; // or on top of one
};

struct Play {
    std::vector<Moment> moments;
    std::vector<StartedSound> sounds;

    explicit Play(std::string const& name) {
        const Demo demo = ReadDemoFile("demos/" + name + ".demo");
        const auto isPlayersKey = AnyOf(VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_SPACE, 'E'); // E only draws boxes
        EXPECT_THAT(demo.events, Each(Field(&Demo::Event::virtualKey, isPlayersKey)));
        bool touchesVertically = false;
        RunDemo(demo, [&](platform::ScriptedDesktop& desktop, int frame, platform::FrameView const&) {
            const Pelko& hero = *Pelko::GetSingleton();
            moments.push_back({hero.GetPosition(), hero.GetFormState(), hero.IsAlive(), hero.IsInvulnerable(),
                               Quillfen::GetSingleton()->GetCameraPosition(), HUD::GetSingleton()->GetCoins(),
                               Level::GetSingleton()->IsFlagDown(), touchesVertically});
            touchesVertically = false;
            desktop.onDebugString = [&touchesVertically](std::wstring_view line) {
                if (line.find(L"Enemy - Vertical") != line.npos) touchesVertically = true;
            };
            if (frame + 1 == demo.endFrame) sounds = StartedSounds(desktop.mediaCommands);
        });
    }

    Moment const& Last() const { return moments.back(); }
    /// The first frame at or after `from` for which `is` holds; the number of frames if there is none.
    template <typename Condition>
    int FirstFrame(Condition is, int from = 0) const {
        return static_cast<int>(std::find_if(moments.begin() + from, moments.end(), is) - moments.begin());
    }
    /// The forms the hero had, in order, without the flicker of the changes.
    std::vector<int> Forms() const {
        std::vector<int> forms;
        for (Moment const& at : moments)
            if (!at.invulnerable && (forms.empty() || forms.back() != at.form)) forms.push_back(at.form);
        return forms;
    }
};

TEST(PlayedDemo, FinishesTheLevel) {
    const Play play("finish");
    EXPECT_LE(play.FirstFrame([](Moment const& at) { return at.flagDown; }), 75 * 60);
    EXPECT_THAT(play.moments, Each(Field(&Moment::alive, true)));
    EXPECT_THAT(play.Forms(), ElementsAre(heroSmall, heroBig)) << "he is never hurt";

    // past the castle's front and behind it, standing on the ground
    EXPECT_GT(play.Last().hero.x, 3272 + 16);
    EXPECT_NEAR(play.Last().hero.y, 200 - 32, 1e-6);
}

TEST(PlayedDemo, TakesEveryGiftThrowsFireballsAndLosesBothForms) {
    const Play play("gifts");
    EXPECT_THAT(play.Forms(), ElementsAre(heroSmall, heroBig, heroSmall, heroBig, heroFire, heroSmall));
    EXPECT_TRUE(play.Last().alive);

    std::vector<std::string> gifts;
    for (StartedSound const& sound : play.sounds)
        if (sound.name == "PowerUp" || sound.name == "Starrush" || sound.name == "FireballThrow")
            gifts.push_back(sound.name);
    // two mushrooms and the one that makes nobody grow, the star, whose music is its sound, and the flower
    EXPECT_THAT(gifts, ElementsAre("PowerUp", "PowerUp", "PowerUp", "Starrush", "PowerUp", "FireballThrow",
                                   "FireballThrow", "FireballThrow"));
}

TEST(PlayedDemo, GoesDownThePipeTakesAllCoinsAndComesBack) {
    const Play play("below");
    const int below = play.FirstFrame([](Moment const& at) { return at.camera == DOUBLE2(0, 224); });
    const int above = play.FirstFrame([](Moment const& at) { return at.camera.y == 0; }, below);
    ASSERT_LT(above, static_cast<int>(play.moments.size()));
    Moment const& back = play.moments[static_cast<std::size_t>(above)];
    EXPECT_EQ(back.coins - play.moments[static_cast<std::size_t>(below)].coins, 19);
    EXPECT_NEAR(back.hero.x, 2623, 1) << "out of the short pipe";
    EXPECT_GT(play.Last().hero.x, 2642) << "and on";
}

TEST(PlayedDemo, DiesInEveryWayAndComesBackAtBothPoints) {
    const Play play("falls");
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
    EXPECT_TRUE(play.Last().alive);
}

} // namespace
