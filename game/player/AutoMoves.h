#pragma once

class Pelko;
class StateReport;

/// Moves that the hero makes by himself.
enum HeroMove : int { heroSinksIntoPipe = 0, heroWalksOutOfPipe = 1, heroWalksIntoCastle = 2 };

/// Runs these moves. A move through a pipe takes 90 ticks and ends with a teleport; the walk into the castle does not
/// end.
class AutoMoves {
public:
    /// `move` is a HeroMove; any other number is ignored. All moves share one counter, which starts again.
    void Start(int move);
    /// Ends all of them.
    void End() { isSinking = isWalkingOut = isWalkingHome = false; }
    /// One tick of each move that runs. A teleport at the end of a move ends the others too.
    void Tick(Pelko& hero, double deltaTime);

    bool AreRunning() const { return isSinking || isWalkingOut || isWalkingHome; }
    /// Whether the hero is in a pipe, where the solid outline does not stop him.
    bool AreInPipe() const { return isSinking || isWalkingOut; }
    void Report(StateReport& report) const;

private:
    bool isSinking = false;
    bool isWalkingOut = false;
    bool isWalkingHome = false;
    int ticksLeft = 0; // of the moves through a pipe
};
