#pragma once

#include "engine/String.h"

#include <optional>
#include <span>

/// What a player can do, and, from showBoxes on, what helps to look into the game.
enum class Action {
    walkLeft,
    walkRight,
    jump,
    goDown,
    throwFireball,
    pause,
    quit,
    showBoxes,
    freeCamera,
    cameraLeft,
    cameraRight,
    cameraUp,
    cameraDown,
    zoomIn,
    zoomOut,
    turnLeft,
    turnRight,
    resetCamera,
    becomeSmall,
    becomeBig,
    becomeFire,
    keepStar,
    goToStart,
    goToRoom,
    leaveRoom
};

/// A key that does something. One action may have several keys, one key several actions.
struct KeyBinding {
    /// When the action happens: as long as the key is down, or each time it is let go.
    enum When { held, released };

    Action action;
    When when;
    int key;             // see engine/Keys.h
    char const* keyName; // the last two are for the player
    char const* words;
};

/// Every key of the game.
std::span<const KeyBinding> KeyBindings();

/// Whether a key that does `action` while it is held is down.
bool IsHeld(Action action);
/// What letting go of `key` does; nothing for most keys.
std::optional<Action> ActionOfRelease(int key);
/// The keys whose release does something, for GameEngine::SetKeyList.
String ReleasedKeys();
