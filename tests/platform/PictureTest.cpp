#include "platform/Picture.h"
#include "platform/Imaging.h"
#include "tests/support/ImageCompare.h"
#include "tests/support/ThreadedDesktop.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <thread>

using platform::Picture;

namespace {

std::string TemporaryPath(const std::string& name) { return testing::TempDir() + "quillfen-" + name; }

/// `colours` different opaque colours.
Picture Coloured(int width, int height, std::uint32_t colours) {
    Picture picture(width, height);
    std::uint32_t count = 0;
    for (std::uint32_t& pixel : picture.pixels) pixel = 0xFF000000U | (count++ % colours) * 0x010307U;
    return picture;
}

std::vector<unsigned char> BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

TEST(PictureFile, ComesBackAsItWasWritten) {
    const std::string path = TemporaryPath("round-trip");
    Picture translucent = Coloured(33, 9, 500);
    translucent.At(0, 0) = 0;
    translucent.At(1, 0) = 0x80402000U;
    for (const Picture& picture : {Coloured(1, 1, 1), Coloured(40, 13, 256), Coloured(40, 13, 257), translucent}) {
        ASSERT_TRUE(platform::SavePng(path, picture));
        const auto fromFile = platform::LoadPicture(path);
        ASSERT_TRUE(fromFile);
        EXPECT_TRUE(LooksLike(*fromFile, picture));
        const auto fromMemory = platform::DecodePicture(BytesOf(path));
        ASSERT_TRUE(fromMemory);
        EXPECT_TRUE(LooksLike(*fromMemory, picture));
    }
    ASSERT_TRUE(platform::SaveBmp(path, Coloured(31, 7, 300)));
    EXPECT_TRUE(LooksLikeFile(Coloured(31, 7, 300), path));
}

TEST(PictureFile, KeepsColoursPremultiplied) {
    const std::string path = TemporaryPath("premultiplied.png");
    Picture picture(1, 1, 0x80800000U); // red at half strength
    ASSERT_TRUE(platform::SavePng(path, picture));
    EXPECT_EQ(platform::LoadPicture(path)->At(0, 0), 0x80800000U);
}

TEST(PictureFile, IsRefusedWhenMissingOrDamaged) {
    EXPECT_FALSE(platform::LoadPicture(TemporaryPath("does-not-exist.png")));
    EXPECT_FALSE(platform::LoadPicture(testing::TempDir()));
    EXPECT_FALSE(platform::DecodePicture({}));
    EXPECT_FALSE(platform::SavePng(TemporaryPath("no-such-folder/a.png"), Picture(1, 1)));

    std::mt19937 random(23);
    const std::string path = TemporaryPath("damaged");
    for (const bool isPng : {true, false}) {
        ASSERT_TRUE(isPng ? platform::SavePng(path, Coloured(50, 50, 400))
                          : platform::SaveBmp(path, Coloured(50, 50, 400)));
        const std::vector<unsigned char> whole = BytesOf(path);
        EXPECT_FALSE(platform::DecodePicture(std::span(whole).first(whole.size() / 2)));
        EXPECT_FALSE(platform::DecodePicture(std::span(whole).first(10)));
        // whatever comes out of a few wrong bytes, it is a picture or nothing
        for (int round = 0; round < 300; ++round) {
            std::vector<unsigned char> bytes = whole;
            for (int count = 0; count < 3; ++count) bytes[random() % 64] = static_cast<unsigned char>(random());
            if (const auto picture = platform::DecodePicture(bytes)) {
                EXPECT_EQ(picture->pixels.size(),
                          static_cast<std::size_t>(picture->width) * static_cast<std::size_t>(picture->height));
            }
        }
    }
}

class PicturePrefetch : public testing::Test {
protected:
    PicturePrefetch() {
        platform::Desktop::Use(std::make_unique<ThreadedDesktop>());
        for (int index = 0; index < 6; ++index) {
            paths.push_back(TemporaryPath("prefetch-" + std::to_string(index) + ".png"));
            EXPECT_TRUE(platform::SavePng(paths.back(), Numbered(index)));
        }
    }
    ~PicturePrefetch() override { platform::Desktop::Use(nullptr); }
    static Picture Numbered(int index) { return Coloured(200 + index, 100, 60 + static_cast<std::uint32_t>(index)); }
    /// Whether the factory gives picture `index`.
    testing::AssertionResult Gives(IWICImagingFactory& factory, int index) const {
        const auto converterPtr = factory.CreateConverterFromFile(paths[static_cast<std::size_t>(index)]);
        if (!converterPtr) return testing::AssertionFailure() << "nothing for " << index;
        return LooksLike(*converterPtr->GetPicture(), Numbered(index));
    }
    std::vector<std::string> paths;
};

TEST_F(PicturePrefetch, GivesTheSamePicturesInWhateverOrderTheyAreAskedFor) {
    for (const std::vector<int>& order : {std::vector{0, 1, 2, 3, 4, 5}, {5, 4, 3, 2, 1, 0}, {3, 3, 3, 0, 5, 3}}) {
        const auto factoryPtr = platform::CreateImagingFactory();
        factoryPtr->Prefetch(paths);
        for (const int index : order) EXPECT_TRUE(Gives(*factoryPtr, index));
        factoryPtr->Prefetch({paths[1], paths[1]});
        EXPECT_TRUE(Gives(*factoryPtr, 1));
    }
}

TEST_F(PicturePrefetch, ItsFailureChangesNothing) {
    const auto factoryPtr = platform::CreateImagingFactory();
    const std::string late = TemporaryPath("prefetch-late.png");
    std::filesystem::remove(late);
    factoryPtr->Prefetch({late, "", paths[0]});
    EXPECT_TRUE(Gives(*factoryPtr, 0)); // so the thread has been past the missing one, or never comes to it
    EXPECT_EQ(factoryPtr->CreateConverterFromFile(late), nullptr);
    EXPECT_EQ(factoryPtr->CreateConverterFromFile(""), nullptr);
    ASSERT_TRUE(platform::SavePng(late, Numbered(2)));
    EXPECT_NE(factoryPtr->CreateConverterFromFile(late), nullptr);
}

TEST_F(PicturePrefetch, MayBeLeftUnused) {
    for (int round = 0; round < 20; ++round) {
        const auto factoryPtr = platform::CreateImagingFactory();
        factoryPtr->Prefetch(paths);
        if (round % 2 == 0) std::this_thread::yield();
    }
}
