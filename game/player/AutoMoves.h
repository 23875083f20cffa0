#pragma once

class Pelko;
class StateReport;

/// Moves that the hero makes by himself.
enum HeroMove : int { heroSinksIntoPipe = 0, heroWalksOutOfPipe = 1, heroWalksIntoCastle = 2 };

/// Which of these moves run. The two through a pipe take 90 ticks together and end with a teleport; the walk into the
/// castle has no end.
class AutoMoves {
public:
    /// `move` is a HeroMove; anything else is ignored. Starting a move again starts the time again.
    void Start(int move);
    /// Ends all of them.
    void End() { isSinking = isWalkingOut = isWalkingHome = false; }
    /// A tick of each that runs. A teleport at the end of one ends the others too.
    void Tick(Pelko& hero, double deltaTime);

    bool AreRunning() const { return isSinking || isWalkingOut || isWalkingHome; }
    /// The hero goes through a pipe, and so through what is solid.
    bool AreInPipe() const { return isSinking || isWalkingOut; }
    void Report(StateReport& report) const;

private:
    bool isSinking = false;
    bool isWalkingOut = false;
    bool isWalkingHome = false;
    int ticksLeft = 0; // of the moves through a pipe
};
