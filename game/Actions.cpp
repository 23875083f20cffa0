#include "game/Actions.h"

#include "engine/GameEngine.h"
#include "engine/Keys.h"

#include <algorithm>

namespace {
using enum Action;
using enum KeyBinding::When;

// README.md lists the same keys and words. The engine watches the released keys in the order of this table.
constexpr KeyBinding bindings[] = {
    {walkLeft, held, VK_LEFT, "←", "walk left"},
    {walkRight, held, VK_RIGHT, "→", "walk right, also into the pipe on the floor"},
    {jump, held, VK_UP, "↑", "jump"},
    {goDown, held, VK_DOWN, "↓", "go down the tall pipe"},
    {cameraUp, held, 'W', "W", "move the free camera"},
    {cameraLeft, held, 'A', "A", "move the free camera"},
    {cameraDown, held, 'S', "S", "move the free camera"},
    {cameraRight, held, 'D', "D", "move the free camera"},
    {zoomOut, held, VK_NUMPAD0 + 8, "keypad 8", "zoom the free camera"},
    {zoomIn, held, VK_NUMPAD0 + 2, "keypad 2", "zoom the free camera"},
    {turnLeft, held, VK_NUMPAD0 + 4, "keypad 4", "turn the free camera"},
    {turnRight, held, VK_NUMPAD0 + 6, "keypad 6", "turn the free camera"},
    {resetCamera, held, VK_NUMPAD0 + 5, "keypad 5", "undo zoom and turn"},

    {showBoxes, released, 'E', "E", "show hit boxes"},
    {freeCamera, released, 'Q', "Q", "free the camera"},
    {becomeFire, released, 'O', "O", "take the fire form"},
    {becomeSmall, released, 'U', "U", "take the small form"},
    {pause, released, 'P', "P", "pause"},
    {becomeBig, released, 'I', "I", "take the big form"},
    {throwFireball, released, VK_SPACE, "Space", "throw a fireball in fire form, on release"},
    {quit, released, VK_ESCAPE, "Escape", "quit"},
    {goToStart, released, VK_HOME, "Home", "go to the start"},
    {goToRoom, released, VK_END, "End", "go to the room below"},
    {leaveRoom, released, VK_DELETE, "Delete", "go to the pipe that leads out of it"},
    {quit, released, VK_ESCAPE, "Escape", "quit"}, // watched twice, so it quits twice; the second call changes nothing
    {keepStar, released, VK_TAB, "Tab", "keep star power on"},
};
} // namespace

std::span<const KeyBinding> KeyBindings() { return bindings; }

bool IsHeld(Action action) {
    return std::ranges::any_of(bindings, [action](const KeyBinding& binding) {
        return binding.action == action && binding.when == held && GameEngine::GetSingleton()->IsKeyDown(binding.key);
    });
}

std::optional<Action> ActionOfRelease(int key) {
    const auto* const binding = std::ranges::find_if(
        bindings, [key](const KeyBinding& candidate) { return candidate.key == key && candidate.when == released; });
    if (binding == std::end(bindings)) return std::nullopt;
    return binding->action;
}

String ReleasedKeys() {
    String keys(L"");
    for (const KeyBinding& binding : bindings) {
        if (binding.when == released) keys += static_cast<wchar_t>(binding.key);
    }
    return keys;
}
