#pragma once

#include <array>

class StateReport;

enum HeroForm : int { heroSmall = 0, heroBig = 1, heroFire = 2 };

/// The hero's form, and its change into another: for 90 ticks the old and the new form take turns, then the new one
/// stays. The form itself flickers, so that boxes and rays follow what is seen.
class HeroForms {
public:
    static constexpr int changeTicks = 90;
    // Level pixels; the cells of the sprite sheet have these sizes.
    static constexpr int width = 16; // of every form
    static constexpr int halfWidth = width / 2;
    static constexpr int smallHeight = 16;
    static constexpr int bigHeight = 32;

    /// What a tick of a change has come to.
    enum class Progress { none, running, over };

    void Set(int newForm) { form = newForm; }
    /// Before each tick: notes whether a change runs in it.
    void BeginTick();
    /// A tick of the change to the small form; none for one who is small already.
    Progress Shrink();
    /// A tick of the change to the next larger form; none for one who has fire already.
    Progress Grow();
    /// Gives him the form that a running change leads to, at once.
    void EndChange();
    /// The change is over: nothing holds him any more.
    void Release();

    /// A HeroForm; any number that is none counts as small.
    int Get() const { return form == heroBig || form == heroFire ? form : heroSmall; }
    /// The number as it is. Only a HeroForm has a picture.
    int GetShown() const { return form; }
    int GetHeight() const { return Get() == heroSmall ? smallHeight : bigHeight; }
    bool IsChanging() const;
    /// Whether a change ran when the tick began: he then hangs where he is.
    bool IsHeld() const { return isHeld; }
    void Report(StateReport& report) const;

private:
    /// The order counts: when a change has to end early, the first that runs names the form.
    enum Change : int { bigToSmall, fireToSmall, smallToBig, bigToFire, changeCount };

    struct ChangedForms {
        HeroForm oldForm;
        HeroForm newForm;
    };
    static constexpr std::array<ChangedForms, changeCount> changedForms = {
        {{heroBig, heroSmall}, {heroFire, heroSmall}, {heroSmall, heroBig}, {heroBig, heroFire}}};

    Progress Animate(Change change);

    int form = heroSmall;
    std::array<bool, changeCount> running = {};
    bool showsOldForm = false;
    bool isHeld = false;
    int ticksLeft = changeTicks;
};
