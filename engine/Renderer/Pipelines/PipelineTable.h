#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/Meshes/VertexLayout.h"
#include "Renderer/Pipelines/MeshProgram.h"
#include "Renderer/Pipelines/ShaderSources.h"

namespace VantrelEngine {

// How meshes of a pipeline are drawn. The programs are null where there is no such pipeline, and before they are built;
// that of the depth also where it takes no part in the depth pass.
struct Pipeline {
    std::string name;
    PipelineHeader header;
    std::vector<ShaderParameter> parameters;
    std::shared_ptr<MeshProgram> picture, depth, objectIds, oneColor;

    bool isThere() const { return bool(picture); }
    // By name; as many as there are where it is not among them.
    std::size_t parameter(std::string_view name) const;
};

// The pipelines of a scene by index. Programs of the same sources are one, and live on from one filling to the next.
//
// They are filled, what the textures of their materials need is told, and then the programs are built.
class PipelineTable {
public:
    // Draw parameters are used where they are wanted, which only a GL that has them can do.
    explicit PipelineTable(bool hasDrawParameters): _hasDrawParameters{hasDrawParameters} {}

    // Forgets the pipelines and the depth shader.
    void clear();
    // Whether pictures are of linear colours, whose tones are mapped later. Their programs are due to be built.
    void setLinear(bool isLinear);
    // Pipelines with this vertex source, whatever is defined before it, take part in the depth pass.
    void setDepthSource(std::string_view vertexSource) { _depthSource = vertexSource; }
    // Without sources it is drawn flat.
    void add(Id index, const ScenePipeline& pipeline, std::string_view vertexSource, std::string_view fragmentSource,
        const VertexLayout& layout);
    // Of a texture among the parameters, which are expected to have it. Adds to what was needed since the pipeline was
    // added, so that what comes and goes is built once.
    void addNeeds(Id index, std::size_t parameter, TextureNeeds needs);
    // Whether the scene has surroundings of its own, from now on. True where programs have to be made again.
    bool setEnvironment(bool isThere);
    // Whether pictures have shadows, likewise.
    bool setShadows(bool enabled);
    bool hasShadows() const { return _hasShadows; }
    // Makes the programs of what was added, and those that have to do more than before. Prints one line where the
    // sources do not compile; then it is drawn flat.
    void build();
    // Deletes the programs that no pipeline uses any more.
    void tidy();

    // 0 where there is none of this name.
    Id find(std::string_view name) const;
    // An empty one for what is not there.
    const Pipeline& operator[](Id index) const;

    // Programs that were compiled so far.
    std::size_t builtPrograms() const { return _builtPrograms; }

private:
    struct Plan {
        PipelineRecipe recipe;
        // Has no sources of its own that compile.
        bool isFlat = false;
        bool isDue = false;
    };

    std::shared_ptr<MeshProgram> program(const ShaderSources& sources, const std::string& label, std::string& reason);
    static void makeFlat(Plan& plan);
    bool set(
        bool& known, bool PipelineRecipe::*ofRecipe, bool value, bool (*isUsedBy)(std::string_view fragmentSource));
    void build(Pipeline& pipeline, Plan& plan);
    bool buildPrograms(Pipeline& pipeline, const PipelineRecipe& recipe, std::string& reason);

    bool _hasDrawParameters;
    bool _hasEnvironment = false;
    bool _hasShadows = false;
    bool _isLinear = false;
    std::string _depthSource;
    std::vector<Pipeline> _pipelines;
    // By index, as the pipelines.
    std::vector<Plan> _plans;
    std::unordered_map<std::string, Id> _indices;
    std::unordered_map<std::string, std::shared_ptr<MeshProgram>> _programs;
    bool _isTidy = true;
    std::size_t _builtPrograms = 0;
};

} // namespace VantrelEngine
