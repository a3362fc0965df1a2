#pragma once

#include <initializer_list>
#include <vector>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/Mesh.h>
#include <gtest/gtest.h>

namespace ConformanceShaders {

// What is drawn while it lives can be read back with the precision of floats: a square of 64 pixels with an object id
// and a depth each, cleared to Background and NoId.
class Canvas {
public:
    enum : Magnum::Int { Size = 64 };
    enum : Magnum::UnsignedInt { NoId = 77 };
    static Magnum::Color4 background() { return {0.25f, 0.5f, 0.125f, 0.75f}; }

    Canvas();

    void clear();
    Magnum::Color4 at(Magnum::Int x, Magnum::Int y);
    Magnum::UnsignedInt idAt(Magnum::Int x, Magnum::Int y);
    bool isBackground(Magnum::Int x, Magnum::Int y) { return at(x, y) == background(); }

    // The middle of a pixel in normalised device coordinates, and back (not rounded).
    static Magnum::Vector2 deviceAt(Magnum::Int x, Magnum::Int y);
    static Magnum::Vector2 pixelOf(const Magnum::Vector2& device);

private:
    Magnum::GL::Texture2D _color, _id;
    Magnum::GL::Renderbuffer _depth;
    Magnum::GL::Framebuffer _framebuffer;
};

struct Vertex {
    Magnum::Vector3 position;
    Magnum::Vector2 textureCoordinates{};
    Magnum::Vector3 normal{0.0f, 0.0f, 1.0f};
    Magnum::Vector4 tangent{1.0f, 0.0f, 0.0f, 1.0f};
    Magnum::Color4 color{1.0f};
};

Magnum::GL::Mesh mesh(
    std::initializer_list<Vertex> vertices, Magnum::MeshPrimitive primitive = Magnum::MeshPrimitive::Triangles);

// A square from (-1, -1) to (1, 1) in the plane of the given z, with texture coordinates from (0, 0) to (1, 1).
Magnum::GL::Mesh square(const Magnum::Vector3& normal = {0.0f, 0.0f, 1.0f}, Magnum::Float z = 0.0f,
    const Magnum::Vector4& tangent = {1.0f, 0.0f, 0.0f, 1.0f});

// One row of texels, not filtered.
Magnum::GL::Texture2D texture(std::initializer_list<Magnum::Color4> texels);

// Whether no component differs by more than the tolerance; says what was there otherwise.
testing::AssertionResult isNear(
    const Magnum::Color4& actual, const Magnum::Color4& expected, Magnum::Float tolerance = 1.0e-4f);

}
