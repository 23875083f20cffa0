#include "game/player/HeroForms.h"

#include "game/StateReport.h"

#include <algorithm>

bool HeroForms::IsChanging() const { return std::ranges::find(running, true) != running.end(); }

void HeroForms::BeginTick() {
    isHeld = IsChanging();
    if (isHeld) return;
    showsOldForm = false;
    ticksLeft = changeTicks;
}

HeroForms::Progress HeroForms::Shrink() {
    if (Get() == heroSmall && !isHeld) return Progress::none;
    Progress progress = Progress::running;
    if (form == heroBig || running[bigToSmall]) progress = Animate(bigToSmall);
    if (form == heroFire || running[fireToSmall]) progress = Animate(fireToSmall);
    return progress;
}

HeroForms::Progress HeroForms::Grow() {
    if (form == heroFire && !isHeld) return Progress::none;
    if (Get() == heroSmall || running[smallToBig]) return Animate(smallToBig);
    if (form == heroBig || running[bigToFire]) return Animate(bigToFire);
    return Progress::running;
}

HeroForms::Progress HeroForms::Animate(Change change) {
    constexpr int flickerTicks = 10; // each of the two forms shows for so many ticks
    const auto [oldForm, newForm] = changedForms[change];
    running[change] = true;
    if (--ticksLeft < 1) {
        form = newForm;
        return Progress::over;
    }
    if (ticksLeft % flickerTicks == 0) showsOldForm = !showsOldForm;
    form = showsOldForm ? oldForm : newForm;
    return Progress::running;
}

void HeroForms::EndChange() {
    const auto first = std::ranges::find(running, true);
    if (first == running.end()) return;
    form = changedForms[static_cast<std::size_t>(first - running.begin())].newForm;
    running = {};
}

void HeroForms::Release() {
    running = {};
    isHeld = false;
}

void HeroForms::Report(StateReport& report) const {
    report.Add("transforming", isHeld);
    report.Add("bigToSmall", running[bigToSmall]);
    report.Add("fireToSmall", running[fireToSmall]);
    report.Add("smallToBig", running[smallToBig]);
    report.Add("bigToFire", running[bigToFire]);
    report.Add("formChangeCounter", ticksLeft);
    report.Add("flickers", showsOldForm);
}
