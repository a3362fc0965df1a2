#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include <Corrade/Containers/EnumSet.h>

#include <Vantrel/EngineData/SceneRevisions.h>

// What the renderer has to make again after the scene changed, and why. Decided here, carried out elsewhere.
namespace VantrelEngine {

// In the order in which they run. A stage may rely on those before it.
enum class ReloadStage : std::uint8_t {
    Shadows,
    Settings,
    TextureAtlases,
    Pipelines,
    Fonts,
    // Batches and meshes, then the list of what is drawn of them.
    Batches,
    Draws,
    Materials,
    // Bodies follow their objects, or the simulation goes on: at each reload.
    Physics,
    // Writes the revision into all counters: at each reload, and last.
    Acknowledge
};
constexpr std::size_t ReloadStageCount = 10;

// What a stage runs for. The first of them are the aspects.
enum class ReloadCause : std::uint16_t {
    Settings = 1 << 0,
    Lights = 1 << 1,
    Images = 1 << 2,
    Textures = 1 << 3,
    Shaders = 1 << 4,
    Pipelines = 1 << 5,
    Meshes = 1 << 6,
    MeshData = 1 << 7,
    Draws = 1 << 8,
    Materials = 1 << 9,
    Fonts = 1 << 10,
    // The renderer's vertex layout.
    Layout = 1 << 11,
    LightCount = 1 << 12,
    ShadowLightCount = 1 << 13,
    Always = 1 << 14
};
constexpr std::size_t ReloadCauseCount = 15;

using ReloadCauses = Corrade::Containers::EnumSet<ReloadCause, (1 << ReloadCauseCount) - 1>;
CORRADE_ENUMSET_OPERATORS(ReloadCauses)

// What of the main scene the pipelines are built for, besides shaders and vertex layout.
struct PipelineCounts {
    std::uint32_t lights = 0;
    std::uint32_t shadowLights = 0;
};

// What the view remembers of the last reload.
struct ReloadSeen {
    // The scene's revision as a signed number; -1 before the first reload, which then runs every stage.
    std::int32_t revision = -1;
    PipelineCounts counts;
};

class ReloadPlan {
public:
    // Empty where the stage does not run.
    ReloadCauses causes(ReloadStage stage) const { return _causes[std::size_t(stage)]; }
    bool runs(ReloadStage stage) const { return bool(causes(stage)); }
    // Of the stage of fonts: whether they are made; otherwise there are none, and it forgets what it has.
    bool updatesFonts() const { return _updatesFonts; }

private:
    friend ReloadPlan planReload(const SceneRevisions&, const ReloadSeen&, const PipelineCounts&, bool, std::size_t);

    std::array<ReloadCauses, ReloadStageCount> _causes{};
    bool _updatesFonts = false;
};

// Whether anything changed since the last reload.
bool isReloadDue(const SceneRevisions& revisions, const ReloadSeen& seen);

// The layout changed if the renderer said so when it was told the scene's. Its switches have a say in it: the stage of
// settings tells it again, and if it only then says so, the plan is made again with that for the stages that follow;
// those up to there do not depend on it. Fonts are counted with the reserved first one.
ReloadPlan planReload(const SceneRevisions& revisions, const ReloadSeen& seen, const PipelineCounts& counts,
    bool layoutChanged, std::size_t fontCount);

// What to remember after the reload.
ReloadSeen seenNow(const SceneRevisions& revisions, const PipelineCounts& counts);

// For people: a line for each stage that runs because of something, such as "texture atlases: images, textures".
std::string describe(const ReloadPlan& plan);

} // namespace VantrelEngine
