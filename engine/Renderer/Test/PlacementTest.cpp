// Where textures lie on a surface, by the numbers that shaders come to.

#include <cmath>
#include <string>
#include <vector>

#include "Renderer/Test/RendererFixture.h"

using namespace VantrelTest;

namespace {

const Vector2 First{0.2f, 0.4f}, Second{0.6f, 0.1f};

struct PlacementTest: RendererTest {
    PlacementTest() {
        fragment = "in vec2 uv;\n"
                   "#ifdef SECOND_UV\n"
                   "in vec2 secondUv;\n"
                   "#else\n"
                   "#define secondUv uv\n"
                   "#endif\n"
                   "void main() {\n"
                   "    vec2 place = material_place_picture(uv, secondUv);\n"
                   "#ifdef MATERIAL_PLACES_picture\n"
                   "    fragmentColor = vec4(place, 1.0, 1.0);\n"
                   "#else\n"
                   "    fragmentColor = vec4(place, 0.0, 1.0);\n"
                   "#endif\n"
                   "}\n";
        resources.meshLayoutFlags = LayoutTextureCoordinates | LayoutSecondTextureCoordinates;
    }

    // A square whose texture coordinates are the same everywhere.
    static Trade::MeshData placedSquare() {
        struct Vertex {
            Vector3 position;
            Vector2 first, second;
        };
        const Trade::MeshData plain = square();
        const Containers::Array<Vector3> positions = plain.positions3DAsArray();
        Containers::Array<char> data{ValueInit, positions.size() * sizeof(Vertex)};
        auto* const vertices = reinterpret_cast<Vertex*>(data.data());
        for(std::size_t i = 0; i != positions.size(); ++i) vertices[i] = {positions[i], First, Second};
        const auto attribute = [&](Trade::MeshAttribute name, VertexFormat format, std::size_t offset) {
            return Trade::MeshAttributeData{name, format, offset, UnsignedInt(positions.size()), sizeof(Vertex)};
        };
        return Trade::MeshData{MeshPrimitive::Triangles, std::move(data),
            {attribute(Trade::MeshAttribute::Position, VertexFormat::Vector3, offsetof(Vertex, position)),
                attribute(Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2, offsetof(Vertex, first)),
                attribute(Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2, offsetof(Vertex, second))}};
    }

    // The red and green of a surface whose shader has these parameters; blue is 1 where it has one of them.
    Vector3 placeWith(const std::vector<std::pair<std::string, Vector4>>& values) {
        const Id pipeline = addPipeline("Placed");
        resources.pipelines[pipeline].parameters.push_back({"picture", ParameterType::Texture, {}});
        SceneMaterial material;
        material.pipeline = pipeline;
        material.values = {Vector4{1.0f}, Vector4{}};
        material.textures = {0, 0};
        for(const auto& [name, value]: values) {
            resources.pipelines[pipeline].parameters.push_back({name, ParameterType::Vector, {}});
            material.values.push_back(value);
            material.textures.push_back(0);
        }
        material.id = "placed";
        resources.materials.push_back(material);
        const Id object = add(addMesh(placedSquare()), Id(resources.materials.size() - 1), {});
        tell();
        const std::uint32_t pixel = at(frame(), 0.0f, 0.0f);
        move(object, {100.0f, 0.0f, 0.0f});
        return Vector3{Float(pixel >> 24), Float(pixel >> 16 & 255), Float(pixel >> 8 & 255)} / 255.0f;
    }
};

void expectNear(const Vector3& actual, const Vector2& place, Float blue) {
    EXPECT_NEAR(actual.x(), place.x(), 0.004f);
    EXPECT_NEAR(actual.y(), place.y(), 0.004f);
    EXPECT_EQ(actual.z(), blue);
}

TEST_F(PlacementTest, isThatOfTheMeshWhereTheShaderDoesNotSayIt) {
    expectNear(placeWith({}), First, 0.0f);
    // Of another texture.
    expectNear(placeWith({{"otherPlace", Vector4{0.5f}}, {"otherTurn", Vector4{0.5f}}}), First, 0.0f);
}

TEST_F(PlacementTest, isTheSameWithoutChange) {
    expectNear(placeWith({{"picturePlace", {0.0f, 0.0f, 1.0f, 1.0f}}}), First, 1.0f);
    expectNear(placeWith({{"pictureTurn", Vector4{}}}), First, 1.0f);
}

TEST_F(PlacementTest, isScaledAndMoved) {
    expectNear(placeWith({{"picturePlace", {0.1f, 0.3f, 2.0f, 0.5f}}}), {0.1f + 0.4f, 0.3f + 0.2f}, 1.0f);
    expectNear(placeWith({{"picturePlace", {1.0f, 0.0f, -2.0f, 1.0f}}}), {1.0f - 0.4f, 0.4f}, 1.0f);
}

TEST_F(PlacementTest, isTurnedCounterclockwise) {
    // A quarter: (x, y) becomes (-y, x).
    expectNear(placeWith({{"pictureTurn", {1.5707963f, 0.0f, 0.0f, 0.0f}}, {"picturePlace", {0.5f, 0.0f, 1.0f, 1.0f}}}),
        {0.5f - 0.4f, 0.2f}, 1.0f);
    const Float angle = 0.3f, c = std::cos(angle), s = std::sin(angle);
    expectNear(placeWith({{"pictureTurn", {angle, 0.0f, 0.0f, 0.0f}}}),
        {c * First.x() - s * First.y(), s * First.x() + c * First.y()}, 1.0f);
}

TEST_F(PlacementTest, isScaledBeforeItIsTurnedAndMovedAfterwards) {
    expectNear(placeWith({{"picturePlace", {0.9f, 0.2f, 3.0f, 1.0f}}, {"pictureTurn", {1.5707963f, 0.0f, 0.0f, 0.0f}}}),
        {0.9f - 0.4f, 0.2f + 0.6f}, 1.0f);
}

TEST_F(PlacementTest, isByTheSecondCoordinates) {
    expectNear(placeWith({{"pictureTurn", {0.0f, 1.0f, 0.0f, 0.0f}}}), Second, 1.0f);
    expectNear(placeWith({{"pictureTurn", {0.0f, 1.0f, 0.0f, 0.0f}}, {"picturePlace", {0.0f, 0.5f, 0.5f, 2.0f}}}),
        {0.3f, 0.7f}, 1.0f);
}

// Numbers of another type are some parameter that happens to have such a name.
TEST_F(PlacementTest, takesVectorsOnly) {
    const Id pipeline = addPipeline("Colours");
    resources.pipelines[pipeline].parameters.push_back({"picture", ParameterType::Texture, {}});
    resources.pipelines[pipeline].parameters.push_back({"picturePlace", ParameterType::Color, {}});
    resources.pipelines[pipeline].parameters.push_back({"pictureTurn", ParameterType::Float, {}});
    SceneMaterial material;
    material.pipeline = pipeline;
    material.values = {Vector4{1.0f}, Vector4{}, Vector4{0.5f}, Vector4{0.5f}};
    material.textures = {0, 0, 0, 0};
    resources.materials.push_back(material);
    add(addMesh(placedSquare()), Id(resources.materials.size() - 1), {});
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x336600ffu);
}

} // namespace
