#pragma once

#include "platform/Desktop.h"

#include <string>

/// Writes the frame as a PNG file; throws DemoError if it cannot be written.
void SaveFrame(const std::string& path, const platform::FrameView& view);
