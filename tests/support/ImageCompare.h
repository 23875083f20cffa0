#pragma once

#include "platform/Desktop.h"
#include "platform/Picture.h"

#include <gtest/gtest.h>

#include <string>

/// A copy of a presented frame.
platform::Picture Copied(const platform::FrameView& frame);

/// Whether the two pictures have the same size and no channel of a pixel differs by more than `tolerance`. If not, both
/// and their difference (white: differs) are kept as PNG files in the folder "pictures" of the build, named after the
/// running test and `name`, and the message says where, how many pixels differ and which is the first.
testing::AssertionResult LooksLike(const platform::Picture& actual, const platform::Picture& expected,
                                   const std::string& name = "picture", int tolerance = 0);

/// Whether the picture equals the one stored at `path`.
testing::AssertionResult LooksLikeFile(const platform::Picture& actual, const std::string& path, int tolerance = 0);
