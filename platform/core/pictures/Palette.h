#pragma once

#include "platform/Picture.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace platform {

/// The colours of an opaque picture, sorted; nothing if there are more than the 256 that a palette holds.
std::optional<std::vector<std::uint32_t>> PaletteOf(const Picture& picture);

} // namespace platform
