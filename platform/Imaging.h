#pragma once

#include "platform/Picture.h"
#include "platform/Types.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

/// A decoded picture, the pixel source that drawable images are made from: 32-bit premultiplied blue, green, red,
/// alpha.
class IWICFormatConverter {
public:
    explicit IWICFormatConverter(std::shared_ptr<const platform::Picture> sourcePicture)
        : picturePtr(std::move(sourcePicture)) {}
    void GetSize(UINT* widthPtr, UINT* heightPtr) const {
        *widthPtr = static_cast<UINT>(picturePtr->width);
        *heightPtr = static_cast<UINT>(picturePtr->height);
    }
    /// The pixels themselves, shared: a drawable image made from them unchanged needs no second copy.
    const std::shared_ptr<const platform::Picture>& GetPicture() const { return picturePtr; }

private:
    std::shared_ptr<const platform::Picture> picturePtr;
};

/// Decodes pictures.
class IWICImagingFactory {
public:
    virtual ~IWICImagingFactory() = default;
    /// Null if the file is missing or cannot be decoded. `path` is UTF-8.
    virtual std::unique_ptr<IWICFormatConverter> CreateConverterFromFile(const std::string& path) = 0;
    virtual std::unique_ptr<IWICFormatConverter> CreateConverterFromMemory(std::span<const unsigned char> bytes) = 0;
    /// Begins to decode `paths` in the background; CreateConverterFromFile then takes what is ready.
    virtual void Prefetch(std::vector<std::string> paths) = 0;
};

namespace platform {
/// Decodes with the back end of the current desktop.
std::unique_ptr<IWICImagingFactory> CreateImagingFactory();
} // namespace platform
