#include "Renderer/Materials/MaterialBuffer.h"

#include <gmock/gmock.h>

#include "Support/OffscreenContext.h"

using namespace Magnum;
using namespace VantrelEngine;

namespace {

struct MaterialBufferTest: VantrelTest::GlTest {
    static SceneMaterial material(std::vector<Vector4> values, std::vector<Id> textures = {}) {
        SceneMaterial result;
        result.values = std::move(values);
        result.textures = std::move(textures);
        return result;
    }
    void updateScene(const std::vector<SceneMaterial>& materials) {
        buffer.updateScene({materials.data(), materials.size()});
    }

    MaterialBuffer buffer;
};

TEST_F(MaterialBufferTest, holdsValuesAndTextures) {
    updateScene({{}, material({Vector4{1.0f}, Vector4{0.0f}}, {0, 7}), material({Vector4{3.0f}}, {0})});
    EXPECT_EQ(buffer.stride(), 2u);
    EXPECT_EQ(buffer.value(0, 0), Vector4{0.0f});
    EXPECT_EQ(buffer.value(1, 0), Vector4{1.0f});
    EXPECT_EQ(buffer.value(1, 1), (Vector4{7.0f, 0.0f, 0.0f, 0.0f}));
    EXPECT_EQ(buffer.value(2, 0), Vector4{3.0f});
    EXPECT_EQ(buffer.value(2, 1), Vector4{0.0f});
    EXPECT_EQ(buffer.value(2, 2), Vector4{0.0f});
    EXPECT_EQ(buffer.value(3, 0), Vector4{0.0f});
}

TEST_F(MaterialBufferTest, customOnesStayWhateverSceneComes) {
    const Id first = buffer.addCustom(), second = buffer.addCustom();
    EXPECT_NE(first, second);
    updateScene({{}, material({Vector4{1.0f}})});
    buffer.update(first, material({Vector4{5.0f}, Vector4{6.0f}, Vector4{7.0f}}));
    buffer.update(second, material({Vector4{8.0f}}));
    EXPECT_EQ(buffer.value(1, 0), Vector4{1.0f});
    updateScene({{}, material({Vector4{2.0f}}), {}, {}, material({Vector4{3.0f}})});
    EXPECT_EQ(buffer.value(first, 2), Vector4{7.0f});
    EXPECT_EQ(buffer.value(second, 0), Vector4{8.0f});
    EXPECT_EQ(buffer.value(4, 0), Vector4{3.0f});
    updateScene({});
    const Id third = buffer.addCustom();
    EXPECT_EQ(buffer.value(first, 1), Vector4{6.0f});
    EXPECT_EQ(buffer.value(third, 0), Vector4{0.0f});
    EXPECT_EQ(buffer.value(1, 0), Vector4{0.0f});
}

TEST_F(MaterialBufferTest, uploadsWhatChanged) {
    std::vector<SceneMaterial> materials(100, material({Vector4{1.0f}, Vector4{2.0f}}));
    updateScene(materials);
    EXPECT_EQ(buffer.uploadedBytes(), 200 * sizeof(Vector4));
    updateScene(materials);
    EXPECT_EQ(buffer.uploadedBytes(), 200 * sizeof(Vector4));
    materials[50].values[1] = Vector4{3.0f};
    buffer.update(50, materials[50]);
    EXPECT_EQ(buffer.uploadedBytes(), 201 * sizeof(Vector4));
    // Of none that there is.
    buffer.update(100, materials[50]);
    buffer.update(65534, materials[50]);
    EXPECT_EQ(buffer.uploadedBytes(), 201 * sizeof(Vector4));
}

} // namespace
