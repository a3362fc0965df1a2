#include <cmath>
#include <limits>

#include <Magnum/Math/Quaternion.h>
#include <gmock/gmock.h>

#include "Data/Resources/AnimationFile.h"
#include "Data/Resources/SkinFile.h"
#include "Data/Resources/Test/GlbBuilder.h"
#include "Import/Converter/Test/ConverterFixture.h"
#include "Import/Converter/Test/GltfText.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;
using VantrelEngine::Test::GlbBuilder;
using VantrelEngine::Test::view;
using Magnum::Quaternion;
using Magnum::Vector3;
namespace Trade = Magnum::Trade;

constexpr auto FloatType = VantrelEngine::Test::Float;

class GltfSceneTest: public ConverterTest {
public:
    ImportResult importScene(const std::string& scene, const std::string& more = {}) const {
        return import("a.gltf", triangleGltf(more, scene));
    }
};

std::string parentOf(const ImportResult& result, const std::string& object) {
    const std::string parent = result.named("objects", object)["parent"].GetString();
    return parent.empty() ? std::string{} : std::string{result.json["objects"][parent.data()]["name"].GetString()};
}

std::vector<float> placeOf(const ImportResult& result, const std::string& object, const char* key) {
    return numbers(result.named("objects", object)[key]);
}

TEST_F(GltfSceneTest, ObjectsHangTogetherBelowOneThatIsNamedAfterTheFile) {
    const ImportResult result = import("My model.v2.gltf",
        triangleGltf({},
            R"("scene":1,"scenes":[{"nodes":[0]},{"nodes":[1,3]}],"nodes":[{"name":"Other"},{"name":"A","children":[2]},
        {"name":"B"},{"mesh":0},{"name":"Loose"}])"));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_STREQ(result.json["name"].GetString(), "My model.v2");
    EXPECT_EQ(result.count("objects"), 4u);
    EXPECT_EQ(parentOf(result, "My model.v2"), "");
    EXPECT_EQ(parentOf(result, "A"), "My model.v2");
    EXPECT_EQ(parentOf(result, "B"), "A");
    // Named after its mesh.
    EXPECT_EQ(parentOf(result, "Shape"), "My model.v2");
    EXPECT_TRUE(result.hasWarning("2 scenes")) << result.text();
}

TEST_F(GltfSceneTest, WithoutScenesWhateverIsNobodysChild) {
    const ImportResult result = importScene(R"("nodes":[{"name":"B"},{"name":"A","children":[0]},{}])");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(parentOf(result, "A"), "a");
    EXPECT_EQ(parentOf(result, "B"), "A");
    EXPECT_EQ(parentOf(result, "Object 3"), "a");
}

TEST_F(GltfSceneTest, PlacesAreKeptAndMatricesTakenApart) {
    const ImportResult result = importScene(R"("scenes":[{"nodes":[0,1,2,3]}],"nodes":[
        {"name":"Parts","translation":[1,2,3],"rotation":[0,0,2,0],"scale":[1,-2,3]},
        {"name":"Matrix","matrix":[0,2,0,0, -3,0,0,0, 0,0,4,0, 5,6,7,1]},
        {"name":"Mirror","matrix":[-2,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,0,1]},
        {"name":"Shear","matrix":[1,0,0,0, 1,1,0,0, 0,0,1,0, 0,0,0,1]}])");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_THAT(placeOf(result, "Parts", "translation"), ElementsAre(1, 2, 3));
    EXPECT_THAT(placeOf(result, "Parts", "rotation"), ElementsAre(0, 0, 1, 0));
    EXPECT_THAT(placeOf(result, "Parts", "scaling"), ElementsAre(1, -2, 3));
    const float half = std::sqrt(0.5f);
    EXPECT_THAT(placeOf(result, "Matrix", "translation"), ElementsAre(5, 6, 7));
    EXPECT_THAT(placeOf(result, "Matrix", "rotation"), Pointwise(FloatNear(1e-6f), {0.0f, 0.0f, half, half}));
    EXPECT_THAT(placeOf(result, "Matrix", "scaling"), ElementsAre(2, 3, 4));
    EXPECT_THAT(placeOf(result, "Mirror", "scaling"), ElementsAre(-2, 1, 1));
    EXPECT_THAT(placeOf(result, "Mirror", "rotation"), ElementsAre(0, 0, 0, 1));
    EXPECT_THAT(result.texts("warning"),
        ElementsAre(
            "object \"Shear\": its shear is left out", "there is nothing in it but objects without components"));
    EXPECT_THAT(placeOf(result, "Shear", "rotation"), ElementsAre(0, 0, 0, 1));
}

TEST_F(GltfSceneTest, PlacesThatAreNoneAreRepaired) {
    const ImportResult result = importScene(R"("scenes":[{"nodes":[0,1,2]}],"nodes":[
        {"name":"Turned","translation":[1,1e300,3],"rotation":[0,0,0,0],"scale":["x",2,2]},
        {"name":"Flat","matrix":[0,0,0,0, 0,0,0,0, 0,0,0,0, 1,2,3,1]},
        {"name":"Tiny","matrix":[0,1e-21,0,0, -1e-21,0,0,0, 0,0,1e-21,0, 1,2,3,1]}])");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_THAT(placeOf(result, "Turned", "translation"), ElementsAre(1, 0, 3));
    EXPECT_THAT(placeOf(result, "Turned", "rotation"), ElementsAre(0, 0, 0, 1));
    EXPECT_THAT(placeOf(result, "Turned", "scaling"), ElementsAre(1, 2, 2));
    EXPECT_TRUE(result.hasWarning("\"Turned\": its place")) << result.text();
    EXPECT_THAT(placeOf(result, "Flat", "translation"), ElementsAre(1, 2, 3));
    EXPECT_THAT(placeOf(result, "Flat", "scaling"), ElementsAre(0, 0, 0));
    const float half = std::sqrt(0.5f);
    EXPECT_THAT(placeOf(result, "Tiny", "rotation"), Pointwise(FloatNear(1e-6f), {0.0f, 0.0f, half, half}));
}

TEST_F(GltfSceneTest, CyclesAndSecondParentsAreCut) {
    const ImportResult result =
        importScene(R"("scenes":[{"nodes":[0,3]}],"nodes":[{"name":"A","children":[1,7,2147483647,-1]},
        {"name":"B","children":[0,2]},{"name":"C"},{"name":"D","children":[2,3]}])");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_EQ(result.count("objects"), 5u);
    EXPECT_EQ(parentOf(result, "C"), "B");
    EXPECT_EQ(parentOf(result, "D"), "a");
    EXPECT_TRUE(result.hasWarning("object \"A\" is its own ancestor or has two parents")) << result.text();
    EXPECT_TRUE(result.hasWarning("object \"C\" is its own")) << result.text();
    EXPECT_TRUE(result.hasWarning("object 8 is not there")) << result.text();
}

TEST_F(GltfSceneTest, AChainAsLongAsAProjectTakes) {
    constexpr int Count = 70000;
    std::string nodes;
    for(int i = 0; i != Count; ++i)
        nodes +=
            (i ? ",{" : "{") + (i + 1 == Count ? std::string{} : "\"children\":[" + std::to_string(i + 1) + "]") + '}';
    const ImportResult result = importScene("\"scenes\":[{\"nodes\":[0]}],\"nodes\":[" + nodes + ']');
    ASSERT_TRUE(result.isDone()) << result.text().substr(0, 2000);
    EXPECT_EQ(result.count("objects"), 65534u);
    EXPECT_TRUE(result.hasWarning("of 70000 objects only 65533 are imported")) << result.text().substr(0, 2000);
}

TEST_F(GltfSceneTest, LightsShineWhereTheyDid) {
    const ImportResult result = importScene(R"("scenes":[{"nodes":[0,1,2]}],"nodes":[
        {"name":"Sun","extensions":{"KHR_lights_punctual":{"light":0}}},
        {"name":"Bulb","extensions":{"KHR_lights_punctual":{"light":1}}},
        {"name":"Torch","extensions":{"KHR_lights_punctual":{"light":2}}}])",
        R"(,"extensions":{"KHR_lights_punctual":{"lights":[{"type":"directional","intensity":3,"color":[1,0.5,0.25]},
        {"type":"point","intensity":40},{"type":"spot","spot":{"innerConeAngle":0.5,"outerConeAngle":1}}]}})");
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_THAT(result.texts("warning"), IsEmpty());
    const JsonValue& sun = result.component("Sun Light", "light");
    EXPECT_STREQ(sun["type"].GetString(), "sun");
    EXPECT_EQ(sun["intensity"].GetFloat(), 3.0f);
    EXPECT_THAT(numbers(sun["color"]), ElementsAre(1, 0.5f, 0.25f));
    EXPECT_EQ(parentOf(result, "Sun Light"), "Sun");
    // From -Y of the light to -Z of the object.
    const std::vector<float> turn = placeOf(result, "Sun Light", "rotation");
    const Vector3 shines = Quaternion{{turn[0], turn[1], turn[2]}, turn[3]}.transformVector({0, -1, 0});
    EXPECT_NEAR(shines.z(), -1.0f, 1e-6f);
    const JsonValue& bulb = result.component("Bulb", "light");
    EXPECT_STREQ(bulb["type"].GetString(), "point");
    EXPECT_EQ(bulb["intensity"].GetFloat(), 40.0f);
    const JsonValue& torch = result.component("Torch Light", "light");
    EXPECT_STREQ(torch["type"].GetString(), "spot");
    EXPECT_NEAR(torch["innerAngle"].GetFloat(), 28.6479f, 1e-3f);
    EXPECT_NEAR(torch["outerAngle"].GetFloat(), 57.2958f, 1e-3f);
}

// Beside a triangle with edges of 1, 1 and the root of 2, twice as large.
TEST_F(GltfSceneTest, LightsThrowShadowsAsFarAsTheyReach) {
    const auto lit = [&](const std::string& more, const std::string& nodes) {
        return import("a.gltf",
            triangleGltf(R"(,"extensions":{"KHR_lights_punctual":{"lights":[{"type":"directional"},)"
                         R"({"type":"point","range":7},{"type":"spot"}]}})",
                R"("scenes":[{"nodes":[0,1,2,3,4)" + more +
                    R"(]}],"nodes":[{"name":"Thing","mesh":0,"scale":[2,2,2]})" + nodes));
    };
    const auto node = [](const std::string& name, int light) {
        return R"(,{"name":")" + name + R"(","extensions":{"KHR_lights_punctual":{"light":)" + std::to_string(light) +
            "}}}";
    };
    const std::string four = node("Sun", 0) + node("Other", 0) + node("Bulb", 1) + node("Torch", 2);
    const ImportResult few = lit("", four + ']');
    ASSERT_TRUE(few.isDone()) << few.text();
    const auto expectShadows = [](const ImportResult& result, const char* name, bool has, float range) {
        const JsonValue& light = result.component(name, "light");
        EXPECT_EQ(light["shadows"].GetBool(), has) << name;
        EXPECT_NEAR(light["shadowRange"].GetFloat(), range, 1e-4f) << name;
    };
    const float diagonal = std::sqrt(8.0f);
    expectShadows(few, "Sun Light", true, 2.0f * diagonal);
    expectShadows(few, "Other Light", false, 2.0f * diagonal);
    expectShadows(few, "Bulb", true, 7.0f);
    expectShadows(few, "Torch Light", false, diagonal);
    EXPECT_EQ(few.component("Sun Light", "light")["cascadeCount"].GetInt(), 3);
    // Five are many.
    const ImportResult many = lit(",5", four + node("Fifth", 1) + ']');
    ASSERT_TRUE(many.isDone()) << many.text();
    expectShadows(many, "Sun Light", true, 2.0f * diagonal);
    expectShadows(many, "Bulb", false, 7.0f);
}

TEST_F(GltfSceneTest, Cameras) {
    const ImportResult result =
        importScene(R"("scenes":[{"nodes":[0,1,2]}],"nodes":[{"name":"Near","camera":0},{"name":"Far","camera":1},
        {"name":"Map","camera":2}])",
            R"(,"cameras":[{"type":"perspective","perspective":{"yfov":1,"znear":0.5,"zfar":20}},
        {"type":"perspective","perspective":{"yfov":0.5,"aspectRatio":2,"znear":0.1}},{"type":"orthographic","orthographic":{}}])");
    ASSERT_TRUE(result.isDone()) << result.text();
    const JsonValue& near = result.component("Near", "view");
    // Across the picture: 2 * atan(tan(yfov / 2) * aspect), of 16 by 9 where the file does not say.
    EXPECT_NEAR(near["fov"].GetFloat(), 88.3262f, 1e-3f);
    EXPECT_NEAR(result.component("Far", "view")["fov"].GetFloat(), 54.1053f, 1e-3f);
    EXPECT_EQ(near["near"].GetFloat(), 0.5f);
    EXPECT_EQ(near["far"].GetFloat(), 20.0f);
    EXPECT_EQ(result.component("Far", "view")["far"].GetDouble(), 1e39);
    EXPECT_TRUE(result.hasWarning("\"Map\": its camera without perspective")) << result.text();
}

std::string skinned(const std::string& joints) {
    GlbBuilder builder;
    builder.add(FloatType, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0});
    builder.add(
        VantrelEngine::Test::UnsignedShort, "VEC4", 4, std::vector<std::uint16_t>{0, 1, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    builder.add(FloatType, "VEC4", 4, std::vector<float>{0.5f, 0.5f, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    std::vector<float> matrices(32);
    for(std::size_t i = 0; i != 4; ++i) matrices[i * 5] = matrices[16 + i * 5] = 1;
    matrices[28] = -3;
    builder.add(FloatType, "MAT4", 16, matrices);
    return builder.file(
        R"("scenes":[{"nodes":[0,1]}],"nodes":[{"name":"Body","mesh":0,"skin":0},{"name":"Hip","children":[2]},{"name":"Knee"}],)"
        R"("meshes":[{"primitives":[{"attributes":{"POSITION":0,"JOINTS_0":1,"WEIGHTS_0":2}}]}],)"
        R"("skins":[{"name":"Bones","inverseBindMatrices":3,"joints":[)" +
        joints + "]}]");
}

TEST_F(GltfSceneTest, Skins) {
    const ImportResult result = import("a.glb", skinned("1,2"));
    ASSERT_TRUE(result.isDone()) << result.text();
    const JsonValue& skin = result.named("skins", "Bones");
    ASSERT_EQ(skin["joints"].Size(), 2u);
    EXPECT_EQ(skin["joints"][0].GetString(), result.idOf("objects", "Hip"));
    EXPECT_EQ(skin["joints"][1].GetString(), result.idOf("objects", "Knee"));
    EXPECT_EQ(result.component("Body", "mesh")["skin"].GetString(), result.idOf("skins", "Bones"));
    std::string reason;
    const std::string bytes = result.file(skin);
    const auto matrices = VantrelEngine::readSkin(view(bytes), reason);
    ASSERT_TRUE(matrices) << reason;
    ASSERT_EQ(matrices->size(), 2u);
    EXPECT_EQ((*matrices)[1][3][0], -3.0f);
}

TEST_F(GltfSceneTest, SkinsThatDoNotFitAreLeftOut) {
    const ImportResult few = import("a.glb", skinned("1"));
    ASSERT_TRUE(few.isDone()) << few.text();
    EXPECT_TRUE(few.hasWarning("is not skinned: it names joint 1 of 1")) << few.text();
    EXPECT_FALSE(few.component("Body", "mesh").HasMember("skin"));
    const ImportResult missing = import("b.glb", skinned("1,9"));
    ASSERT_TRUE(missing.isDone()) << missing.text();
    EXPECT_TRUE(missing.hasWarning("skin \"Bones\" is left out: one of its joints")) << missing.text();
    EXPECT_FALSE(missing.component("Body", "mesh").HasMember("skin"));
}

// Keys at 0, 1 and 2 seconds, accessor 0; 1 moves, 2 turns (in whole numbers), 3 is a curve over the first two keys (4).
std::string animated(const std::string& animation) {
    GlbBuilder builder;
    builder.add(FloatType, "SCALAR", 1, std::vector<float>{0, 1, 2});
    builder.add(FloatType, "VEC3", 3, std::vector<float>{0, 0, 0, 4, 0, 0, 4, 4, 0});
    builder.add(VantrelEngine::Test::Short, "VEC4", 4,
        std::vector<std::int16_t>{0, 0, 0, 32767, 0, 0, 32767, 0, 0, 0, 0, 32767}, true);
    builder.add(FloatType, "VEC3", 3, std::vector<float>{0, 0, 0, 1, 0, 0, 2, 0, 0, 2, 0, 0, 5, 0, 0, 0, 0, 0});
    builder.add(FloatType, "SCALAR", 1, std::vector<float>{0, 1});
    builder.add(FloatType, "SCALAR", 1, std::vector<float>{0, std::numeric_limits<float>::quiet_NaN(), -1});
    return builder.file(
        R"("scenes":[{"nodes":[0,1]}],"nodes":[{"name":"A"},{"name":"B"}],"animations":[)" + animation + ']');
}

TEST_F(GltfSceneTest, Animations) {
    const ImportResult result = import("a.glb",
        animated(R"({"name":"Walk","samplers":[{"input":0,"output":1},{"input":0,"output":2,"interpolation":"STEP"}],
        "channels":[{"sampler":0,"target":{"node":1,"path":"translation"}},{"sampler":1,"target":{"node":0,"path":"rotation"}},
        {"sampler":0,"target":{"node":1,"path":"scale"}},{"sampler":0,"target":{"node":0,"path":"weights"}}]})"));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_TRUE(result.hasWarning("\"Walk\": channel 4 is left out")) << result.text();
    const JsonValue& animation = result.named("animations", "Walk");
    ASSERT_EQ(animation["targets"].Size(), 2u);
    EXPECT_EQ(animation["targets"][0].GetString(), result.idOf("objects", "B"));
    EXPECT_EQ(animation["targets"][1].GetString(), result.idOf("objects", "A"));
    EXPECT_EQ(result.component("a", "animation")["animation"].GetString(), result.idOf("animations", "Walk"));
    EXPECT_TRUE(result.component("a", "animation")["autoplay"].GetBool());

    std::string reason;
    const std::string bytes = result.file(animation);
    const auto data = VantrelEngine::readAnimation(view(bytes), reason);
    ASSERT_TRUE(data) << reason;
    ASSERT_EQ(data->trackCount(), 3u);
    EXPECT_EQ(data->trackTarget(0), 0u);
    EXPECT_EQ(data->trackTarget(1), 1u);
    EXPECT_EQ(data->trackTarget(2), 0u);
    EXPECT_EQ(data->trackTargetName(1), Trade::AnimationTrackTarget::Rotation3D);
    EXPECT_EQ(data->track<Vector3>(0).at(0.5f), (Vector3{2, 0, 0}));
    EXPECT_EQ(data->track<Quaternion>(1).at(0.99f), Quaternion{});
    EXPECT_EQ(data->track<Quaternion>(1).at(1.5f), (Quaternion{{0, 0, 1}, 0}));
}

TEST_F(GltfSceneTest, CurvesAreFollowed) {
    const ImportResult result =
        import("a.glb", animated(R"({"samplers":[{"input":4,"output":3,"interpolation":"CUBICSPLINE"}],
        "channels":[{"sampler":0,"target":{"node":0,"path":"translation"}}]})"));
    ASSERT_TRUE(result.isDone()) << result.text();
    std::string reason;
    const std::string bytes = result.file(result.named("animations", "Animation 1"));
    const auto data = VantrelEngine::readAnimation(view(bytes), reason);
    ASSERT_TRUE(data) << reason;
    const auto track = data->track<Vector3>(0);
    // From 1 with the slope 2 to 5 with the slope 2: a cubic polynomial by hand.
    for(const float t: {0.0f, 0.25f, 0.5f, 0.8f, 1.0f})
        EXPECT_NEAR(track.at(t).x(), 1 + 2 * t + 6 * t * t - 4 * t * t * t, 0.01f) << t;
}

TEST_F(GltfSceneTest, KeysThatDoNotAscendAreLeftOut) {
    const ImportResult result = import("a.glb", animated(R"({"name":"Odd","samplers":[{"input":5,"output":1}],
        "channels":[{"sampler":0,"target":{"node":0,"path":"translation"}},{"sampler":7,"target":{"node":0,"path":"scale"}},
        {"sampler":0,"target":{"node":5,"path":"scale"}}]})"));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_TRUE(result.hasWarning("animation \"Odd\": 2 keys")) << result.text();
    EXPECT_TRUE(result.hasWarning("channel 2 is left out: its sampler")) << result.text();
    EXPECT_TRUE(result.hasWarning("channel 3 is left out: its object")) << result.text();
    std::string reason;
    const std::string bytes = result.file(result.named("animations", "Odd"));
    const auto data = VantrelEngine::readAnimation(view(bytes), reason);
    ASSERT_TRUE(data) << reason;
    EXPECT_EQ(data->track<Vector3>(0).size(), 1u);
}

TEST_F(GltfSceneTest, TheSameInputGivesTheSameBytes) {
    const std::string file = skinned("1,2");
    const ImportResult one = import("a.glb", file), other = import("a.glb", file);
    ASSERT_TRUE(one.isDone()) << one.text();
    const std::string text = VantrelTest::readFile(one.folder + "/import.json");
    EXPECT_GT(text.size(), 100u);
    EXPECT_EQ(text, VantrelTest::readFile(other.folder + "/import.json"));
}

TEST_F(GltfSceneTest, ProgressGrowsAndEndsWithAll) {
    const ImportResult result = importScene(R"("nodes":[{"mesh":0},{},{}])");
    double last = 0.0;
    for(const std::string& line: result.texts("progress")) {
        const double fraction = std::stod(line);
        EXPECT_GE(fraction, last);
        last = fraction;
    }
    EXPECT_EQ(last, 1.0);
    EXPECT_EQ(result.lines.back(), "done");
}

} // namespace

} // namespace VantrelImport::Test
