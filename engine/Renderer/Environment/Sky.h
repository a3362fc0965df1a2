#pragma once

#include <optional>

#include <Magnum/GL/Mesh.h>

#include "Renderer/Pipelines/MeshProgram.h"

namespace VantrelEngine {

// Draws the surroundings of a scene where nothing hides them.
class Sky {
public:
    // Needs a GL context.
    explicit Sky();

    // Expects that the surroundings are bound, the switches of RendererState{}, and the depths of what hides them. Leaves
    // the depth alone. In colours of the screen or in linear ones, see PipelineRecipe.
    void draw(const ViewUniforms& view, bool isLinear);

private:
    // Each made when it is needed first.
    std::optional<MeshProgram> _programs[2];
    Magnum::GL::Mesh _triangle{Magnum::GL::MeshPrimitive::Triangles};
};

} // namespace VantrelEngine
