#include "engine/SVGLoader.h"
#include "engine/String.h"
#include "tests/support/EngineStage.h"
#include "tests/support/TextSink.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Messages = std::vector<std::wstring>;

constexpr const wchar_t* needsMove = L"expected 'M' or 'm' command";
constexpr const wchar_t* needsSeparator = L"expected comma or whitespace";

class SVGFiles : public EngineStage {
protected:
    ~SVGFiles() override { std::filesystem::remove(path); }

    /// The shape in a file with this text, written down; "none" if there is none.
    std::string Load(const std::string& fileText) {
        std::ofstream(path, std::ios::binary) << fileText;
        return LoadFile(path);
    }
    static std::unique_ptr<ID2D1Geometry> LoadGeometry(const std::string& fileName) {
        ID2D1Geometry* geometryPtr = nullptr;
        const bool isLoaded = SVGLoader().LoadGeometryFromFile(String(fileName.c_str()), &geometryPtr);
        EXPECT_EQ(isLoaded, geometryPtr != nullptr);
        return std::unique_ptr<ID2D1Geometry>(geometryPtr);
    }
    static std::string LoadFile(const std::string& fileName) {
        const auto geometryPtr = LoadGeometry(fileName);
        if (!geometryPtr) return "none";
        TextSink sink;
        geometryPtr->Simplify(D2D1_GEOMETRY_SIMPLIFICATION_OPTION_CUBICS_AND_LINES, 0.25F, sink);
        return sink.Text();
    }
    std::string LoadPath(const std::string& data) {
        return Load("<svg>\n <path id=\"ground\" d=\"" + data + "\"/></svg>");
    }
    std::string LoadTransformed(const std::string& transform, const std::string& data = "M1 0L0 2") {
        return Load("<svg><g transform=\"" + transform + "\"><path d=\"" + data + "\"/></g></svg>");
    }

    std::string path =
        (std::filesystem::temp_directory_path() / ("outline-" + std::to_string(std::random_device()()) + ".svg"))
            .string();
};

TEST_F(SVGFiles, CommandsDrawTheirSegments) {
    struct Case {
        const char* data;
        const char* shape;
    };
    const Case cases[] = {
        {"m 10 10 20 0 0 20 z", "M 10 10 L 30 10 L 30 30 Z"},
        {"M 0 0 H 50 V 50 h -50 z", "M 0 0 L 50 0 L 50 50 L 0 50 Z"},
        {"M0 0L1 2 3 4l1 1 1 1", "M 0 0 L 1 2 L 3 4 L 4 5 L 5 6 Z"},
        {"M 5 5 l 1 0 z l 9 9", "M 5 5 L 6 5 Z"}, // the stray line is ignored
        {"M 5 5 l 1 0 z m 1 1 l 1 1 z M 0 0 l 2 0", "M 5 5 L 6 5 Z M 6 6 L 7 7 Z M 0 0 L 2 0 Z"},
        {"M 0 0 L 1 1 M 5 5 m 1 1", "M 0 0 L 1 1 L 5 5 L 6 6 Z"}, // inside a figure M draws a line
        {"M0,0 C 0,10 10,10 10,0 S 20,-10 20,0", "M 0 0 C 0 10 10 10 10 0 C 10 -10 20 -10 20 0 Z"},
        {"M1,1 c 0,10 10,10 10,0 s 10,-10 10,0", "M 1 1 C 1 11 11 11 11 1 C 11 -9 21 -9 21 1 Z"},
        {"M0,0 L 5,0 S 20,-10 20,0", "M 0 0 L 5 0 C 5 0 20 -10 20 0 Z"},
        {"M0,0 Q 6,12 12,0 T 24,0 36 0", "M 0 0 C 4 8 8 8 12 0 C 16 -8 20 -8 24 0 C 28 8 32 8 36 0 Z"},
        {"M0,0 q 6,12 12,0 t 12,0", "M 0 0 C 4 8 8 8 12 0 C 16 -8 20 -8 24 0 Z"},
        {"M0,0 C 0,3 0,3 0,0 T 12,0", "M 0 0 C 0 3 0 3 0 0 C 0 0 4 0 12 0 Z"}, // T does not mirror a cubic
        {"M0 0 a 0 5 0 0 1 10 0", "M 0 0 L 10 0 Z"},
        {"M0 0L10-5.5.5+3 1e1-5E-1 7,8 , 9 10", "M 0 0 L 10 -5.5 L 0.5 3 L 10 -0.5 L 7 8 L 9 10 Z"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.data);
        EXPECT_EQ(LoadPath(row.data), row.shape);
        TakeMessages();
    }
}

TEST_F(SVGFiles, ArcsAreDrawnOnTheAskedSide) {
    const auto bounds = [&](const char* data) {
        std::ofstream(path) << "<path d=\"" << data << "\"/>";
        const auto geometryPtr = LoadGeometry(path);
        D2D1_RECT_F rect;
        geometryPtr->GetBounds(&rect);
        return std::vector<float>{rect.left, rect.top, rect.right, rect.bottom};
    };
    using testing::FloatNear;
    const auto near = [](float value) { return FloatNear(value, 1e-4F); };
    EXPECT_THAT(bounds("M0 0A5 5 0 0 1 10 0"), ElementsAre(near(0), near(-5), near(10), near(0)));
    EXPECT_THAT(bounds("M0 0 a 5,2,0,0,0,10,0"), ElementsAre(near(0), near(0), near(10), near(2)));
    EXPECT_THAT(bounds("M0 0A2 5 90 1.5 0.9 10 0 v1"), ElementsAre(near(0), near(0), near(10), near(2)))
        << "flags are whole numbers";
    EXPECT_THAT(stage->debugLines, testing::SizeIs(3));
    EXPECT_THAT(stage->debugLines, testing::Each(std::wstring(L"WARNING: SVG Arcs not supported yet\n")));
}

TEST_F(SVGFiles, DamagedPathDataGivesWhatCameBeforeTheDamage) {
    struct Case {
        const char* data;
        const char* shape;
        Messages messages;
    };
    const Case cases[] = {
        {"", "", {}},
        {"   ", "", {}},
        {"M 0 0 L 1 1 L 5", "M 0 0 L 1 1 Z", {needsSeparator}},
        {"M 0 0 L 1 1 A 5 5", "M 0 0 L 1 1 Z", {needsSeparator}},
        {"M 0 0 L 1 1 L 5 Z", "M 0 0 L 1 1 Z", {}},
        {"M 0 0 L 1 1 L x 5 L 7 7", "M 0 0 L 1 1 Z", {}},
        {"M 0 0 L 1 1 C 1 1 2 2 oops", "M 0 0 L 1 1 Z", {}},
        {"M 0 0 H 5 e 7", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5 H 1e H 9", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5 H - H 9", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5 H +-9", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5 H inf", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5 H nan V 5", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5 H 1e999", "M 0 0 L 5 0 Z", {}},
        {"M 0 0 H 5,6", "M 0 0 L 5 0 Z", {}}, // a single number takes no comma
        {"M 0 0 L 1 1 ,, L 2 2", "M 0 0 L 1 1 Z", {}},
        {"M", "", {}},
        {"L 5 5 10 10 M 1 1 L 2 2", "M 1 1 L 2 2 Z", {needsMove, needsMove}},
        {"Z M 1 1 L 2 2 Z Z", "M 1 1 L 2 2 Z", {needsMove, needsMove}},
        {"5 5 L 7 7", "", {needsMove}},
        {"M 1 1 L 2 2 Z 5 5", "M 1 1 L 2 2 Z", {needsMove}},
        {"M 0 0 H 1e39", "none", {L"CreateTransformedGeometry failed"}}, // too far for single precision
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.data);
        EXPECT_EQ(LoadPath(row.data), row.shape);
        EXPECT_EQ(TakeMessages(), row.messages);
    }
}

TEST_F(SVGFiles, TransformsMoveThePath) {
    struct Case {
        const char* transform;
        const char* shape;
        Messages messages;
    };
    const Case cases[] = {
        {"", "M 1 0 L 0 2 Z", {}},
        {"matrix(1,2,3,4,5,6)", "M 6 8 L 11 14 Z", {}},
        {"matrix(2,0,0)", "M 2 0 L 0 2 Z", {}}, // what is missing stays the identity's
        {"translate(10,-5)", "M 11 -5 L 10 -3 Z", {}},
        {"translate( 10, -5)", "M 11 -5 L 10 -3 Z", {}},
        {"translate(10 -5)", "M 11 0 L 10 2 Z", {}},
        {"translate(10 ,5)", "M 11 0 L 10 2 Z", {}},
        {"translate(10", "M 11 0 L 10 2 Z", {}},
        {"scale(2)", "M 2 0 L 0 4 Z", {}},
        {"scale(2,3) translate(1,1)", "M 2 0 L 0 6 Z", {}}, // only the first function counts
        {"rotate(180,1,1)", "M 1 2 L 2 0 Z", {}},
        {"rotate(90,1)", "M 1 0 L 0 2 Z", {}},
        {"rotate()", "M 1 0 L 0 2 Z", {}},
        {"skewX(30)", "M 1 0 L 0 2 Z", {}},
        {" scale(2)", "M 1 0 L 0 2 Z", {L"unsupported transform attribute"}},
        {"wobble", "M 1 0 L 0 2 Z", {L"unsupported transform attribute"}},
        {"scale(1e39)", "none", {L"CreateTransformedGeometry failed"}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.transform);
        EXPECT_EQ(LoadTransformed(row.transform), row.shape);
        EXPECT_EQ(TakeMessages(), row.messages);
    }
    EXPECT_EQ(LoadTransformed("translate(0,-100)", "M 0 0 L 100 0 L 100 50 Z"), "M 0 -100 L 100 -100 L 100 -50 Z");
    EXPECT_EQ(Load("<path d=\"M1 0L0 2\" TRANSFORM = \"scale(2)\"/>"), "M 2 0 L 0 4 Z");
    EXPECT_THAT(LoadTransformed("rotate(90)", "M1000000 0L0 0"), testing::MatchesRegex("M .*e-.* 1e\\+06 L 0 0 Z"));
}

TEST_F(SVGFiles, OnlyTheFirstPathIsReadHoweverItIsWritten) {
    EXPECT_EQ(Load("<rect d=\"M9 9L8 8\"/><path d=\"M0 0L1 1\"/><path d=\"M5 5L6 6\"/>"), "M 0 0 L 1 1 Z");
    EXPECT_EQ(Load("<path style=\"x\" D =\"M0 0L1 1\"/>"), "M 0 0 L 1 1 Z");
    EXPECT_EQ(Load("<path D=\"M5 5L6 6\"/> <path d=\"M0 0L1 1\"/>"), "M 0 0 L 1 1 Z")
        << "the usual spelling comes first";
    EXPECT_EQ(Load("<path\n d=\"M0 0L10\n5 7\"/>"), "M 0 0 L 105 7 Z") << "lines are joined with nothing between";
    EXPECT_EQ(Load("<path\r\n d=\"M0 0L10\r\n5 7\"/>\r\n"), "M 0 0 L 105 7 Z");
    EXPECT_THAT(TakeMessages(), IsEmpty());
}

TEST_F(SVGFiles, FilesWithoutAPathAreReported) {
    const std::string whole = "<svg><path d=\"M 0 0 L 10 0 L 10 10 Z\"/></svg>";
    const std::string broken[] = {"",
                                  "<svg></svg>",
                                  "<path/>",
                                  "d=\"M0 0L1 1\"",
                                  "<path id=\"M0 0L1 1\"/>",
                                  "<pathd=\"M0 0\"",
                                  "<path d=",
                                  "<path d=\"M 0 0 L 10 0",
                                  whole.substr(0, whole.size() / 2),
                                  std::string("\0\xFF\x80<pa\0th d=\"", 13)};
    const std::wstring wideName(path.begin(), path.end());
    for (const std::string& text : broken) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Load(text), "none");
        EXPECT_THAT(TakeMessages(), ElementsAre(L"Malformed geometry information in file " + wideName));
    }
    EXPECT_EQ(LoadFile("nowhere/at all.svg"), "none");
    EXPECT_THAT(TakeMessages(), ElementsAre(L"Failed to load geometry from file nowhere/at all.svg"));
    LoadFile(std::filesystem::temp_directory_path().string());
    EXPECT_THAT(TakeMessages(), testing::SizeIs(1)) << "a folder";
}

TEST_F(SVGFiles, GarbageNeverCrashesOrHangs) {
    std::mt19937 random(11);
    const std::string letters = "MmZzLlHhVvCcSsQqTtAa0123456789.,-+e  \n\"x\0\xFF";
    for (int round = 0; round < 200; ++round) {
        std::string data;
        for (int i = 0; i < 200; ++i) data += letters[random() % letters.size()];
        LoadTransformed(data.substr(0, 20), "M 0 0 L 1 1" + data);
    }
    std::string longData = "M0 0";
    for (int i = 0; i < 100000; ++i) longData += i % 2 == 0 ? "l1 0.5" : "h-1.25";
    const std::string shape = LoadPath(longData);
    EXPECT_EQ(std::count(shape.begin(), shape.end(), 'L'), 100000);
}

} // namespace
