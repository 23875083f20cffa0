#include "tests/support/ImageCompare.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

bool Differ(std::uint32_t a, std::uint32_t b, int tolerance) {
    for (int shift = 0; shift < 32; shift += 8) {
        if (std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)) > tolerance) return true;
    }
    return false;
}

/// Names the kept files after the running test, so that two failures do not overwrite each other.
std::string FileStem(const std::string& name) {
    std::string stem = name;
    if (const auto* infoPtr = testing::UnitTest::GetInstance()->current_test_info()) {
        stem = std::string(infoPtr->test_suite_name()) + "." + infoPtr->name() + "." + name;
    }
    std::replace(stem.begin(), stem.end(), '/', '-');
    return stem;
}

testing::AssertionResult Failure(const std::string& what, const std::string& name, const platform::Picture& actual,
                                 const platform::Picture& expected, const platform::Picture& difference) {
    const std::filesystem::path folder = std::filesystem::path(QUILLFEN_BUILD_DIR) / "pictures";
    std::filesystem::create_directories(folder);
    const std::string stem = (folder / FileStem(name)).string();
    platform::SavePng(stem + ".actual.png", actual);
    if (!expected.pixels.empty()) platform::SavePng(stem + ".expected.png", expected);
    if (!difference.pixels.empty()) platform::SavePng(stem + ".difference.png", difference);
    return testing::AssertionFailure() << what << "; see " << stem << ".*.png";
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

testing::AssertionResult LooksLike(const platform::Picture& actual, const platform::Picture& expected,
                                   const std::string& name, int tolerance) {
    if (actual.width != expected.width || actual.height != expected.height) {
        return Failure("is " + std::to_string(actual.width) + " x " + std::to_string(actual.height) + " instead of " +
                           std::to_string(expected.width) + " x " + std::to_string(expected.height),
                       name, actual, expected, {});
    }
    constexpr std::uint32_t black = 0xFF000000U;
    constexpr std::uint32_t white = 0xFFFFFFFFU;
    platform::Picture difference(actual.width, actual.height, black);
    int count = 0;
    POINT first;
    for (int y = 0; y < actual.height; ++y) {
        for (int x = 0; x < actual.width; ++x) {
            if (!Differ(actual.At(x, y), expected.At(x, y), tolerance)) continue;
            difference.At(x, y) = white;
            if (count++ == 0) first = {x, y};
        }
    }
    if (count == 0) return testing::AssertionSuccess();
    const auto hex = [](std::uint32_t pixel) {
        char text[16];
        std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(pixel));
        return std::string(text);
    };
    return Failure(std::to_string(count) + " pixels differ, first (" + std::to_string(first.x) + ", " +
                       std::to_string(first.y) + "): " + hex(actual.At(first.x, first.y)) + " instead of " +
                       hex(expected.At(first.x, first.y)),
                   name, actual, expected, difference);
}

testing::AssertionResult LooksLikeFile(const platform::Picture& actual, const std::string& path, int tolerance) {
    const auto expected = platform::LoadPicture(path);
    const std::string name = std::filesystem::path(path).stem().string();
    if (!expected) return Failure(path + " cannot be read", name, actual, {}, {});
    return LooksLike(actual, *expected, name, tolerance);
}
