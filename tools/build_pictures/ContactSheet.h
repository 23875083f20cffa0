#pragma once

#include "platform/Picture.h"

#include <map>
#include <string>

namespace pictures {

/// The whole level at scale 1 in four strips and the room below, with logs and flag where the game puts them.
platform::Picture ShowLevel(const platform::Picture& level, const std::map<std::string, platform::Picture>& sheets);

/// Every sheet at scale 4 on `ground`, which shows through where the sheets are transparent in the game.
platform::Picture ShowSheets(const std::map<std::string, platform::Picture>& sheets, std::uint32_t ground);

} // namespace pictures
