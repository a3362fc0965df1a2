#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/Meshes/VertexLayout.h"
#include "Renderer/Textures/TextureNeed.h"

namespace VantrelEngine {

// The text of both stages of a program, each made of pieces: what the renderer provides, the source of the pipeline, and
// what is put behind it.
struct ShaderSources {
    std::string vertexPrefix, vertex, vertexSuffix;
    std::string fragmentPrefix, fragment, fragmentSuffix;
};

// What a program is for. All but the picture are the same meshes in the same places, with the same holes, as the picture.
enum class ProgramPurpose { Picture, Depth, ObjectIds, OneColor };

// What the programs of a pipeline are made of.
struct PipelineRecipe {
    ScenePipeline description;
    std::string vertexSource, fragmentSource;
    VertexLayout layout{};
    // Of textures, by parameter; nothing for those beyond the end. A texture that needs nothing is white.
    std::vector<TextureNeeds> needs;
    // Whether the scene has surroundings of its own.
    bool hasEnvironment = false;
    // Whether some light is meant to throw shadows.
    bool hasShadows = false;
    // Whether the picture is one of linear colours without a limit, whose tones are mapped later.
    bool isLinear = false;
};

// What the sources of a pipeline may use: the attributes of the vertices, the objects and the view; with the functions of
// textures and lights, and with the parameters of its materials. A parameter whose name is no name in the shading
// language has no accessor.
//
// Expects that draw parameters are wanted only where the GL has them.
ShaderSources pipelineSources(const PipelineRecipe& recipe, bool hasDrawParameters, ProgramPurpose purpose);

// Whether the picture of a pipeline with this fragment source looks different with surroundings.
bool dependsOnEnvironment(std::string_view fragmentSource);
// The same with shadows.
bool dependsOnShadows(std::string_view fragmentSource);

// Of the surroundings behind everything.
ShaderSources skySources(bool isLinear);

// In the place of sources that there are not or that do not compile: the first colour of the material, or grey.
std::string flatVertexSource();
std::string flatFragmentSource(const std::vector<ShaderParameter>& parameters);

} // namespace VantrelEngine
