#include "Views/SceneView/Reload/ReloadPlan.h"

namespace VantrelEngine {

namespace {

constexpr ReloadCauses cause(Aspect aspect) { return ReloadCauses{std::uint16_t(1u << unsigned(aspect))}; }

static_assert(cause(Aspect::Settings) == ReloadCause::Settings && cause(Aspect::Lights) == ReloadCause::Lights &&
        cause(Aspect::Images) == ReloadCause::Images && cause(Aspect::Textures) == ReloadCause::Textures &&
        cause(Aspect::Shaders) == ReloadCause::Shaders && cause(Aspect::Pipelines) == ReloadCause::Pipelines &&
        cause(Aspect::Meshes) == ReloadCause::Meshes && cause(Aspect::MeshData) == ReloadCause::MeshData &&
        cause(Aspect::Draws) == ReloadCause::Draws && cause(Aspect::Materials) == ReloadCause::Materials &&
        cause(Aspect::Fonts) == ReloadCause::Fonts && AspectCount == 11,
    "the first causes are the aspects, in their order");

constexpr ReloadCauses ForPipelines = ReloadCause::Shaders | ReloadCause::Pipelines | ReloadCause::Layout |
    ReloadCause::LightCount | ReloadCause::ShadowLightCount;
constexpr ReloadCauses ForBatches = ForPipelines | ReloadCause::Meshes | ReloadCause::MeshData;

struct Stage {
    const char* name;
    ReloadCauses runsFor;
};

// By ReloadStage. Batches and materials refer to pipelines, draws to batches.
constexpr Stage Stages[ReloadStageCount]{
    {"shadows", ReloadCause::Lights},
    {"settings", ReloadCause::Settings},
    {"texture atlases", ReloadCause::Images | ReloadCause::Textures},
    {"pipelines", ForPipelines},
    {"fonts", ReloadCause::Fonts},
    {"batches", ForBatches},
    {"draws", ForBatches | ReloadCause::Draws},
    {"materials",
        ForPipelines | ReloadCause::Materials | ReloadCause::Textures | ReloadCause::Images | ReloadCause::Fonts},
    {"physics", ReloadCause::Always},
    {"acknowledge", ReloadCause::Always},
};

// By bit of ReloadCause.
constexpr const char* CauseNames[ReloadCauseCount]{"settings", "lights", "images", "textures", "shaders", "pipelines",
    "meshes", "mesh data", "draws", "materials", "fonts", "vertex layout", "number of lights",
    "number of lights with shadows", "each reload"};

ReloadCauses changedAspects(const SceneRevisions& revisions, std::int32_t revisionSeen) {
    ReloadCauses changed;
    for(std::size_t i = 0; i != AspectCount; ++i)
        if(revisions.counter(Aspect(i)) != std::uint32_t(revisionSeen)) changed |= cause(Aspect(i));
    return changed;
}

std::string namesOf(ReloadCauses causes) {
    std::string names;
    for(std::size_t i = 0; i != ReloadCauseCount; ++i) {
        if(!(causes & ReloadCause(1u << i))) continue;
        if(!names.empty()) names += ", ";
        names += CauseNames[i];
    }
    return names;
}

}

bool isReloadDue(const SceneRevisions& revisions, const ReloadSeen& seen) {
    return revisions.revision() != std::uint32_t(seen.revision);
}

ReloadPlan planReload(const SceneRevisions& revisions, const ReloadSeen& seen, const PipelineCounts& counts,
    bool layoutChanged, std::size_t fontCount) {
    ReloadCauses changed = changedAspects(revisions, seen.revision) | ReloadCause::Always;
    if(layoutChanged) changed |= ReloadCause::Layout;
    if(counts.lights != seen.counts.lights) changed |= ReloadCause::LightCount;
    if(counts.shadowLights != seen.counts.shadowLights) changed |= ReloadCause::ShadowLightCount;

    ReloadPlan plan;
    for(std::size_t i = 0; i != ReloadStageCount; ++i) plan._causes[i] = Stages[i].runsFor & changed;
    plan._updatesFonts = plan.runs(ReloadStage::Fonts) && fontCount >= 2;
    return plan;
}

ReloadSeen seenNow(const SceneRevisions& revisions, const PipelineCounts& counts) {
    return {std::int32_t(revisions.revision()), counts};
}

std::string describe(const ReloadPlan& plan) {
    std::string text;
    for(std::size_t i = 0; i != ReloadStageCount; ++i) {
        const ReloadCauses causes = plan.causes(ReloadStage(i));
        if(!causes || causes == ReloadCause::Always) continue;
        text += Stages[i].name;
        text += ": ";
        text += namesOf(causes);
        text += '\n';
    }
    return text;
}

} // namespace VantrelEngine
