#include "engine/Bitmap.h"

#include "engine/GameEngine.h"
#include "platform/Desktop.h"
#include "platform/FilePath.h"
#include "platform/Resources.h"

#include <utility>

Bitmap::Bitmap(String const& pictureFile) : fileName(pictureFile), resourceID(0) {
    converterPtr = GameEngine::GetSingleton()->GetWICImagingFactory()->CreateConverterFromFile(
        platform::ToFilePath(fileName.C_str()));
    if (MakeDrawable()) return;
    GameEngine::GetSingleton()->MessageBox(String(L"IMAGE LOADING ERROR File ") + fileName);
    platform::ExitProcess(-1);
}

Bitmap::Bitmap(int pictureID) : fileName(L""), resourceID(pictureID) {
    converterPtr = GameEngine::GetSingleton()->GetWICImagingFactory()->CreateConverterFromMemory(
        platform::FindResource(resourceID, "IMAGE"));
    if (MakeDrawable()) return;
    GameEngine::GetSingleton()->MessageBox(String(L"RESOURCE IMAGE LOADING ERROR File. ID: ") + resourceID);
}

void Bitmap::SetTransparencyColor(unsigned char red, unsigned char green, unsigned char blue) {
    if (!converterPtr) return;
    constexpr std::uint32_t colourBits = 0x00FFFFFF;
    const std::uint32_t key = static_cast<std::uint32_t>(red) << 16 | static_cast<std::uint32_t>(green) << 8 | blue;
    auto keyedPtr = std::make_shared<platform::Picture>(*converterPtr->GetPicture());
    for (std::uint32_t& pixel : keyedPtr->pixels) {
        if ((pixel & colourBits) == key) pixel = 0;
    }
    auto keyedBitmapPtr = GameEngine::GetSingleton()->GetHwndRenderTarget()->CreateBitmap(std::move(keyedPtr));
    if (keyedBitmapPtr) bitmapPtr = std::move(keyedBitmapPtr);
}

int Bitmap::GetWidth() const { return bitmapPtr ? bitmapPtr->GetPixelSize().x : 0; }

int Bitmap::GetHeight() const { return bitmapPtr ? bitmapPtr->GetPixelSize().y : 0; }

bool Bitmap::MakeDrawable() {
    ID2D1HwndRenderTarget* const targetPtr = GameEngine::GetSingleton()->GetHwndRenderTarget();
    if (converterPtr && targetPtr != nullptr) bitmapPtr = targetPtr->CreateBitmap(converterPtr->GetPicture());
    return bitmapPtr != nullptr;
}
