#include "tools/demo_player/Frame.h"

#include "platform/Picture.h"
#include "tools/demo/Demo.h"

#include <algorithm>

void SaveFrame(const std::string& path, const platform::FrameView& view) {
    platform::Picture picture(view.width, view.height);
    for (int y = 0; y < view.height; ++y) {
        std::copy_n(view.pixels + static_cast<std::ptrdiff_t>(y) * view.stride, view.width, &picture.At(0, y));
    }
    if (!platform::SavePng(path, picture)) throw DemoError(path + ": cannot be written");
}
