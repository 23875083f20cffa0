#include "tests/support/ImageCompare.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

using platform::Picture;

namespace {

bool Differ(std::uint32_t a, std::uint32_t b, int tolerance) {
    for (int shift = 0; shift < 32; shift += 8) {
        if (std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)) > tolerance) return true;
    }
    return false;
}

/// Where the pictures of the running test are kept, so that two failures do not overwrite each other.
std::string PathStem(const std::string& name) {
    const std::filesystem::path folder = std::filesystem::path(QUILLFEN_BUILD_DIR) / "pictures";
    std::filesystem::create_directories(folder);
    std::string stem = name;
    if (const auto* infoPtr = testing::UnitTest::GetInstance()->current_test_info()) {
        stem = std::string(infoPtr->test_suite_name()) + "." + infoPtr->name() + "." + name;
    }
    std::replace(stem.begin(), stem.end(), '/', '-');
    return (folder / stem).string();
}

} // namespace

platform::Picture Copied(const platform::FrameView& frame) {
    platform::Picture picture(frame.width, frame.height);
    for (int y = 0; y < frame.height; ++y) {
        const std::uint32_t* rowPtr = frame.pixels + static_cast<std::ptrdiff_t>(y) * frame.stride;
        std::copy(rowPtr, rowPtr + frame.width, &picture.At(0, y));
    }
    return picture;
}

testing::AssertionResult LooksLike(const Picture& actual, const Picture& expected, const std::string& name,
                                   int tolerance) {
    Picture difference(actual.width, actual.height, 0xFF000000U);
    std::ostringstream what;
    int count = 0;
    if (actual.width != expected.width || actual.height != expected.height) {
        what << "is " << actual.width << " x " << actual.height << " instead of " << expected.width << " x "
             << expected.height;
    } else {
        for (std::size_t index = 0; index < actual.pixels.size(); ++index) {
            if (!Differ(actual.pixels[index], expected.pixels[index], tolerance)) continue;
            difference.pixels[index] = 0xFFFFFFFFU;
            if (count++ > 0) continue;
            const auto width = static_cast<std::size_t>(actual.width);
            what << "first differs at (" << index % width << ", " << index / width << "): " << std::hex
                 << actual.pixels[index] << " instead of " << expected.pixels[index] << std::dec;
        }
        if (count == 0) return testing::AssertionSuccess();
        what << ", " << count << " pixels in all";
    }
    const std::string stem = PathStem(name);
    platform::SavePng(stem + ".actual.png", actual);
    platform::SavePng(stem + ".expected.png", expected);
    platform::SavePng(stem + ".difference.png", difference);
    return testing::AssertionFailure() << what.str() << "; see " << stem << ".*.png";
}

testing::AssertionResult LooksLikeFile(const Picture& actual, const std::string& path, int tolerance) {
    const std::string name = std::filesystem::path(path).stem().string();
    return LooksLike(actual, platform::LoadPicture(path).value_or(Picture()), name, tolerance)
           << " (file " << path << ")";
}
