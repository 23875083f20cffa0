#pragma once

#include <array>

class StateReport;

enum HeroForm : int { heroSmall = 0, heroBig = 1, heroFire = 2 };

/// The hero's form, and its changes. During a change the old and the new form take turns for 90 ticks, then the new one
/// stays. The form itself changes each time, so boxes and rays fit the picture that is shown.
class HeroForms {
public:
    static constexpr int changeTicks = 90;
    // Level pixels; the cells of the sprite sheet have these sizes.
    static constexpr int width = 16; // of every form
    static constexpr int halfWidth = width / 2;
    static constexpr int smallHeight = 16;
    static constexpr int bigHeight = 32;

    /// The result of a tick of a change.
    enum class Progress { none, running, over };

    void Set(int newForm) { form = newForm; }
    /// To be called at the start of each tick: notes whether a change is running.
    void BeginTick();
    /// One tick of the change to the small form. `none` if he is small and no change is running.
    Progress Shrink();
    /// One tick of the change to the next larger form. `none` if he has the fire form and no change is running.
    Progress Grow();
    /// Ends a running change at once, with its new form.
    void EndChange();
    /// After the last tick of a change: he can move again.
    void Release();

    /// A HeroForm. Any other number counts as small.
    int Get() const { return form == heroBig || form == heroFire ? form : heroSmall; }
    /// The number that was set, even if it is not a HeroForm; then there is no picture of it.
    int GetShown() const { return form; }
    int GetHeight() const { return Get() == heroSmall ? smallHeight : bigHeight; }
    bool IsChanging() const;
    /// Whether a change was running when the tick began. He does not move in such a tick.
    bool IsHeld() const { return isHeld; }
    void Report(StateReport& report) const;

private:
    /// The order matters: if several are running when they have to end early, the first one decides the form.
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
