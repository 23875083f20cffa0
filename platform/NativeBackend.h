#pragma once

namespace platform {

struct Backend;

/// The libraries of desktop systems, for pictures, shapes, text and sound.
const Backend& NativeBackend();

} // namespace platform
