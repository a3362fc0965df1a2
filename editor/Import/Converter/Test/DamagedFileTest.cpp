#include <algorithm>
#include <atomic>
#include <random>
#include <thread>

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "Data/Resources/AnimationFile.h"
#include "Data/Resources/ImageFile.h"
#include "Data/Resources/MeshFile.h"
#include "Data/Resources/SkinFile.h"
#include "Data/Resources/Test/GlbBuilder.h"
#include "Import/Converter/Test/BinaryFbx.h"
#include "Import/Converter/Test/ConverterFixture.h"
#include "Import/Converter/Test/GltfText.h"
#include "Import/Converter/Test/ModelTexts.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;
using VantrelEngine::Test::view;

struct Damaged {
    std::string name, bytes;
};

// A GLB file with everything that is read of one.
std::string richGlb() {
    using namespace VantrelEngine::Test;
    GlbBuilder builder;
    builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0});
    builder.add(UnsignedShort, "SCALAR", 1, std::vector<std::uint16_t>{0, 1, 2});
    builder.add(UnsignedByte, "VEC4", 4, std::vector<std::uint8_t>{0, 1, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    builder.add(Float, "VEC4", 4, std::vector<float>{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    builder.add(Float, "MAT4", 16, std::vector<float>(32, 1.0f));
    builder.add(Float, "SCALAR", 1, std::vector<float>{0, 1, 2});
    builder.add(Float, "VEC2", 2, std::vector<float>{0, 0, 1, 0, 0, 1});
    return builder.file(
        R"("scene":0,"scenes":[{"nodes":[0,1]}],"nodes":[{"mesh":0,"skin":0},{"children":[2],"rotation":[0,0,0,1]},)"
        R"({"matrix":[1,0,0,0,0,1,0,0,0,0,1,0,0,0,0,1],"extensions":{"KHR_lights_punctual":{"light":0}},"camera":0}],)"
        R"("meshes":[{"primitives":[{"indices":1,"material":0,"attributes":{"POSITION":0,"JOINTS_0":2,"WEIGHTS_0":3,"TEXCOORD_0":6}}]}],)"
        R"("skins":[{"joints":[1,2],"inverseBindMatrices":4}],"cameras":[{"perspective":{"yfov":1,"znear":0.1}}],)"
        R"("animations":[{"samplers":[{"input":5,"output":0}],"channels":[{"sampler":0,"target":{"node":1,"path":"scale"}}]}],)"
        R"("materials":[{"alphaMode":"MASK","pbrMetallicRoughness":{"baseColorTexture":{"index":0,"extensions":{"KHR_texture_transform":{"scale":[2,2]}}}}}],)"
        R"("textures":[{"source":0,"sampler":0}],"samplers":[{"wrapS":33071}],"images":[{"uri":")" +
        std::string{PngUri} +
        R"("}],)"
        R"("extensions":{"KHR_lights_punctual":{"lights":[{"type":"spot"}]}})");
}

// Cut off at many lengths, and with a few bits or bytes changed; each is the same in every run.
std::vector<Damaged> damaged(const std::string& name, const std::string& bytes, int cuts, int flips) {
    std::vector<Damaged> files;
    for(int i = 0; i != cuts; ++i)
        files.push_back({name, bytes.substr(0, bytes.size() * std::size_t(i) / std::size_t(cuts))});
    std::mt19937 random{std::mt19937::result_type(bytes.size())};
    for(int i = 0; i != flips; ++i) {
        std::string changed = bytes;
        for(int j = 0; j <= i % 4; ++j) {
            char& byte = changed[random() % changed.size()];
            byte = i % 3 == 0 ? char(byte ^ 1 << random() % 8)
                : i % 3 == 1  ? "0987-\0\x7f\xff"[random() % 8]
                              : char(random());
        }
        files.push_back({name, changed});
    }
    return files;
}

std::vector<Damaged> allDamaged() {
    std::vector<Damaged> files;
    for(const Damaged& model: {Damaged{"a.glb", richGlb()}, Damaged{"a.gltf", triangleGltf(R"(,"materials":[{}])")},
            Damaged{"a.obj", ObjText}, Damaged{"a.ply", PlyText}, Damaged{"a.stl", StlText},
            Damaged{"b.stl", binaryStl()}, Damaged{"a.dae", SkinnedDaeText}, Damaged{"a.fbx", FbxText},
            Damaged{"b.fbx", binaryFbx()}, Damaged{"a.png", pngPixel()}, Damaged{"a.tga", tgaPixel(1, 2, 3)}})
        for(Damaged& file: damaged(model.name, model.bytes, 14, model.name == "a.glb" ? 100 : 20))
            files.push_back(std::move(file));
    return files;
}

template<class Reader> void expectReadable(const ImportResult& result, const char* section, Reader&& reader) {
    for(const auto& entry: result.json[section].GetObject()) {
        std::string reason;
        const std::string bytes = result.file(entry.value);
        EXPECT_TRUE(reader(view(bytes), reason)) << section << ": " << reason << '\n' << result.text();
    }
}

enum class End { Done, Refused, Killed };

// Whatever is in the file: an import that can be used, one line, or an end by the system.
End expectOrderlyEnd(const ImportResult& result) {
    const std::size_t errors = result.texts("error").size();
    const bool isDone = !result.lines.empty() && result.lines.back() == "done";
    EXPECT_EQ(result.json.IsObject(), isDone) << result.text();
    if(WIFSIGNALED(result.status)) {
        EXPECT_TRUE(errors == 0 && !isDone) << result.text();
        return End::Killed;
    }
    EXPECT_EQ(errors, isDone ? 0u : 1u) << result.text();
    EXPECT_EQ(WEXITSTATUS(result.status), isDone ? 0 : 1) << result.text();
    if(!isDone) return End::Refused;
    expectReadable(result, "meshes", VantrelEngine::readMesh);
    expectReadable(result, "skins", VantrelEngine::readSkin);
    expectReadable(result, "animations", VantrelEngine::readAnimation);
    expectReadable(result, "images", VantrelEngine::readImage);
    return End::Done;
}

TEST(DamagedFileTest, EndsInOneOfThreeWays) {
    const VantrelTest::TestFolder folder;
    const std::vector<Damaged> files = allDamaged();
    std::atomic<std::size_t> next{0};
    std::atomic<int> ends[3]{};
    const auto work = [&] {
        for(std::size_t i; (i = next++) < files.size();) {
            const std::string below = folder.path("case" + std::to_string(i));
            std::filesystem::create_directories(below + "/models");
            const std::string file = below + "/models/" + files[i].name;
            VantrelTest::writeFile(file, files[i].bytes);
            SCOPED_TRACE(std::to_string(i) + ": " + files[i].name);
            const ImportResult result = runConverter(file, below, {"--seconds", "1", "--memory", "1073741824"});
            ++ends[int(expectOrderlyEnd(result))];
            std::filesystem::remove_all(below);
        }
    };
    std::vector<std::thread> threads;
    for(unsigned i = 0; i != std::max(2u, std::thread::hardware_concurrency()); ++i) threads.emplace_back(work);
    for(std::thread& thread: threads) thread.join();
    RecordProperty("done", ends[0]);
    RecordProperty("refused", ends[1]);
    RecordProperty("killed", ends[2]);
    std::printf("%d done, %d refused, %d ended by the system\n", int(ends[0]), int(ends[1]), int(ends[2]));
    // Damage of both kinds: what can be lived with, and what cannot.
    EXPECT_GT(ends[0], int(files.size() / 10));
    EXPECT_GT(ends[1], int(files.size() / 10));
}

TEST(DamagedFileTest, WithoutDamageEachOfThemArrives) {
    const VantrelTest::TestFolder folder;
    for(const Damaged& model: {Damaged{"a.glb", richGlb()}, Damaged{"b.fbx", binaryFbx()}}) {
        VantrelTest::writeFile(folder.path(model.name), model.bytes);
        const ImportResult result = runConverter(folder.path(model.name), folder.path().string());
        ASSERT_TRUE(result.isDone()) << result.text();
        EXPECT_EQ(result.count("meshes"), 1u) << model.name << result.text();
        EXPECT_EQ(int(expectOrderlyEnd(result)), int(End::Done));
    }
}

} // namespace

} // namespace VantrelImport::Test
