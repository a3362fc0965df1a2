#include <algorithm>
#include <cstring>
#include <filesystem>

#include <gmock/gmock.h>

#include "Data/Resources/AnimationFile.h"
#include "Data/Resources/MeshFile.h"
#include "Data/Resources/SkinFile.h"
#include "Data/Resources/Test/GlbBuilder.h"
#include "Import/Converter/Test/ConverterFixture.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;
using VantrelEngine::Test::view;

// The models of VANTREL_ASSETS: what is in the file beside what arrives.
std::vector<std::string> filesWith(const std::vector<std::string>& extensions) {
    std::vector<std::string> files;
    for(const auto& entry: std::filesystem::recursive_directory_iterator{VANTREL_ASSETS})
        for(const std::string& extension: extensions)
            if(entry.path().extension() == extension) files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

JsonDocument gltfJson(const std::string& file) {
    std::string text = VantrelTest::readFile(file);
    if(text.compare(0, 4, "glTF") == 0) {
        std::uint32_t size = 0;
        std::memcpy(&size, text.data() + 12, 4);
        text = text.substr(20, size);
    }
    JsonDocument json;
    json.Parse(text.data(), text.size());
    EXPECT_FALSE(json.HasParseError()) << file;
    return json;
}

std::size_t count(const JsonValue& json, const char* list) { return json.HasMember(list) ? json[list].Size() : 0; }

// Of the nodes, which may share meshes.
std::size_t triangles(const JsonValue& json) {
    std::size_t corners = 0;
    for(const JsonValue& node: json["nodes"].GetArray()) {
        if(!node.HasMember("mesh")) continue;
        for(const JsonValue& primitive: json["meshes"][node["mesh"].GetUint()]["primitives"].GetArray()) {
            const auto accessor = primitive.HasMember("indices") ? primitive["indices"].GetUint()
                                                                 : primitive["attributes"]["POSITION"].GetUint();
            corners += json["accessors"][accessor]["count"].GetUint();
        }
    }
    return corners / 3;
}

// Of the components of the objects, so that a mesh that several of the file's became counts for each.
std::size_t triangles(const ImportResult& result) {
    std::size_t corners = 0;
    for(const auto& object: result.json["objects"].GetObject())
        for(const JsonValue& component: object.value["components"].GetArray()) {
            if(std::strcmp(component["type"].GetString(), "mesh") != 0) continue;
            std::string reason;
            const std::string bytes = result.file(result.json["meshes"][component["mesh"]["mesh"].GetString()]);
            const auto mesh = VantrelEngine::readMesh(view(bytes), reason);
            EXPECT_TRUE(mesh) << reason;
            if(mesh) corners += mesh->indexCount();
        }
    return corners / 3;
}

TEST(AssetsTest, EverythingOfEachGltfFileArrives) {
    const VantrelTest::TestFolder folder;
    const std::vector<std::string> files = filesWith({".glb", ".gltf"});
    EXPECT_FALSE(files.empty());
    for(const std::string& file: files) {
        SCOPED_TRACE(file);
        const JsonDocument json = gltfJson(file);
        const ImportResult result = runConverter(file, folder.path().string());
        ASSERT_TRUE(result.isDone()) << result.text();
        EXPECT_THAT(result.texts("warning"), IsEmpty());
        EXPECT_EQ(result.count("objects"), count(json, "nodes") + 1);
        EXPECT_EQ(result.count("materials"), std::max<std::size_t>(count(json, "materials"), 1));
        EXPECT_EQ(result.count("images"), count(json, "images"));
        EXPECT_EQ(result.count("textures"), count(json, "textures"));
        EXPECT_EQ(triangles(result), triangles(json));
        ASSERT_EQ(result.count("skins"), count(json, "skins"));
        for(std::size_t i = 0; i != count(json, "skins"); ++i) {
            const JsonValue& skin = result.json["skins"][("skin" + std::to_string(i)).data()];
            std::string reason;
            const std::string bytes = result.file(skin);
            const auto matrices = VantrelEngine::readSkin(view(bytes), reason);
            ASSERT_TRUE(matrices) << reason;
            EXPECT_EQ(matrices->size(), json["skins"][rapidjson::SizeType(i)]["joints"].Size());
            EXPECT_EQ(skin["joints"].Size(), matrices->size());
        }
        ASSERT_EQ(result.count("animations"), count(json, "animations"));
        for(std::size_t i = 0; i != count(json, "animations"); ++i) {
            std::string reason;
            const std::string bytes = result.file(result.json["animations"][("animation" + std::to_string(i)).data()]);
            const auto animation = VantrelEngine::readAnimation(view(bytes), reason);
            ASSERT_TRUE(animation) << reason;
            EXPECT_EQ(animation->trackCount(), json["animations"][rapidjson::SizeType(i)]["channels"].Size());
        }
    }
}

TEST(AssetsTest, EveryOtherModelAndImageArrives) {
    const VantrelTest::TestFolder folder;
    const std::vector<std::string> files = filesWith({".obj", ".fbx", ".dae", ".ply", ".stl", ".png", ".hdr"});
    EXPECT_FALSE(files.empty());
    for(const std::string& file: files) {
        const ImportResult result = runConverter(file, folder.path().string());
        ASSERT_TRUE(result.isDone()) << file << '\n' << result.text();
        EXPECT_THAT(result.texts("warning"), IsEmpty()) << file;
        EXPECT_GT(result.count("meshes") + result.count("images"), 0u) << file;
        for(const auto& mesh: result.json["meshes"].GetObject()) {
            std::string reason;
            const std::string bytes = result.file(mesh.value);
            EXPECT_TRUE(VantrelEngine::readMesh(view(bytes), reason)) << file << ": " << reason;
        }
    }
}

} // namespace

} // namespace VantrelImport::Test
