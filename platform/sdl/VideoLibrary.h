#pragma once

#include <string>

namespace platform {

/// The window library, which runs from the constructor to the destructor; without a display it is not ready.
class VideoLibrary {
public:
    VideoLibrary();
    ~VideoLibrary();
    VideoLibrary(const VideoLibrary&) = delete;
    VideoLibrary& operator=(const VideoLibrary&) = delete;

    bool IsReady() const { return ready; }
    /// Why it is not.
    const std::string& Error() const { return error; }

private:
    bool Start(const char* driver);

    bool ready = false;
    std::string error = "there is no display";
};

} // namespace platform
