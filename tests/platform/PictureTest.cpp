#include "platform/Picture.h"
#include "platform/Imaging.h"
#include "tests/support/Stage.h"
#include "tests/support/TestFolder.h"

#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using platform::Picture;

namespace {
/// `colours` different opaque colours.
Picture Coloured(int width, int height, std::uint32_t colours) {
    Picture picture(width, height);
    std::uint32_t count = 0;
    for (std::uint32_t& pixel : picture.pixels) pixel = 0xFF000000U | (count++ % colours) * 0x010307U;
    return picture;
}

class PictureFile : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return (folder.Root() / name).string(); }
    std::vector<unsigned char> Bytes(const std::string& name) const {
        const std::string bytes = folder.Read(name);
        return {bytes.begin(), bytes.end()};
    }

    TestFolder folder;
};
} // namespace

TEST_F(PictureFile, ComesBackAsItWasWritten) {
    Picture translucent = Coloured(33, 9, 500);
    translucent.At(0, 0) = 0;
    translucent.At(1, 0) = 0x80402000U; // colours are premultiplied
    for (const Picture& picture : {Coloured(1, 1, 1), Coloured(40, 13, 256), Coloured(40, 13, 257), translucent}) {
        ASSERT_TRUE(platform::SavePng(Path("a"), picture));
        EXPECT_TRUE(LooksLikeFile(picture, Path("a")));
        EXPECT_TRUE(LooksLike(platform::DecodePicture(Bytes("a")).value(), picture));
    }
    ASSERT_TRUE(platform::SaveBmp(Path("a"), Coloured(31, 7, 300)));
    EXPECT_TRUE(LooksLikeFile(Coloured(31, 7, 300), Path("a")));
}

TEST_F(PictureFile, IsRefusedWhenMissingOrDamaged) {
    EXPECT_FALSE(platform::LoadPicture(Path("does-not-exist.png")));
    EXPECT_FALSE(platform::LoadPicture(Path(".")));
    EXPECT_FALSE(platform::DecodePicture({}));
    EXPECT_FALSE(platform::SavePng(Path("no-such-folder/a.png"), Picture(1, 1)));

    std::mt19937 random(23);
    for (const auto save : {platform::SavePng, platform::SaveBmp}) {
        ASSERT_TRUE(save(Path("a"), Coloured(50, 50, 400)));
        const std::vector<unsigned char> whole = Bytes("a");
        EXPECT_FALSE(platform::DecodePicture(std::span(whole).first(whole.size() / 2)));
        EXPECT_FALSE(platform::DecodePicture(std::span(whole).first(10)));
        // whatever comes out of a few wrong bytes, it is a picture or nothing
        for (int round = 0; round < 300; ++round) {
            std::vector<unsigned char> bytes = whole;
            for (int count = 0; count < 3; ++count) bytes[random() % 64] = static_cast<unsigned char>(random());
            if (const auto picture = platform::DecodePicture(bytes)) {
                EXPECT_EQ(picture->pixels.size(), static_cast<std::size_t>(picture->width * picture->height));
            }
        }
    }
}

class PicturePrefetch : public PictureFile {
protected:
    PicturePrefetch() {
        stage->hasThreads = true;
        for (int index = 0; index < 6; ++index) {
            paths.push_back(Path(std::to_string(index)));
            EXPECT_TRUE(platform::SavePng(paths.back(), Numbered(index)));
        }
        mkfifo(Path("pipe").c_str(), 0600);
    }
    static Picture Numbered(int index) { return Coloured(200 + index, 100, 60 + static_cast<std::uint32_t>(index)); }

    /// Has `files` decoded by a new factory and returns when they are: the pipe after them opens when its turn comes.
    void PrefetchAndWait(std::vector<std::string> files) {
        factoryPtr = platform::CreateImagingFactory();
        files.push_back(Path("pipe"));
        factoryPtr->Prefetch(files);
        close(open(Path("pipe").c_str(), O_WRONLY));
    }
    /// Whether the factory gives picture `index`.
    testing::AssertionResult Gives(int index) {
        const auto converterPtr = factoryPtr->CreateConverterFromFile(paths[static_cast<std::size_t>(index)]);
        if (!converterPtr) return testing::AssertionFailure() << "nothing for " << index;
        return LooksLike(*converterPtr->GetPicture(), Numbered(index));
    }

    Stage stage;
    std::vector<std::string> paths;
    std::unique_ptr<IWICImagingFactory> factoryPtr = platform::CreateImagingFactory();
};

TEST_F(PicturePrefetch, GivesTheSamePicturesInWhateverOrderTheyAreAskedFor) {
    for (const std::vector<int>& order : {std::vector{0, 1, 2, 3, 4, 5}, {5, 4, 3, 2, 1, 0}, {3, 3, 3, 0, 5, 3}}) {
        factoryPtr = platform::CreateImagingFactory(); // the one before is left in the middle of its work
        factoryPtr->Prefetch(paths);
        for (const int index : order) EXPECT_TRUE(Gives(index));
        PrefetchAndWait(paths);
        for (const int index : order) EXPECT_TRUE(Gives(index));
        factoryPtr->Prefetch({paths[1], paths[1]});
    }
}

TEST_F(PicturePrefetch, ItsFailureChangesNothing) {
    PrefetchAndWait({Path("late"), ""});
    EXPECT_EQ(factoryPtr->CreateConverterFromFile(Path("late")), nullptr);
    EXPECT_EQ(factoryPtr->CreateConverterFromFile(""), nullptr);
    PrefetchAndWait({Path("late")});
    ASSERT_TRUE(platform::SavePng(Path("late"), Numbered(2)));
    EXPECT_NE(factoryPtr->CreateConverterFromFile(Path("late")), nullptr);
}
