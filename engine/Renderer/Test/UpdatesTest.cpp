#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/OpenGL.h>
#include <Vantrel/EngineData/ResourceManager.h>

#include "Renderer/Test/RendererFixture.h"

using namespace VantrelTest;

namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr std::size_t RecordBytes = 64;

struct UpdatesTest: RendererTest {
    UpdatesTest() {
        pipeline = addPipeline("Plain");
        mesh = addMesh(square());
        material = addMaterial(pipeline, RedColor);
    }

    // Bytes that a frame uploads.
    std::uint64_t uploadOf(const std::function<void()>& change) {
        const std::uint64_t before = renderer.uploadedBytes();
        change();
        frame();
        return renderer.uploadedBytes() - before;
    }

    Id pipeline, mesh, material;
};

TEST_F(UpdatesTest, whereNothingChangedNothingIsUploadedOrCompiled) {
    for(int i = 0; i != 100; ++i) add(mesh, material, {Float(i % 8) - 3.5f, Float(i / 8) - 4.0f, 0.0f});
    tell();
    frame();
    const std::size_t programs = renderer.builtPrograms();
    EXPECT_GT(programs, 0u);
    EXPECT_EQ(uploadOf([] {}), 0u);
    // Not even where it is said that it might have.
    EXPECT_EQ(uploadOf([this] { tell(); }), 0u);
    EXPECT_EQ(uploadOf([this] {
        for(std::size_t i = 0; i != scene.size(); ++i) scene.setDirty(scene.toId(i));
    }),
        0u);
    EXPECT_EQ(renderer.builtPrograms(), programs);
}

TEST_F(UpdatesTest, whatMovedIsUploaded) {
    std::vector<Id> objects;
    for(int i = 0; i != 100; ++i)
        objects.push_back(add(mesh, material, {Float(i % 8) - 3.5f, Float(i / 16) - 3.5f, 0.0f}));
    tell();
    frame();
    EXPECT_EQ(uploadOf([&] { move(objects[50], {0.0f, 2.0f, 0.0f}); }), RecordBytes);
    EXPECT_EQ(at(frame(), 0.0f, 2.0f), Red);
    // Two that are near go together, two that are far do not.
    EXPECT_EQ(uploadOf([&] {
        move(objects[2], {0.0f, 3.0f, 0.0f});
        move(objects[4], {0.0f, 3.0f, 0.0f});
    }),
        3 * RecordBytes);
    EXPECT_EQ(uploadOf([&] {
        move(objects[2], {0.0f, 2.5f, 0.0f});
        move(objects[90], {1.0f, 2.5f, 0.0f});
    }),
        2 * RecordBytes);
    // Out of sight and back: the list of what is drawn changes, too.
    EXPECT_EQ(uploadOf([&] { move(objects[0], {50.0f, 0.0f, 0.0f}); }), RecordBytes + 99 * sizeof(Id));
}

TEST_F(UpdatesTest, allMeshesOfAnObjectMoveWithIt) {
    const Id object = add(mesh, material, {});
    const Id other = addMesh(square({0.0f, 2.0f, 0.0f}));
    const Id second = scene.meshes.addComponent(object);
    scene.meshes.mesh(second) = other;
    scene.meshes.material(second) = material;
    scene.meshes.setGroup(second, pipeline, 0);
    scene.meshes.activate(second);
    tell();
    frame();
    EXPECT_EQ(uploadOf([&] { move(object, {2.0f, 0.0f, 0.0f}); }), 2 * RecordBytes);
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.0f, 2.0f), Red);
    EXPECT_EQ(at(picture, 0.0f, 2.0f), Nothing);
}

TEST_F(UpdatesTest, aMaterialOfAnObjectIsTakenOverWithoutBeingTold) {
    const Id green = addMaterial(pipeline, GreenColor);
    const Id object = add(mesh, material, {});
    tell();
    frame();
    EXPECT_EQ(uploadOf([&] { scene.meshes.material(scene.components(object)[0]) = green; }), RecordBytes);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Green);
}

TEST_F(UpdatesTest, oneMaterialIsWritten) {
    for(int i = 0; i != 50; ++i) addMaterial(pipeline, BlueColor);
    add(mesh, material, {});
    tell();
    frame();
    EXPECT_EQ(uploadOf([&] {
        resources.materials[material].values[0] = GreenColor;
        renderer.updateMaterial(material, resources.materials[material]);
    }),
        sizeof(Vector4));
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Green);
    EXPECT_EQ(uploadOf([&] {
        resources.materials[material].values[0] = BlueColor;
        renderer.updateMaterials(view(resources.materials), view(resources.pipelines));
    }),
        sizeof(Vector4));
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Blue);
}

TEST_F(UpdatesTest, materialsWithMoreValuesMoveTheOthers) {
    add(mesh, material, {});
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
    SceneMaterial larger;
    larger.pipeline = pipeline;
    larger.values.assign(9, BlueColor);
    larger.textures.assign(9, 0);
    resources.materials.push_back(larger);
    renderer.updateMaterials(view(resources.materials), view(resources.pipelines));
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
}

TEST_F(UpdatesTest, aMeshThatFitsIsUploadedAlone) {
    const Id other = addMesh(square());
    add(mesh, material, {-2.0f, 0.0f, 0.0f});
    add(other, material, {2.0f, 0.0f, 0.0f});
    tell();
    frame();
    const std::uint64_t oneMesh = 6 * (6 * sizeof(Float) + sizeof(UnsignedInt));
    EXPECT_EQ(uploadOf([&] {
        setData(resources.meshes[other], square({0.0f, 1.0f, 0.0f}));
        tellMeshes();
    }),
        oneMesh);
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Nothing);
    EXPECT_EQ(at(picture, 2.0f, 1.0f), Red);
}

TEST_F(UpdatesTest, aMeshThatDoesNotFitFindsAnotherPlace) {
    const Id other = addMesh(square());
    add(mesh, material, {-2.0f, 0.0f, 0.0f}, Vector3{0.5f});
    add(other, material, {2.0f, 0.0f, 0.0f}, Vector3{0.5f});
    tell();
    frame();
    setData(resources.meshes[mesh], shapeMesh(MeshShape::Sphere));
    resources.meshLayoutFlags |= LayoutTextureCoordinates;
    tellMeshes();
    std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, -2.4f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.4f, 0.0f), Nothing);
    // A few more, for which there is no room.
    for(int i = 0; i != 5; ++i) add(addMesh(shapeMesh(MeshShape::Sphere)), material, {0.0f, 2.0f, 0.0f});
    tell();
    picture = frame();
    EXPECT_EQ(at(picture, -2.4f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Red);
    EXPECT_EQ(at(picture, 0.0f, 2.9f), Red);
}

TEST_F(UpdatesTest, theRoomOfManyMeshesIsNotKeptForAFew) {
    resources.meshes.resize(1);
    addMesh(shapeMesh(MeshShape::Sphere));
    const Id last = addMesh(square());
    add(last, material, {});
    tell();
    EXPECT_GT(renderer.mesh(last)->baseVertex(), 0);
    resources.meshes[1] = {};
    tellMeshes();
    EXPECT_EQ(renderer.mesh(last)->baseVertex(), 0);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
}

TEST_F(UpdatesTest, meshesThatAreGoneAreNotDrawn) {
    const Id other = addMesh(square());
    add(mesh, material, {-2.0f, 0.0f, 0.0f});
    const Id object = add(other, material, {2.0f, 0.0f, 0.0f});
    tell();
    EXPECT_EQ(at(frame(), 2.0f, 0.0f), Red);

    // The mesh, while its object is still there: it comes back when there is another one.
    resources.meshes[other] = {};
    tellMeshes();
    // Nothing stumbles over the list of the last frame.
    EXPECT_EQ(at(ids(), 2.0f, 0.0f), 0xffffffffu);
    EXPECT_EQ(renderer.mesh(other), nullptr);
    std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Nothing);
    EXPECT_EQ(renderer.visibleMeshes().size(), 1u);
    setData(resources.meshes[other], square());
    tellMeshes();
    EXPECT_EQ(at(frame(), 2.0f, 0.0f), Red);

    // The object.
    scene.deleteObjects(object);
    tellDraws();
    picture = frame();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Nothing);

    // All of them.
    resources.meshes.resize(1);
    tellMeshes();
    picture = frame();
    EXPECT_EQ(std::count(picture.begin(), picture.end(), Red), 0);
    EXPECT_TRUE(renderer.visibleMeshes().empty());
}

TEST_F(UpdatesTest, inactiveMeshesAreNotDrawn) {
    const Id object = add(mesh, material, {});
    add(mesh, material, {2.0f, 0.0f, 0.0f});
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
    scene.meshes.setActive(scene.components(object)[0], false);
    tellDraws();
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, 0.0f, 0.0f), Nothing);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Red);
    scene.meshes.setActive(scene.components(object)[0], true);
    tellDraws();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
}

TEST_F(UpdatesTest, normalsThatAMeshHasNotAreMade) {
    fragment = "in vec3 worldNormal;\n"
               "void main() { fragmentColor = vec4(normalize(worldNormal)*0.5 + 0.5, 1.0); }\n";
    add(mesh, material, {}, {2.0f, 1.0f, 1.0f});
    tell();
    const std::uint32_t pixel = at(frame(), 0.0f, 0.0f);
    EXPECT_EQ(pixel >> 8 & 0xff, 0xffu);
    EXPECT_NEAR(pixel >> 24, 0x80u, 1);
    EXPECT_NEAR(pixel >> 16 & 0xff, 0x80u, 1);
}

// Also where the object is scaled unevenly, or mirrored.
TEST_F(UpdatesTest, normalsStandAcrossTheSurface) {
    fragment = "in vec3 worldNormal;\n"
               "in vec3 worldPosition;\n"
               "void main() {\n"
               "    vec3 across = normalize(cross(dFdx(worldPosition), dFdy(worldPosition)));\n"
               "    fragmentColor = vec4(dot(across, normalize(worldNormal)) > 0.99 ? 1.0 : 0.0, 0.0, 0.0, 1.0);\n"
               "}\n";
    const Id cone = addMesh(shapeMesh(MeshShape::Cube));
    const Id object = add(cone, material, {}, {1.0f, 0.01f, 30.0f});
    scene.localTransformation(object) = DualQuaternion::rotation(50.0_degf, Vector3{1.0f, 0.3f, 0.2f}.normalized());
    tell();
    for(const Vector3& scaling: {Vector3{1.0f, 0.1f, 3.0f}, Vector3{-1.0f, 0.2f, 1.0f}, Vector3{1e-3f, 2.0f, 2.0f}}) {
        scene.localScaling(object) = scaling;
        scene.setDirty(object);
        const std::vector<std::uint32_t> picture = frame();
        // All but some pixels at the edges.
        const auto wrong = std::count(picture.begin(), picture.end(), Nothing) - [&] {
            clear(Color4{0.0f, 0.0f, 1.0f});
            renderer.render(scene.views, scene);
            const std::vector<std::uint32_t> onBlue = pixels();
            return std::count(onBlue.begin(), onBlue.end(), Blue);
        }();
        EXPECT_LE(wrong, 12) << scaling.x();
        EXPECT_GT(std::count(picture.begin(), picture.end(), Red), 20) << scaling.x();
    }
}

TEST_F(UpdatesTest, attributesReachTheShaders) {
    struct Vertex {
        Vector3 position;
        Vector2 first, second;
        Color4 color;
        Vector4 tangent;
    };
    const auto full = [] {
        Containers::Array<char> vertexData{ValueInit, 3 * sizeof(Vertex)};
        auto* const vertices = reinterpret_cast<Vertex*>(vertexData.data());
        const Vector3 positions[]{{-1, -1, 0}, {3, -1, 0}, {-1, 3, 0}};
        for(std::size_t i = 0; i != 3; ++i)
            vertices[i] = {positions[i], Vector2{0.2f}, Vector2{0.4f}, Color4{0.6f}, Vector4{0.8f, 0.0f, 0.0f, 1.0f}};
        const auto attribute = [](Trade::MeshAttribute name, VertexFormat format, std::size_t offset) {
            return Trade::MeshAttributeData{name, format, offset, 3, sizeof(Vertex)};
        };
        return Trade::MeshData{MeshPrimitive::Triangles, std::move(vertexData),
            {attribute(Trade::MeshAttribute::Position, VertexFormat::Vector3, offsetof(Vertex, position)),
                attribute(Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2, offsetof(Vertex, first)),
                attribute(Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2, offsetof(Vertex, second)),
                attribute(Trade::MeshAttribute::Color, VertexFormat::Vector4, offsetof(Vertex, color)),
                attribute(Trade::MeshAttribute::Tangent, VertexFormat::Vector4, offsetof(Vertex, tangent))}};
    };
    fragment = "in vec2 uv, secondUv; in vec4 vertexColor, worldTangent;\n"
               "void main() { fragmentColor = vec4(uv.x, secondUv.y, vertexColor.z, worldTangent.x); }\n";
    const Id fullMesh = addMesh(full());
    add(fullMesh, material, {-2.0f, 0.0f, 0.0f});
    add(mesh, material, {3.0f, 0.0f, 0.0f});
    tell();
    // The layout without them.
    std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), 0x0000ff00u);
    EXPECT_TRUE(renderer.setLayoutFlags(
        LayoutTangent | LayoutTextureCoordinates | LayoutSecondTextureCoordinates | LayoutColor));
    tellPipelines();
    tellMeshes();
    tellDraws();
    picture = frame();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), 0x336699ccu);
    // What a mesh has not is zero, colours are white.
    EXPECT_EQ(at(picture, 3.0f, 0.0f), 0x0000ff00u);
}

TEST_F(UpdatesTest, saysWhetherTheLayoutChanged) {
    EXPECT_TRUE(renderer.setLayoutFlags(LayoutNormal));
    EXPECT_FALSE(renderer.setLayoutFlags(LayoutNormal));
    EXPECT_TRUE(renderer.setLayoutFlags(LayoutNormal | 32));
    EXPECT_TRUE(renderer.setLayoutFlags(0));
}

TEST_F(UpdatesTest, shadersThatDoNotCompileAreReplacedAndNamed) {
    const Id object = add(mesh, material, {});
    fragment = "void main() { fragmentColor = missing; }\n";
    EXPECT_THAT(linesOf([this] { tell(); }),
        MatchesRegex("WebGL2Renderer: pipeline Plain is drawn flat: the fragment shader does not compile: [^\n]*missing"
                     "[^\n]*\n"));
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
    EXPECT_EQ(at(ids(), 0.0f, 0.0f) >> 24, object);

    EXPECT_THAT(linesOf([this] {
        renderer.clearShaders();
        renderer.addPipeline(pipeline, resources.pipelines[pipeline], "void main() { oh }", "void main() {}");
        frame();
    }),
        MatchesRegex("WebGL2Renderer: pipeline Plain is drawn flat: the vertex shader does not compile: [^\n]+\n"));
    EXPECT_THAT(linesOf([this] {
        renderer.clearShaders();
        renderer.addPipeline(pipeline, resources.pipelines[pipeline],
            "flat out uint material; void main() { material = 0u; gl_Position = vec4(0.0); }",
            "uniform vec3 viewProjection2; vec4 other(); void main() { fragmentColor = other(); }");
        frame();
    }),
        MatchesRegex("WebGL2Renderer: pipeline Plain is drawn flat: the shaders do not go together: [^\n]+\n"));
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
}

TEST_F(UpdatesTest, sourcesNeedNotEndWithTheirLastLine) {
    fragment = "void main() { fragmentColor = material_color(); } // red";
    resources.pipelines[pipeline].header.flags |= PipelineHeader::AlphaMask;
    const Id object = add(mesh, material, {});
    EXPECT_EQ(linesOf([&] {
        tell();
        renderer.addPipeline(pipeline, resources.pipelines[pipeline],
            "flat out uint material; void main() { material = 1u; gl_Position = vec4(position, 1.0); } // all",
            fragment);
        frame();
    }),
        "");
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
    EXPECT_EQ(at(ids(), 0.0f, 0.0f) >> 24, object);
}

// Those that projects start with, whatever the meshes and the pipelines have.
TEST_F(UpdatesTest, theSourcesOfTheEngineCompile) {
    const auto source = [](Containers::StringView file) {
        const Containers::StringView text = defaultAsset(file);
        return std::string_view{text.data(), text.size()};
    };
    ScenePipeline description = resources.pipelines[pipeline];
    description.parameters.push_back({"baseColorTexture", ParameterType::Texture, {}});
    description.parameters.push_back({"normalTexture", ParameterType::Texture, {}});
    description.parameters.push_back({"roughness", ParameterType::Float, {}});
    for(const std::uint32_t layout: {0u, 31u})
        for(const std::uint32_t flags: {0u, 8u, 16u, 25u}) {
            description.header.flags = flags;
            EXPECT_EQ(linesOf([&] {
                renderer.setLayoutFlags(layout);
                renderer.clearShaders();
                renderer.addDepthShader(source("Dynamic.vert"));
                Id index = 0;
                for(const char* const fragmentFile: {"Lit.frag", "Flat.frag", "MeshVisualizer.frag"})
                    renderer.addPipeline(++index, description, source("Dynamic.vert"), source(fragmentFile));
                renderer.addPipeline(++index, description, source("Text.vert"), source("Text.frag"));
                renderer.updateMaterials({}, {});
            }),
                "")
                << layout << flags;
        }
}

TEST_F(UpdatesTest, withoutSourcesItIsFlat) {
    add(mesh, material, {});
    tell();
    renderer.clearShaders();
    EXPECT_EQ(linesOf([this] {
        renderer.addPipeline(pipeline, resources.pipelines[pipeline], "", "");
        frame();
    }),
        "");
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
}

TEST_F(UpdatesTest, pipelinesAreFoundByName) {
    const Id other = addPipeline("Other");
    tell();
    EXPECT_EQ(renderer.pipelineIndex("Plain"), pipeline);
    EXPECT_EQ(renderer.pipelineIndex("Other"), other);
    EXPECT_EQ(renderer.pipelineIndex("None"), 0);
    renderer.clearShaders();
    EXPECT_EQ(renderer.pipelineIndex("Plain"), 0);
}

TEST_F(UpdatesTest, sameSourcesAreCompiledOnce) {
    tell();
    const std::size_t programs = renderer.builtPrograms();
    addPipeline("Other");
    tell();
    EXPECT_EQ(renderer.builtPrograms(), programs);
    // Other sources, and back: what nobody uses any more is gone after the next frame.
    fragment += "//";
    tell();
    frame();
    EXPECT_EQ(renderer.builtPrograms(), programs + 1);
    fragment.resize(fragment.size() - 2);
    tell();
    EXPECT_EQ(renderer.builtPrograms(), programs + 2);
}

TEST_F(UpdatesTest, reloadsLeaveNoObjectsOfTheGl) {
    add(mesh, material, {});
    tell();
    frame();
    ids();
    // Names are counted up, so that all that live are below some thousands.
    const auto living = [] {
        std::vector<int> counts(5);
        for(GLuint name = 1; name != 10000; ++name) {
            counts[0] += glIsBuffer(name);
            counts[1] += glIsVertexArray(name);
            counts[2] += glIsTexture(name);
            counts[3] += glIsProgram(name);
            counts[4] += glIsShader(name);
        }
        return counts;
    };
    const std::string source = fragment;
    std::vector<int> before;
    for(int i = 0; i != 50; ++i) {
        fragment = source + "// " + std::to_string(i);
        setData(resources.meshes[mesh], i % 2 ? shapeMesh(MeshShape::Sphere) : square());
        renderer.setLayoutFlags(i % 3 ? 0u : std::uint32_t{LayoutColor});
        tell();
        frame();
        if(i == 2) before = living();
    }
    EXPECT_EQ(living(), before);
    EXPECT_GT(before[0], 4);
    EXPECT_GT(before[3], 3);
}

TEST_F(UpdatesTest, customMaterialsAreBeyondThoseOfTheScene) {
    const Id first = renderer.registerCustomMaterial(), second = renderer.registerCustomMaterial();
    EXPECT_NE(first, second);
    EXPECT_GT(std::min(first, second), 60000);
    // One that reads from the custom material's row.
    add(mesh, material, {});
    tell();
    SceneMaterial custom;
    custom.values = {GreenColor};
    custom.textures = {0};
    renderer.updateMaterial(first, custom);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
}

TEST_F(UpdatesTest, colliderShapesAreLinesInTheColourOfTheirMaterial) {
    ScenePipeline visualizer;
    visualizer.name = "MeshVisualizer";
    visualizer.header.flags |= PipelineHeader::DoubleSided | PipelineHeader::Blend;
    visualizer.parameters = {{"color", ParameterType::Color, {}}, {"wireframeColor", ParameterType::Color, {}}};
    resources.pipelines.push_back(visualizer);
    const Id custom = renderer.registerCustomMaterial();
    const auto addCollider = [this](UnsignedByte kind, const Vector3& extents, const DualQuaternion& place) {
        const Id object = scene.addObject(RootObject);
        scene.localTransformation(object) = place;
        scene.localScaling(object) = Vector3{3.0f};
        const Id collider = scene.collisions.addComponent(object);
        scene.collisions.collider(collider) = kind;
        scene.collisions.extents(collider) = extents;
        scene.collisions.activate(collider);
        return collider;
    };
    const DualQuaternion turn = DualQuaternion::rotation(45.0_degf, Vector3::zAxis());
    const Id sphere = addCollider(0, {1.0f, 9.0f, 9.0f}, DualQuaternion::translation({-2.5f, 0.0f, 0.0f}));
    addCollider(1, {0.5f, 1.0f, 0.2f}, DualQuaternion::translation({0.0f, 0.0f, 0.0f}) * turn);
    addCollider(2, {1.0f, 1.0f, 0.2f}, DualQuaternion::translation({2.5f, 0.0f, 0.0f}) * turn);
    tell();
    const Id index = renderer.addColliderVisualizationPipeline(renderer.pipelineIndex("MeshVisualizer"));
    const Id batch = renderer.addColliderVisualizationBatch();
    EXPECT_GT(batch, 0);
    renderer.addDraw({Draw::Kind::ColliderVisualization, index, batch, false});
    SceneMaterial material;
    material.values = {Vector4{}, GreenColor};
    renderer.updateMaterial(custom, material);

    scene.computeAbsoluteTransformations();
    renderer.updateColliderVisualizationBatch(batch, custom, scene);
    std::vector<std::uint32_t> picture = frame();
    const auto isLine = [&](Float x, Float y) {
        for(const Float dx: {-0.12f, 0.0f, 0.12f})
            for(const Float dy: {-0.12f, 0.0f, 0.12f})
                if(at(picture, x + dx, y + dy) == Green) return true;
        return false;
    };
    EXPECT_TRUE(isLine(-2.5f + 0.7071f, 0.7071f));
    EXPECT_FALSE(isLine(-2.5f + 0.4f, 0.4f));
    EXPECT_TRUE(isLine(0.5f, 0.4f));
    EXPECT_TRUE(isLine(0.2f, 1.0f));
    EXPECT_FALSE(isLine(0.2f, 0.4f));
    EXPECT_TRUE(isLine(2.5f + 0.7f, 0.7f));
    EXPECT_TRUE(isLine(2.5f, 1.4142f));
    EXPECT_FALSE(isLine(2.5f + 1.0f, 1.0f));

    // Neither are they part of what glows, nor of what is counted.
    renderer.setBloomEnabled(true);
    picture = frame();
    EXPECT_TRUE(isLine(2.5f, 1.4142f));
    renderer.setBloomEnabled(false);
    renderer.beginOverdrawTracking();
    picture = frame();
    renderer.endOverdrawTracking();
    EXPECT_FALSE(isLine(2.5f, 1.4142f));
    renderer.renderOverdraw(scene.views);
    picture = pixels();
    EXPECT_TRUE(isLine(2.5f, 1.4142f));

    // Nothing changed, nothing is uploaded.
    const std::uint64_t bytes = renderer.uploadedBytes();
    renderer.updateColliderVisualizationBatch(batch, custom, scene);
    EXPECT_EQ(renderer.uploadedBytes(), bytes);
    scene.collisions.setActive(sphere, false);
    renderer.updateColliderVisualizationBatch(batch, custom, scene);
    picture = frame();
    EXPECT_FALSE(isLine(-2.5f + 0.7071f, 0.7071f));
    EXPECT_TRUE(isLine(0.5f, 0.4f));
    renderer.clearColliderVisualizationBatch(batch);
    picture = frame();
    EXPECT_EQ(std::count(picture.begin(), picture.end(), Green), 0);
}

TEST_F(UpdatesTest, whatCannotBeDrawnYetIsNamedOnce) {
    const Draw skinned{Draw::Kind::Meshes, pipeline, 0, true};
    const std::string lines = linesOf([&] {
        for(int i = 0; i != 2; ++i) {
            renderer.prepareDrawsList({&skinned, 1});
            renderer.updateFonts({});
            renderer.updateTexts(scene.texts);
        }
    });
    EXPECT_EQ(lines,
        "WebGL2Renderer: cannot draw skinned meshes other than as they were made yet\n"
        "WebGL2Renderer: cannot draw letters of fonts yet\n");
    scene.texts.activate(scene.texts.addComponent(scene.addObject(RootObject)));
    EXPECT_EQ(linesOf([&] {
        for(int i = 0; i != 2; ++i) renderer.updateTexts(scene.texts);
    }),
        "WebGL2Renderer: cannot draw texts yet\n");
}

TEST_F(UpdatesTest, aMeshCanBeDrawnByItself) {
    const Id cube = addMesh(shapeMesh(MeshShape::Cube));
    tell();
    EXPECT_EQ(renderer.mesh(0), nullptr);
    EXPECT_EQ(renderer.mesh(100), nullptr);
    ASSERT_TRUE(renderer.mesh(mesh));
    EXPECT_EQ(renderer.mesh(mesh)->count(), 6);
    ASSERT_TRUE(renderer.mesh(cube));
    EXPECT_EQ(renderer.mesh(cube)->count(), 36);
    EXPECT_EQ(renderer.mesh(cube)->baseVertex(), 6);
    EXPECT_EQ(renderer.mesh(cube)->indexOffset(), 6);
    EXPECT_EQ(renderer.mesh(cube)->instanceCount(), 1);
}

TEST_F(UpdatesTest, asManyObjectsAsThereCanBe) {
    std::vector<Id> meshes;
    for(int i = 0; i != 40; ++i) meshes.push_back(addMesh(square()));
    // One object is the camera.
    constexpr std::size_t Count = MaxObjects - 1;
    Id last = 0;
    for(std::size_t i = 0; i != Count; ++i)
        last = add(meshes[i % meshes.size()], material,
            {Float(i % 256) / 32.0f - 4.0f + 1.0f / 64, Float(i / 256) / 32.0f - 4.0f + 1.0f / 64, 0.0f},
            Vector3{1.0f / 32});
    EXPECT_EQ(scene.addObject(RootObject), 0);
    tell();
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(renderer.visibleMeshes().size(), Count);
    EXPECT_EQ(renderer.triangles(), 2 * Count);
    // 4 by 4 to a pixel, in rows of which only the last one is not full.
    EXPECT_GE(std::count(picture.begin(), picture.end(), Red), Size * Size - 1);
    renderer.setMultiDrawEnabled(false);
    EXPECT_EQ(frame(), picture);
    EXPECT_EQ(renderer.drawCalls(), meshes.size());
    EXPECT_EQ(uploadOf([] {}), 0u);
    EXPECT_EQ(uploadOf([&] { move(last, {0.0f, 0.0f, 0.0f}); }), RecordBytes);
}

} // namespace
