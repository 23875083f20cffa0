#pragma once

#include "engine/String.h"

#include <optional>
#include <span>

/// What a player can do. The actions from showBoxes on are for debugging.
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

/// A key and what it does. An action may have several keys, and a key several actions.
struct KeyBinding {
    /// When the action happens: while the key is down, or once when the player releases it.
    enum When { held, released };

    Action action;
    When when;
    int key;             // see engine/Keys.h
    char const* keyName; // as the player knows it
    char const* words;
};

/// Every key of the game.
std::span<const KeyBinding> KeyBindings();

/// Whether the player holds a key that does `action` while it is down.
bool IsHeld(Action action);
/// What the release of `key` does; empty for most keys.
std::optional<Action> ActionOfRelease(int key);
/// The keys whose release does something, for GameEngine::SetKeyList.
String ReleasedKeys();
