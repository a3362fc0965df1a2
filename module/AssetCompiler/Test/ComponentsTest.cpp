#include <cmath>
#include <limits>

#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector4.h>

#include "AssetCompiler/Test/CompilerFixture.h"

namespace {

using namespace VantrelEngine;
using Magnum::Matrix4;
using Magnum::Vector3;
using Magnum::Vector4;

class ComponentsTest: public VantrelTest::CompilerFixture {
protected:
    static std::string component(const std::string& type, const std::string& members, const std::string& more = "") {
        return "{'type': '" + type + "', '" + type + "': {" + members + "}" + more + "}";
    }
    Id compileOne(const std::string& component) {
        setObjects(withComponents("a", component));
        compile({"a"});
        const std::vector<Id> components = componentsOf("a");
        EXPECT_EQ(components.size(), 1u);
        return components.empty() ? NoComponent : components[0];
    }
    static std::string light(const std::string& type, const std::string& more = "") {
        return component("light",
            "'color': [0.25, 0.5, 0.75], 'intensity': 3, 'type': '" + type +
                "', 'outerAngle': 50, 'innerAngle': 40, 'shadows': true, 'shadowRange': 30, 'shadowBias': 0.125,"
                "'shadowNormalBias': 0.25, 'shadowTexelSize': 0.5" +
                more);
    }
};

TEST_F(ComponentsTest, light) {
    const struct {
        const char* name;
        LightType type;
    } rows[]{{"point", LightType::Point}, {"spot", LightType::Spot}, {"sun", LightType::Sun}};
    Id first = NoComponent;
    for(const auto& row: rows) {
        const Id id = compileOne(light(row.name, ", 'cascadeCount': 3"));
        EXPECT_EQ(scene.lights.lightType(id), row.type);
        EXPECT_EQ(scene.lights.color(id), (Vector4{0.25f, 0.5f, 0.75f, 3.0f}));
        EXPECT_EQ(scene.lights.parameters(id), (Vector3{50.0f, 40.0f, 1.0f}));
        EXPECT_EQ(scene.lights.shadowRange(id), 30.0f);
        EXPECT_EQ(scene.lights.shadowParameters(id), (Vector4{0.125f, 0.25f, 0.5f, 3.0f}));
        EXPECT_TRUE(scene.lights.isActive(id));
        if(first == NoComponent) first = id;
        EXPECT_EQ(id, first);
    }
    EXPECT_EQ(scene.lights.cascadeCount(compileOne(light("sun"))), 0u);
}

TEST_F(ComponentsTest, aLightOfUnknownTypeStaysInactive) {
    compileOne(light("spot"));
    Id id = NoComponent;
    const std::string errors = printed<Corrade::Utility::Error>([&] { id = compileOne(light("neon")); });
    EXPECT_EQ(errors, "Unknown light type neon\n");
    EXPECT_FALSE(scene.lights.isActive(id));
    EXPECT_EQ(scene.lights.lightType(id), LightType::Spot);
    EXPECT_EQ(scene.lights.color(id), (Vector4{0.25f, 0.5f, 0.75f, 3.0f}));
    EXPECT_EQ(problem("a", 0), "unknown light type neon");
    // Said once, as long as nothing else is wrong with it.
    EXPECT_EQ(printed<Corrade::Utility::Error>([&] { compile({"a"}); }), "");
    EXPECT_EQ(printed<Corrade::Utility::Error>([&] { compileOne(light("laser")); }), "Unknown light type laser\n");
    EXPECT_EQ(problem("a", 0), "unknown light type laser");
    EXPECT_TRUE(scene.lights.isActive(compileOne(light("sun"))));
    EXPECT_EQ(problem("a", 0), "");
}

TEST_F(ComponentsTest, view) {
    const Id id = compileOne(component("view", "'fov': 60, 'near': 0.5, 'far': 100"));
    EXPECT_EQ(scene.views.fov(id), 60.0f);
    EXPECT_EQ(scene.views.near(id), 0.5f);
    EXPECT_EQ(scene.views.far(id), 100.0f);
    const Matrix4 projection = scene.views.projectionMatrix(id);
    const float scale = 1.0f / std::tan(60.0f * 3.1415927f / 180.0f * 0.5f);
    EXPECT_FLOAT_EQ(projection[0][0], scale);
    EXPECT_FLOAT_EQ(projection[1][1], scale);
    EXPECT_FLOAT_EQ(projection[2][2], 100.5f / -99.5f);
    EXPECT_FLOAT_EQ(projection[2][3], -1.0f);
    EXPECT_FLOAT_EQ(projection[3][2], 2.0f * 100.0f * 0.5f / -99.5f);
    EXPECT_EQ(projection[3][3], 0.0f);
    EXPECT_TRUE(scene.views.isActive(id));
}

TEST_F(ComponentsTest, aViewThatReachesToInfinity) {
    const Id id = compileOne(component("view", "'fov': 90, 'near': 0.25, 'far': 1e39"));
    EXPECT_EQ(scene.views.far(id), std::numeric_limits<float>::infinity());
    const Matrix4 projection = scene.views.projectionMatrix(id);
    EXPECT_EQ(projection[2][2], -1.0f);
    EXPECT_EQ(projection[3][2], -0.5f);
    EXPECT_TRUE(scene.views.isActive(id));
}

TEST_F(ComponentsTest, aViewWithoutAProjectionIsInactive) {
    for(const char* const members:
        {"'fov': 0, 'near': 0.5, 'far': 100", "'fov': 60, 'near': 0, 'far': 100", "'fov': 60, 'near': 5, 'far': 5"}) {
        const Id id = compileOne(component("view", members));
        EXPECT_FALSE(scene.views.isActive(id)) << members;
        EXPECT_EQ(problem("a", 0), "its planes and its field of view give no projection");
    }
}

TEST_F(ComponentsTest, input) {
    for(std::size_t i = 0; i != 4; ++i) {
        const auto name = InputManager::EnumValuesInputType[i];
        const Id id = compileOne(component("input", "'type': '" + std::string{name.data(), name.size()} + "'"));
        EXPECT_EQ(scene.inputs.inputType(id), i);
        EXPECT_TRUE(scene.inputs.isActive(id));
    }
    const std::string warnings = printed([&] { compileOne(component("input", "'type': 'wand'")); });
    EXPECT_EQ(warnings, "RapidJsonUtils::enumStringToValue(): wand is none of keyboard mouse gamepad touch\n");
    EXPECT_EQ(problem("a", 0), "\"wand\" is not known, \"keyboard\" is used");
    EXPECT_EQ(printed([&] { compile({"a"}); }), "");
    EXPECT_EQ(problem("a", 0), "\"wand\" is not known, \"keyboard\" is used");
}

TEST_F(ComponentsTest, collisionReadsTheSizeOfItsKind) {
    const std::string sizes = ", 'sphere': {'radius': 2}, 'aabb': {'extents': [3, 4, 5]},"
                              "'obb': {'extents': [6, 7, 8]}, 'groups': 5";
    const Id id = compileOne(component("collision", "'collider': 'obb'" + sizes));
    EXPECT_EQ(scene.collisions.collider(id), 2);
    EXPECT_EQ(scene.collisions.extents(id), (Vector3{6.0f, 7.0f, 8.0f}));
    EXPECT_EQ(scene.collisions.group(id), 5);
    EXPECT_TRUE(scene.collisions.isActive(id));
    ASSERT_EQ(compileOne(component("collision", "'collider': 'aabb'" + sizes)), id);
    EXPECT_EQ(scene.collisions.extents(id), (Vector3{3.0f, 4.0f, 5.0f}));
    // A sphere leaves the other two.
    ASSERT_EQ(compileOne(component("collision", "'collider': 'sphere'" + sizes)), id);
    EXPECT_EQ(scene.collisions.collider(id), 0);
    EXPECT_EQ(scene.collisions.extents(id), (Vector3{2.0f, 4.0f, 5.0f}));
}

TEST_F(ComponentsTest, collisionGroupsKeepEightBits) {
    const struct {
        const char* groups;
        int expected;
    } rows[]{{"", 0}, {", 'groups': 255", 255}, {", 'groups': 256", 0}, {", 'groups': 4294967041", 1}};
    for(const auto& row: rows) {
        const std::string members = std::string{"'collider': 'sphere', 'sphere': {'radius': 1}"} + row.groups;
        EXPECT_EQ(scene.collisions.group(compileOne(component("collision", members))), row.expected) << row.groups;
    }
}

TEST_F(ComponentsTest, eachIsActiveUnlessTheDocumentSaysOtherwise) {
    const std::string members[]{
        "'collider': 'sphere', 'sphere': {'radius': 1}", "'type': 'touch'", "'fov': 60, 'near': 0.5, 'far': 100"};
    const char* const types[]{"collision", "input", "view"};
    for(std::size_t i = 0; i != 3; ++i) {
        const auto isActive = [&](const char* more) {
            const Id id = compileOne(component(types[i], members[i], more));
            return scene.componentManager(scene.componentTypes(objectOf("a"))[0])->isActive(id);
        };
        EXPECT_TRUE(isActive("")) << types[i];
        EXPECT_FALSE(isActive(", 'active': false")) << types[i];
        EXPECT_TRUE(isActive(", 'active': true")) << types[i];
    }
    setObjects(withComponents("a", light("sun").insert(1, "'active': false, ")));
    compile({"a"});
    EXPECT_FALSE(scene.lights.isActive(componentsOf("a")[0]));
}

TEST_F(ComponentsTest, aComponentWithoutItsMemberGetsDefaults) {
    const struct {
        const char* type;
        std::size_t warnings;
    } rows[]{{"view", 3}, {"light", 10}, {"input", 1}, {"collision", 2}};
    for(const auto& row: rows) {
        const std::string warnings = printed([&] { compileOne("{'type': '" + std::string{row.type} + "'}"); });
        EXPECT_EQ(std::size_t(std::count(warnings.begin(), warnings.end(), '\n')), row.warnings) << warnings;
        EXPECT_EQ(problem("a", 0), "") << row.type;
    }
    EXPECT_EQ(scene.views.size() + scene.lights.size() + scene.inputs.size(), 0u);
}

} // namespace
