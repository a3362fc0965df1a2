#include <algorithm>
#include <vector>

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/LightManager.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "CullingFloor.h"
#include "GlCalls.h"
#include "GridLights.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double Behind = 0.5;
constexpr double PartLimit = 0.9;

// The slots in each of the maps, as they were fitted last.
std::vector<std::vector<Id>> slotsInMaps(BenchView& view) {
    EditorSceneData& data = view.host().session.data().scene();
    std::vector<std::vector<Id>> maps;
    for(const LightShadow& shadow: data.main().lights.shadows()) {
        CullingFloor floor{data.main(), data.resources(), shadow.matrix};
        floor.cull();
        maps.push_back(floor.inside());
    }
    return maps;
}

long long sizeOf(const std::vector<std::vector<Id>>& maps) {
    std::size_t size = 0;
    for(const std::vector<Id>& map: maps) size += map.size();
    return (long long)(size);
}

void printDrawn(BenchView& view, const char* name, long long maps, long long casters) {
    const FrameStatistics& drawn = view.host().state.statistics;
    printLine(exactLine("shadow", name, "maps", drawn.shadowMaps, maps));
    printLine(exactLine("shadow", name, "casters", drawn.shadowCasters, casters));
}

// Those that hold it before or afterwards are drawn again.
void moveOne(BenchView& view) {
    ProjectSession& session = view.host().session;
    const Scene& scene = session.data().scene().main();
    const Id object = session.compiler().objectOf("o0");
    const auto objects = scene.meshes.objects();
    const auto slot = Id(std::find(objects.begin(), objects.end(), object) - objects.begin());
    const std::vector<std::vector<Id>> before = slotsInMaps(view);
    session.changes().recordVector3("/objects/o0/translation", {}, false);
    printLine(timeLine("shadow", "one_object_moved", view.frameSeconds()));
    const std::vector<std::vector<Id>> after = slotsInMaps(view);
    long long maps = 0, casters = 0;
    for(std::size_t i = 0; i != after.size(); ++i) {
        const auto has = [&](const std::vector<Id>& map) {
            return std::find(map.begin(), map.end(), slot) != map.end();
        };
        if(!has(before[i]) && !has(after[i])) continue;
        ++maps;
        casters += (long long)(after[i].size());
    }
    printDrawn(view, "one_object_moved", maps, casters);
}

}

void shadow(std::size_t count, std::size_t cascades) {
    BenchView view{{320, 240}};
    const bool areCallsCounted = countGlCalls();
    JsonDocument project = gridProject(count, Behind);
    addSun(project, cascades);
    view.open(BenchProject{project}.path());
    view.frameSeconds();
    const long long inside = sizeOf(slotsInMaps(view));
    printDrawn(view, "first_frame", (long long)(cascades), inside);
    printLine(limitLine("shadow", "first_frame", "part_of_all", double(inside) / double(count * cascades), PartLimit));

    const GlCalls before = GlCalls::soFar();
    printLine(timeLine("shadow", "nothing_moved", view.frameSeconds()));
    printDrawn(view, "nothing_moved", 0, 0);
    if(areCallsCounted)
        printLine(exactLine(
            "shadow", "nothing_moved", "uploaded_bytes", (long long)((GlCalls::soFar() - before).uploadedBytes), 0));
    moveOne(view);
}

}
