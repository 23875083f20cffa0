#include "platform/Media.h"

namespace platform {

std::unique_ptr<MediaInterface> MakeDeviceMedia(Desktop& desktop) { return MakeSilentMedia(desktop); }

} // namespace platform
