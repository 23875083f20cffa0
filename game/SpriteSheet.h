#pragma once

#include <memory>

class Bitmap;

/// Loads a picture of sprites, relative to the working directory; its magenta pixels are transparent.
std::unique_ptr<Bitmap> LoadSpriteSheet(char const* fileName);
