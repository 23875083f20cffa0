#pragma once

#include "game/levels/World11.h"

/// The level that is played.
inline constexpr const LevelPlan& chosenLevel = world11;
