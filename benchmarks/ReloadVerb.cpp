#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/SceneRevisions.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr double Limit = 0.1;
constexpr int Rounds = 5;

struct NamedAspect {
    const char* name;
    // Empty: nothing but where an object stands.
    std::optional<Aspect> aspect;
    long long stages;
};

// With the stages that have to be made again.
constexpr NamedAspect Aspects[]{{"place", {}, 0}, {"settings", Aspect::Settings, 1}, {"lights", Aspect::Lights, 1},
    {"images", Aspect::Images, 2}, {"textures", Aspect::Textures, 2}, {"shaders", Aspect::Shaders, 4},
    {"pipelines", Aspect::Pipelines, 4}, {"meshes", Aspect::Meshes, 2}, {"mesh_data", Aspect::MeshData, 2},
    {"draws", Aspect::Draws, 1}, {"materials", Aspect::Materials, 1}, {"fonts", Aspect::Fonts, 2}};

void change(BenchView& view, const NamedAspect& aspect, double where) {
    ProjectSession& session = view.host().session;
    if(aspect.aspect)
        session.data().scene().revisions().touch(*aspect.aspect);
    else
        session.changes().recordVector3("/objects/o0/translation", {Float(where), 0.0f, 0.0f}, false);
}

long long stagesOfLastReload(BenchView& view) {
    const Corrade::Containers::String& stages = view.host().state.lastReload;
    return std::count(stages.begin(), stages.end(), '\n');
}

void reloadFor(BenchView& view, const NamedAspect& aspect, const Budget& budget) {
    double where = 0.0;
    const auto reload = [&] {
        change(view, aspect, where += 0.001);
        return view.frameSeconds();
    };
    const double seconds = medianSeconds(reload, budget);
    printLine(exactLine("reload", aspect.name, "stages", stagesOfLastReload(view), aspect.stages));
    printLine(timeLine("reload", aspect.name, seconds));
}

double revisionSeconds(BenchView& view, std::size_t size, Budget budget) {
    view.open(BenchProject{gridProject(size)}.path());
    view.frameSeconds();
    budget.seconds /= Rounds;
    return medianSeconds(
        [&] {
            view.host().session.data().scene().revisions().touch();
            return view.frameSeconds();
        },
        budget);
}

}

std::vector<std::string> reloadAspects() {
    std::vector<std::string> names{"all"};
    for(const NamedAspect& aspect: Aspects) names.push_back(aspect.name);
    return names;
}

void reload(std::size_t count, const std::string& aspect, const Budget& budget) {
    BenchView view{{320, 240}};
    view.frameSeconds();
    view.collapse();
    const std::vector<std::size_t> sizes = sizesUpTo(count);
    const Growth growth =
        measureGrowth(sizes, [&](std::size_t size) { return revisionSeconds(view, size, budget); }, {0.0, 0.0, Rounds});
    printGrowth("reload", "revision_alone", growth, Limit);
    printLine(exactLine("reload", "revision_alone", "stages", stagesOfLastReload(view), 0));
    for(const NamedAspect& each: Aspects)
        if(aspect == "all" || aspect == each.name) reloadFor(view, each, budget);
}

}
