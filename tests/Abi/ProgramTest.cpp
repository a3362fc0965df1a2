#include <algorithm>

#include <gmock/gmock.h>

#include "Command.h"
#include "Picture.h"

using namespace VantrelProof;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string program = PROGRAM;
const std::string onNoDisplay = "env -u DISPLAY -u WAYLAND_DISPLAY ";

struct ProgramTest: FolderTest {};

TEST_F(ProgramTest, drawsTheKnownPictureOnADisplay) {
    const CommandResult result = run(program + " --check " GOLDEN);
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("vantrel-proof: the picture is the one in " GOLDEN));
}

TEST_F(ProgramTest, drawsTheKnownPictureWithoutDisplay) {
    const CommandResult result = run(onNoDisplay + program + " --picture " + path("proof.png") + " --check " GOLDEN);
    EXPECT_EQ(result.exitCode, 0) << result.output;
    const std::optional<Picture> golden = readPng(GOLDEN), picture = readPng(path("proof.png"));
    ASSERT_TRUE(golden);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, golden->width);
    EXPECT_EQ(picture->height, golden->height);
    EXPECT_LT(compare(*picture, *golden, 48).fraction, 0.0005);
}

TEST_F(ProgramTest, saysNothingWithoutBeingAsked) {
    const CommandResult result = run(onNoDisplay + program);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
}

// A part of the picture in per mille of its size, from the upper left corner.
struct Tile {
    const char* object;
    int left, top, right, bottom;
};

struct WrongPictureTest: FolderTest, testing::WithParamInterface<Tile> {
    // Changes each pixel of the tile in a copy of the known picture, and compares with that one.
    template<class F> CommandResult checkWith(F&& change) {
        Picture picture = *readPng(GOLDEN);
        const Tile& tile = GetParam();
        for(int y = tile.top * picture.height / 1000; y != tile.bottom * picture.height / 1000; ++y)
            for(int x = tile.left * picture.width / 1000; x != tile.right * picture.width / 1000; ++x)
                change(&picture.pixels[(std::size_t(y) * picture.width + x) * 4], picture);
        EXPECT_TRUE(writePng(path("wrong.png"), picture));
        return run(onNoDisplay + program + " --check " + path("wrong.png"));
    }

    void expectRefused(const CommandResult& result) {
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.output, StartsWith("vantrel-proof: the picture is not the one in " + path("wrong.png")));
    }
};

TEST_P(WrongPictureTest, missingObjectIsNoticed) {
    // The background of the tiles, from the corner of the first one.
    expectRefused(checkWith([](std::uint8_t* pixel, const Picture& picture) {
        std::copy_n(&picture.pixels[(std::size_t(12) * picture.width + 12) * 4], 4, pixel);
    }));
}

TEST_P(WrongPictureTest, otherColorIsNoticed) {
    expectRefused(checkWith([](std::uint8_t* pixel, const Picture&) { std::swap(pixel[0], pixel[1]); }));
}

INSTANTIATE_TEST_SUITE_P(ProgramTest, WrongPictureTest,
    testing::Values(Tile{"Axes", 12, 12, 328, 490}, Tile{"Cube", 342, 12, 658, 490}, Tile{"Arrow", 672, 12, 987, 490},
        Tile{"Sphere", 12, 510, 492, 987}, Tile{"Mesh", 507, 510, 987, 987}),
    [](const auto& info) { return std::string{info.param.object}; });

TEST_F(ProgramTest, goldenThatIsNoPicture) {
    const CommandResult result = run(onNoDisplay + program + " --check " + path("missing.png"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "vantrel-proof: cannot read " + path("missing.png") + "\n");
}

TEST_F(ProgramTest, goldenOfAnotherSize) {
    ASSERT_TRUE(writePng(path("small.png"), {1, 1, {0, 0, 0, 0}}));
    const CommandResult result = run(onNoDisplay + program + " --check " + path("small.png"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "vantrel-proof: " + path("small.png") + " is 1 x 1 pixels large, the picture 800 x 500\n");
}

TEST_F(ProgramTest, pictureThatCannotBeWritten) {
    const CommandResult result = run(onNoDisplay + program + " --picture " + path("no/such/folder.png"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "vantrel-proof: cannot write " + path("no/such/folder.png") + "\n");
}

TEST_F(ProgramTest, pluginThatIsNotThere) {
    const CommandResult result = run(onNoDisplay + program + " --plugin-dir " + path("nowhere"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output,
        "PluginManager::Manager::load(): plugin VantrelProofPlugin is not static and was not found in " +
            path("nowhere") + "\n");
}

TEST_F(ProgramTest, unreachableDisplay) {
    for(const std::string& arguments: {std::string{"--window"}, "--picture " + path("proof.png")}) {
        const CommandResult result = run("env -u WAYLAND_DISPLAY DISPLAY=:4242 " + program + " " + arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.output, StartsWith("vantrel-proof: cannot open a window on display \":4242\": "));
    }
}

TEST_F(ProgramTest, windowWithoutDisplay) {
    const CommandResult result = run(onNoDisplay + program + " --window");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, StartsWith("vantrel-proof: cannot open a window on display \"\": "));
}

TEST_F(ProgramTest, missingOpenGl) {
    const std::string old = "MESA_GL_VERSION_OVERRIDE=3.1 ";
    CommandResult result = run(old + program);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, HasSubstr("vantrel-proof: this display has no OpenGL 3.3\n"));
    result = run(onNoDisplay + old + program);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, StartsWith("vantrel-proof: no OpenGL 3.3 without a display: "));
}

TEST_F(ProgramTest, help) {
    const CommandResult result = run(program + " --help");
    EXPECT_EQ(result.exitCode, 0);
    for(const char* option: {"--window", "--picture FILE", "--check GOLDEN", "--plugin-dir DIR", "--help"})
        EXPECT_THAT(result.output, HasSubstr(option));
}

TEST_F(ProgramTest, mistakesInOptions) {
    for(const char* arguments: {"--no-such-option", "argument", "--picture", "--window --picture file.png"}) {
        const CommandResult result = run(program + " " + arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments;
        EXPECT_THAT(result.output, StartsWith("vantrel-proof: "));
        EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 1) << result.output;
    }
    EXPECT_THAT(run(program + " --no-such-option").output, HasSubstr("--no-such-option"));
}

}
