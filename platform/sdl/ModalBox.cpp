#include "platform/sdl/ModalBox.h"

#include <SDL.h>

#include <array>
#include <csignal>

namespace platform {

namespace {
/// While a box is shown nobody looks at what the window library would make of Ctrl+C: until this is destroyed it ends
/// the program the plain way.
class PlainSignals {
public:
    PlainSignals() {
        for (std::size_t index = 0; index < numbers.size(); ++index) {
            handlers[index] = std::signal(numbers[index], SIG_DFL);
            if (handlers[index] == SIG_IGN) std::signal(numbers[index], SIG_IGN);
        }
    }
    ~PlainSignals() {
        for (std::size_t index = 0; index < numbers.size(); ++index) std::signal(numbers[index], handlers[index]);
    }
    PlainSignals(const PlainSignals&) = delete;
    PlainSignals& operator=(const PlainSignals&) = delete;

private:
    static constexpr std::array<int, 2> numbers = {SIGINT, SIGTERM};
    std::array<void (*)(int), 2> handlers{};
};
} // namespace

bool ShowModalBox(SDL_Window* ownerPtr, const std::string& title, const std::string& text) {
    const SDL_MessageBoxButtonData button{
        SDL_MESSAGEBOX_BUTTON_RETURNKEY_DEFAULT | SDL_MESSAGEBOX_BUTTON_ESCAPEKEY_DEFAULT, 0, "OK"};
    const SDL_MessageBoxData box{
        SDL_MESSAGEBOX_INFORMATION, ownerPtr, title.c_str(), text.c_str(), 1, &button, nullptr};
    const PlainSignals plainSignals;
    int pressed = 0;
    return SDL_ShowMessageBox(&box, &pressed) == 0;
}

} // namespace platform
