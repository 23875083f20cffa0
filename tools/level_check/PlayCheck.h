#pragma once

#include "engine/DOUBLE2.h"
#include "platform/ScriptedDesktop.h"
#include "tools/level_check/Findings.h"
#include "tools/level_check/PlaceCheck.h"

#include <map>
#include <utility>
#include <vector>

/// Plays the level with the game's own small hero, without enemies, from every place that he can reach, and reports
/// what he never reaches. The game must be running on `desktop`, whose keys this presses.
class PlayCheck {
public:
    PlayCheck(platform::ScriptedDesktop& usedDesktop, const SolidMap& usedMap) : desktop(usedDesktop), map(usedMap) {}

    /// Reports pits that cannot be crossed or are wider than they should be, blocks that no jump bumps, coins that
    /// cannot be collected, and a flag or a pipe that cannot be reached.
    void Run(Findings& findings);

private:
    /// What the keys do during one try; ticks are counted from its start.
    struct Moves {
        int direction;  ///< -1 left, +1 right
        int startTick;  ///< the direction key goes down
        int jumpTick;   ///< the jump key is pressed for a moment; negative: never
        int turnTick;   ///< the direction key comes up
        bool turnsBack; ///< and the opposite key goes down instead
    };
    struct Pit {
        int left;
        int right;
    };

    void Prepare();
    void PlaceHero(DOUBLE2 position);
    void PressKeys(int direction, bool jump);
    void Tick();
    void LookAround();
    void Explore(DOUBLE2 start);
    void Try(DOUBLE2 start, const Moves& moves);
    std::vector<Pit> FindPits() const;
    bool CanCross(const Pit& pit);
    int GroundAt(int x) const;
    void ReportPits(Findings& findings);

    platform::ScriptedDesktop& desktop;
    const SolidMap& map;
    std::map<std::pair<int, int>, DOUBLE2> open; ///< places still to play from, by where they are
    std::map<std::pair<int, int>, bool> seen;
    std::vector<double> blockRestY;
    std::vector<bool> bumped;
    std::vector<bool> collected;
    bool flagTouched = false;
    bool pipeEntered = false;
    bool pipeLeft = false;
};
