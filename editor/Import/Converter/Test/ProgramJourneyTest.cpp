#include <fstream>

#include <gmock/gmock.h>

#include "../../../../engine/Data/Resources/Test/GlbBuilder.h"
#include "../../../../engine/Data/Resources/Test/ImageBuilder.h"
#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::AllOf;
using testing::HasSubstr;

std::string png() { return VantrelEngine::Test::pngFile(2, 2, 200); }

// Two textured triangles.
std::string texturedGlb() {
    using namespace VantrelEngine::Test;
    GlbBuilder builder;
    builder.add(Float, "VEC3", 3, std::vector<float>{-1, 0, 0, 1, 0, 0, 1, 2, 0, -1, 0, 0, 1, 2, 0, -1, 2, 0});
    builder.add(Float, "VEC2", 2, std::vector<float>{0, 1, 1, 1, 1, 0, 0, 1, 1, 0, 0, 0});
    return builder.file(R"("scene":0,"scenes":[{"nodes":[0]}],"nodes":[{"name":"Sign","mesh":0}],)"
                        R"("meshes":[{"primitives":[{"material":0,"attributes":{"POSITION":0,"TEXCOORD_0":1}}]}],)"
                        R"("materials":[{"name":"Paint","pbrMetallicRoughness":{"baseColorTexture":{"index":0}}}],)"
                        R"("textures":[{"source":0}],"images":[{"name":"Motif","uri":"motif.png"}])");
}

// The editor with the program that converts in earnest.
class ProgramJourneyTest: public JourneyTest {
protected:
    ProgramJourneyTest() {
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        folder.write("sign.glb", texturedGlb());
        folder.write("motif.png", png());
        folder.write("checker.png", VantrelEngine::Test::pngFile(3, 2, 90));
        folder.write("roof.obj", "o Roof\nv 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\n");
        folder.write("sky.hdr", VantrelEngine::Test::hdrFile(9, 2, std::vector<float>(72, 0.5f)));
        std::filesystem::create_directory(folder.path("project"));
    }
};

TEST_F(ProgramJourneyTest, FilesOfFourKindsAreUndoneRedoneSavedAndReopened) {
    std::string script = "new\n";
    for(const char* const file: {"sign.glb", "roof.obj", "checker.png", "sky.hdr"}) {
        const std::string name = file;
        script += "dump document {}/before-" + name + "\nimport {}/" + name + "\nwait import\ndump document {}/after-" +
            name + "\nundo\ndump document {}/undone-" + name + "\nredo\ndump document {}/redone-" + name + '\n';
    }
    script += "save {}/project/project.json\nopen {}/project/project.json\ndump document {}/reopened\n";
    const JourneyResult result =
        play(script, "--module " + Recorder + " --converter " REAL_CONVERTER " --size 500x400 --frames 1");
    ASSERT_EQ(result.status, 0) << result.output;
    for(const char* const file: {"sign.glb", "roof.obj", "checker.png", "sky.hdr"}) {
        SCOPED_TRACE(file);
        const std::string name = file;
        EXPECT_THAT(result.output, HasSubstr("Imported " + name));
        EXPECT_NE(read("after-" + name), read("before-" + name));
        EXPECT_EQ(read("undone-" + name), read("before-" + name));
        EXPECT_EQ(read("redone-" + name), read("after-" + name));
    }
    EXPECT_THAT(result.output, HasSubstr("Imported roof.obj: 2 objects\n"));
    EXPECT_THAT(result.output, HasSubstr("Imported sky.hdr\n"));
    EXPECT_EQ(read("reopened"), read("after-sky.hdr"));
    EXPECT_THAT(read("reopened"),
        AllOf(HasSubstr("\"Sign\""), HasSubstr("\"Motif\""), HasSubstr("\"Roof\""), HasSubstr("\"checker.png\""),
            HasSubstr("\"sky.hdr\"")));
}

// In the cells of the assets, whose folders come first.
TEST_F(ProgramJourneyTest, ModelsHavePicturesAndADamagedOneKeepsItsIcon) {
    folder.write("broken.glb", "damaged");
    folder.write("scene.json", "{}");
    // The converter's results go there.
    std::filesystem::create_directory(folder.path("data"));
    const JourneyResult result = play("open {}/scene.json\nwait 3\nscreenshot {}/icons.png\nwait pictures\n"
                                      "screenshot {}/pictures.png\n",
        "--module " + Recorder + " --converter " REAL_CONVERTER " --size 1440x900 --frames 1");
    ASSERT_EQ(result.status, 0) << result.output;
    const JourneyPicture icons = picture("icons.png"), pictures = picture("pictures.png");
    const auto isOther = [&](int cell) {
        for(int y = 770; y != 835; ++y)
            for(int x = 310 + 97 * cell; x != 365 + 97 * cell; ++x)
                if(icons.pixel(x, y) != pictures.pixel(x, y)) return true;
        return false;
    };
    const char* const names[]{"data", "project", "broken.glb", "checker.png", "motif.png", "roof.obj", "sign.glb"};
    for(int cell = 0; cell != 7; ++cell) EXPECT_EQ(isOther(cell), cell > 4) << names[cell];
}

}

}
