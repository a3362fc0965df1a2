#include <filesystem>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "Import/Converter/Test/ConverterFixture.h"
#include "Import/Converter/Test/GltfText.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;
namespace fs = std::filesystem;

// A folder "models" and beside it a canary, an image that no model may reach.
class HostileFileTest: public testing::Test {
public:
    HostileFileTest() {
        fs::create_directory(folder.path("models"));
        fs::create_directory(folder.path("output"));
        VantrelTest::writeFile(folder.path("canary.tga"), canary);
        VantrelTest::writeFile(folder.path("canary.mtl"), "newmtl Canary\nKd 1 0 0\n");
    }

    std::string model(const std::string& name) const { return folder.path("models/" + name); }

    ImportResult run(const std::string& name, const std::vector<std::string>& arguments = {}) const {
        return runConverter(model(name), folder.path("output"), arguments);
    }
    ImportResult import(
        const std::string& name, const std::string& contents, const std::vector<std::string>& arguments = {}) const {
        VantrelTest::writeFile(model(name), contents);
        return run(name, arguments);
    }
    ImportResult importWithImage(const std::string& uri) const {
        return import("a.gltf",
            triangleGltf(",\"materials\":[{\"name\":\"M\",\"emissiveTexture\":{\"index\":0}}],"
                         "\"textures\":[{\"source\":0}],\"images\":[{\"uri\":\"" +
                uri + "\"}]"));
    }

    bool isCanaryIn(const ImportResult& result) const {
        for(const auto& entry: fs::recursive_directory_iterator{result.folder})
            if(entry.is_regular_file() && VantrelTest::readFile(entry.path()).find(canary) != std::string::npos)
                return true;
        return false;
    }

    const std::string canary = tgaPixel(11, 22, 33) + "canary";
    VantrelTest::TestFolder folder;
};

TEST_F(HostileFileTest, NoNameLeadsOutOfTheFolder) {
    fs::create_directory(model("sub"));
    fs::create_symlink("../canary.tga", model("link.tga"));
    fs::create_directory_symlink("..", model("up"));
    const std::string absolute = folder.path("canary.tga");
    for(const std::string& uri: {std::string{"../canary.tga"}, std::string{"sub/../../canary.tga"},
            std::string{"%2e%2e/canary.tga"}, std::string{"%2E%2E%2Fcanary.tga"}, std::string{"..\\\\canary.tga"},
            absolute, "file://" + absolute, "file:" + absolute, "FILE:" + absolute, std::string{"link.tga"},
            std::string{"up/canary.tga"}, std::string{"//" + absolute}, std::string{"http://127.0.0.1/canary.tga"}}) {
        const ImportResult result = importWithImage(uri);
        EXPECT_TRUE(result.isDone()) << uri << '\n' << result.text();
        EXPECT_TRUE(result.hasWarning("image \"")) << uri << '\n' << result.text();
        EXPECT_EQ(result.count("images"), 0u) << uri;
        EXPECT_FALSE(isCanaryIn(result)) << uri;
    }
}

TEST_F(HostileFileTest, NamesInsideOfTheFolderLeadThere) {
    fs::create_directory(model("sub"));
    VantrelTest::writeFile(model("sub/my pic.tga"), canary);
    fs::create_symlink("sub/my pic.tga", model("link.tga"));
    for(const char* const uri: {"sub/my%20pic.tga", "./sub/../sub/my pic.tga", "sub\\\\my pic.tga", "link.tga"}) {
        const ImportResult result = importWithImage(uri);
        EXPECT_EQ(result.count("images"), 1u) << uri << '\n' << result.text();
        // The check that looks for it elsewhere can find it.
        EXPECT_TRUE(isCanaryIn(result)) << uri;
    }
}

TEST_F(HostileFileTest, BuffersStayInTheFolder) {
    for(const std::string& uri:
        {std::string{"../canary.tga"}, "file://" + folder.path("canary.tga"), folder.path("canary.tga")}) {
        const ImportResult result = import("a.gltf",
            R"({"asset":{"version":"2.0"},"nodes":[{"mesh":0}],"buffers":[{"byteLength":24,"uri":")" + uri +
                R"("}],"bufferViews":[{"buffer":0,"byteLength":24}],"accessors":[{"bufferView":0,"componentType":5121,"count":3,"type":"VEC3"}],)"
                R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}]})");
        EXPECT_TRUE(result.isDone()) << result.text();
        EXPECT_EQ(result.count("meshes"), 0u) << uri;
        EXPECT_TRUE(result.hasWarning("mesh \"Mesh 1\" is left out")) << result.text();
    }
}

TEST_F(HostileFileTest, MaterialFilesAndImagesOfOtherFormatsStayInTheFolder) {
    const std::string triangle = "v 0 0 0\nv 1 0 0\nv 1 1 0\nusemtl Canary\nf 1 2 3\n";
    for(const std::string& name: {std::string{"../canary.mtl"}, folder.path("canary.mtl")}) {
        const ImportResult result = import("a.obj", "mtllib " + name + '\n' + triangle);
        ASSERT_TRUE(result.isDone()) << result.text();
        EXPECT_NE(numbers(result.only("materials")["Lit"]["baseColor"])[0], 1.0f) << name;
        EXPECT_TRUE(result.hasWarning("canary.mtl\" is left out")) << result.text();
    }
    for(const std::string& name: {std::string{"../canary.tga"}, folder.path("canary.tga")}) {
        VantrelTest::writeFile(model("m.mtl"), "newmtl Canary\nKd 1 1 1\nmap_Kd " + name + '\n');
        const ImportResult result = import("a.obj", "mtllib m.mtl\n" + triangle);
        ASSERT_TRUE(result.isDone()) << result.text();
        EXPECT_STREQ(result.only("materials")["name"].GetString(), "Canary");
        EXPECT_EQ(result.count("images"), 0u) << name;
        EXPECT_FALSE(isCanaryIn(result)) << name;
    }
}

TEST_F(HostileFileTest, OnlyRegularFilesAreRead) {
    ASSERT_EQ(mkfifo(model("pipe.tga").data(), 0600), 0);
    ASSERT_EQ(mkfifo(model("pipe.obj").data(), 0600), 0);
    fs::create_directory(model("folder.obj"));
    EXPECT_TRUE(importWithImage("pipe.tga").hasWarning("this is not a regular file"));
    EXPECT_EQ(run("pipe.obj").error(), "this is not a regular file");
    EXPECT_EQ(run("folder.obj").error(), "this is not a regular file");
    EXPECT_THAT(run("missing.obj").error(), HasSubstr("No such file"));
}

TEST_F(HostileFileTest, WhatIsNoModelIsRefusedInOneLine) {
    const auto errorOf = [&](const std::string& name, const std::string& contents) {
        const ImportResult result = import(name, contents);
        EXPECT_TRUE(WIFEXITED(result.status) && WEXITSTATUS(result.status) == 1) << name << '\n' << result.text();
        EXPECT_FALSE(result.json.IsObject()) << name;
        EXPECT_EQ(result.lines.back(), "error " + result.error());
        return result.error();
    };
    EXPECT_EQ(errorOf("a.glb", ""), "the file is empty");
    EXPECT_EQ(errorOf("a.dae", "PK\x03\x04 and so on"), "archives are not read");
    EXPECT_THAT(errorOf("a.3mf", "PK\x03\x04"), HasSubstr("\".3mf\""));
    EXPECT_THAT(errorOf("a.zae", "PK\x03\x04"), HasSubstr("\".zae\""));
    EXPECT_THAT(errorOf("a.blend", "BLENDER"), HasSubstr("\".blend\""));
    EXPECT_THAT(errorOf("model", "x"), HasSubstr("cannot be imported"));
    EXPECT_THAT(errorOf("a.gltf", "{"), HasSubstr("JSON is damaged at byte"));
    EXPECT_EQ(errorOf("a.gltf", "[]"), "its JSON is no object");
    EXPECT_THAT(errorOf("a.gltf", "{}"), HasSubstr("names no version"));
    EXPECT_EQ(errorOf("a.gltf", R"({"asset":{"version":"1.0"},"scenes":{}})"),
        "this is version \"1.0\" of glTF; version 2 can be read");
    EXPECT_EQ(errorOf("a.glb", std::string{"glTF\x01\0\0\0\x14\0\0\0\0\0\0\0\0\0\0\0", 20}),
        "this is version 1 of glTF; version 2 can be read");
    EXPECT_EQ(errorOf("a.glb", std::string{"glTF\x02\0\0\0", 8}), "the file is truncated");
    EXPECT_EQ(errorOf("a.gltf", R"({"asset":{"version":"2.0"}})"), "it has no scene with objects");
    EXPECT_EQ(errorOf("a.gltf", triangleGltf(R"(,"extensionsRequired":["KHR_draco_mesh_compression"])")),
        "it needs the extension \"KHR_draco_mesh_compression\", which is not supported");
    EXPECT_EQ(errorOf("a.ply", "ply\nformat ascii 1.0\nelement vertex 3\n"), "its header has no end");
    EXPECT_THAT(errorOf("a.png", "no image"), HasSubstr("this is not a PNG"));
    for(const char* const name: {"a.obj", "a.fbx", "a.ply", "a.stl", "a.dae"})
        EXPECT_NE(errorOf(name, "nonsense"), "") << name;
}

TEST_F(HostileFileTest, NamesAreNoLinesAndNoText) {
    const ImportResult result = import("a.gltf",
        triangleGltf(
            ",\"materials\":[{\"name\":\"x\\ndone\\u0000\\u001b[2J\\u2028\",\"extensions\":{\"EXT\\nerror y\":{}}}]",
            R"("nodes":[{"name":"\ndone\n","mesh":0},{"name":"\u0007\t"}])"));
    ASSERT_TRUE(result.isDone()) << result.text();
    for(const std::string& line: result.lines) {
        EXPECT_TRUE(line.rfind("progress ", 0) == 0 || line.rfind("warning ", 0) == 0 || &line == &result.lines.back())
            << line;
        for(const char c: line) EXPECT_GE(static_cast<unsigned char>(c), 0x20) << line;
    }
    EXPECT_TRUE(result.hasWarning("EXT error y")) << result.text();
    for(const auto& entry: result.json["objects"].GetObject())
        for(const char c: std::string{entry.value["name"].GetString()}) EXPECT_GE(static_cast<unsigned char>(c), 0x20);
    result.named("objects", "Object 2");
}

TEST_F(HostileFileTest, SizesBeyondEverything) {
    const auto withAccessor = [&](const std::string& accessor) {
        return import("a.gltf",
            R"({"asset":{"version":"2.0"},"nodes":[{"mesh":0}],"buffers":[{"byteLength":4294967296,"uri":"data:;base64,AAAA"}],)"
            R"("bufferViews":[{"buffer":0,"byteLength":3},{"buffer":0,"byteOffset":18446744073709551615,"byteLength":18446744073709551615}],)"
            R"("accessors":[{"type":"VEC3","componentType":5126,)" +
                accessor + R"(}],"meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}]})",
            {"--seconds", "10"});
    };
    for(const char* const accessor: {R"("bufferView":0,"count":2147483647)", R"("bufferView":1,"count":1)",
            R"("bufferView":0,"count":18446744073709551615)",
            R"("bufferView":0,"byteOffset":18446744073709551615,"count":1)",
            R"("count":2147483647,"sparse":{"count":2147483647})",
            R"("count":3,"sparse":{"count":1,"indices":{"bufferView":0,"componentType":5121},"values":{"bufferView":1}})"}) {
        const ImportResult result = withAccessor(accessor);
        EXPECT_TRUE(result.isDone()) << accessor << '\n' << result.text();
        EXPECT_TRUE(result.hasWarning("mesh \"Mesh 1\" is left out")) << accessor << '\n' << result.text();
    }
}

TEST_F(HostileFileTest, DepthIsNoProblem) {
    std::string deep(200000, '[');
    EXPECT_THAT(import("a.gltf", deep).error(), HasSubstr("JSON is damaged"));
    deep = "{\"asset\":{\"version\":\"2.0\"},\"extras\":" + std::string(200000, '[') + std::string(200000, ']') +
        ",\"nodes\":[{}]}";
    EXPECT_TRUE(import("a.gltf", deep).isDone());
}

TEST_F(HostileFileTest, ManyWarningsAreCounted) {
    std::string nodes;
    for(int i = 0; i != 2000; ++i) nodes += (i ? "," : "") + std::string{R"({"scale":[0,0,0],"rotation":[0,0,0,0]})"};
    const ImportResult result = import("a.gltf", triangleGltf({}, "\"nodes\":[{\"mesh\":0}," + nodes + ']'));
    ASSERT_TRUE(result.isDone());
    EXPECT_EQ(result.texts("warning").size(), 301u);
    EXPECT_TRUE(result.hasWarning("and 1700 more"));
}

TEST_F(HostileFileTest, LittleMemoryEndsInALine) {
#if !defined(__SANITIZE_ADDRESS__)
    std::string numbers;
    for(int i = 0; i != 3000000; ++i) numbers += "1,";
    const ImportResult result = import("a.gltf",
        "{\"asset\":{\"version\":\"2.0\"},\"extras\":[" + numbers + "1],\"nodes\":[{}]}", {"--memory", "67108864"});
    EXPECT_FALSE(result.isDone());
    EXPECT_FALSE(result.json.IsObject());
#endif
    // With what it has usually the same is no problem.
    EXPECT_TRUE(import("b.gltf", triangleGltf()).isDone());
}

// Each of its files is small, and all together are not.
TEST_F(HostileFileTest, AllThatIsWrittenHasALimit) {
    VantrelTest::writeFile(model("a.gltf"), triangleGltf());
    const auto limited = [&](int bytes) {
        return runConverter(model("a.gltf"), folder.path().string(), {"--output-bytes", std::to_string(bytes)});
    };
    const ImportResult free = limited(1000000);
    ASSERT_TRUE(free.isDone()) << free.text();
    std::uintmax_t size = 0;
    for(const auto& entry: fs::recursive_directory_iterator{free.folder})
        if(entry.is_regular_file()) size += entry.file_size();
    EXPECT_TRUE(limited(int(size)).isDone());
    const ImportResult full = limited(int(size) - 1);
    EXPECT_EQ(full.error(), "it becomes larger than " + std::to_string(size - 1) + " bytes") << full.text();
    EXPECT_TRUE(full.json.IsNull());
    EXPECT_EQ(limited(10).error(), "it becomes larger than 10 bytes");
}

TEST_F(HostileFileTest, ImagesByThemselves) {
    const ImportResult image = import("My pic.PNG", pngPixel());
    ASSERT_TRUE(image.isDone()) << image.text();
    EXPECT_STREQ(image.only("images")["name"].GetString(), "My pic.PNG");
    EXPECT_STREQ(image.only("textures")["name"].GetString(), "My pic.PNG");
    EXPECT_EQ(image.only("textures")["image"].GetString(), image.idOf("images", "My pic.PNG"));
    EXPECT_EQ(image.file(image.only("images")), pngPixel());
    EXPECT_FALSE(image.json.HasMember("environment"));

    const ImportResult sky = import("sky.hdr", "#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n\n-Y 1 +X 1\n\x80\x80\x80\x80");
    ASSERT_TRUE(sky.isDone()) << sky.text();
    EXPECT_EQ(sky.json["environment"].GetString(), sky.idOf("images", "sky.hdr"));
    EXPECT_STREQ(sky.only("images")["colorSpace"].GetString(), "linear");
}

TEST_F(HostileFileTest, AChosenLinkMeansWhatItLeadsTo) {
    VantrelTest::writeFile(folder.path("elsewhere.gltf"), triangleGltf());
    fs::create_symlink("../elsewhere.gltf", model("link.gltf"));
    EXPECT_TRUE(run("link.gltf").isDone());
    VantrelTest::writeFile(model("v1: final.gltf"), triangleGltf());
    EXPECT_TRUE(run("v1: final.gltf").isDone());
}

} // namespace

} // namespace VantrelImport::Test
