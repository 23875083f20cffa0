#pragma once

#include "platform/Desktop.h"
#include "platform/NativeBackend.h"

#include <memory>

namespace platform {

/// The real desktop: a window, keyboard and mouse, the real clock, the sound device. It is made even where there is no
/// display; then no window can be opened on it.
std::unique_ptr<Desktop> MakeWindowedDesktop(const Backend& backend = NativeBackend());

} // namespace platform
