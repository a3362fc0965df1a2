#pragma once

#include <optional>
#include <string>

#include <Magnum/GL/AbstractShaderProgram.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector4.h>

namespace VantrelEngine {

struct ShaderSources;

// What a program has to know of the view that it draws.
struct ViewUniforms {
    Magnum::Matrix4 viewProjection;
    Magnum::Vector3 cameraPosition;
    // Pixels.
    Magnum::Vector2 viewportSize{1.0f};
    // Values from row to row.
    Magnum::Int materialStride = 1;
    // See Environment.glsl.
    Magnum::Vector4 environment;
    // Counts the views, so that a program is told once of each.
    Magnum::UnsignedLong number = 0;
};

// A program that draws meshes of the scene from the buffers of the renderer.
class MeshProgram: public Magnum::GL::AbstractShaderProgram {
public:
    // Compiles and links. Where that fails, there is none, and the reason says the stage and what the compiler said
    // first; nothing is printed.
    static std::optional<MeshProgram> make(const ShaderSources& sources, std::string& reason);

    MeshProgram& setView(const ViewUniforms& view);
    // Where in the list of instances the next draw starts.
    MeshProgram& setFirstInstance(Magnum::Int instance);
    // Of programs for one colour.
    MeshProgram& setColor(const Magnum::Color4& color);

private:
    explicit MeshProgram() = default;

    void findUniforms();

    Magnum::Int _viewProjection = -1, _cameraPosition = -1, _viewportSize = -1, _materialStride = -1;
    Magnum::Int _firstInstance = -1, _color = -1, _environment = -1;
    Magnum::UnsignedLong _viewNumber = 0;
};

} // namespace VantrelEngine
