#include "platform/sdl/EventBell.h"

#include <SDL.h>

namespace platform {

void EventBell::Wait(std::optional<std::chrono::milliseconds> longest) {
    if (hasDisplay) {
        SDL_WaitEventTimeout(nullptr, longest ? static_cast<int>(longest->count()) : -1);
        return;
    }
    std::unique_lock lock(mutex);
    const auto mustGoOn = [this] { return isRung.load(); };
    if (longest) {
        changed.wait_for(lock, *longest, mustGoOn);
    } else {
        changed.wait(lock, mustGoOn);
    }
}

void EventBell::Ring() {
    if (std::this_thread::get_id() == mainThread || isRung.exchange(true)) return;
    if (hasDisplay) {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        SDL_PushEvent(&event);
    } else {
        const std::lock_guard lock(mutex);
        changed.notify_all();
    }
}

} // namespace platform
