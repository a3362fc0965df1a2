#include <algorithm>
#include <cstdio>

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/SceneRevisions.h>

#include "Allocations.h"
#include "BenchProject.h"
#include "BenchView.h"
#include "GlCalls.h"
#include "GridProject.h"
#include "Report.h"
#include "Support/LiveObjects.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;
using VantrelTest::LiveObjects;

namespace {

constexpr double Limit = 1.3;
constexpr std::size_t MostPairs = 20;

double moduleReloadSeconds(BenchView& view) {
    return secondsOf([&] { view.host().reloadView(); }) + view.frameSeconds();
}

// Another view in the place of the one that is there: its renderer is made up to date in full.
double firstFrameSeconds(BenchView& view) {
    return secondsOf([&] { view.host().remakeView(); }) + view.frameSeconds();
}

// The same view, which has to make everything again; what it finds to be the same it may keep.
double fullReloadSeconds(BenchView& view) {
    SceneRevisions& revisions = view.host().session.data().scene().revisions();
    for(std::size_t i = 0; i != AspectCount; ++i) revisions.touch(Aspect(i));
    return view.frameSeconds();
}

void growth(BenchView& view, std::size_t reloads, bool areAllocationsOurs) {
    const LiveObjects objects = LiveObjects::count();
    const std::size_t ours = trackedBytes(), all = allocatedBytes();
    for(std::size_t i = 0; i != reloads; ++i) moduleReloadSeconds(view);
    printLine(exactLine("hotreload", "live_objects", "differences", !(LiveObjects::count() == objects), 0));
    if(areAllocationsOurs)
        printLine(exactLine("hotreload", "memory", "growth", (long long)(trackedBytes()) - (long long)(ours), 0));
    // With what the GL keeps for itself.
    char line[128];
    std::snprintf(line, sizeof(line), R"({"verb":"hotreload","case":"memory_with_driver","bytes":%.6g})",
        double(allocatedBytes()) - double(all));
    printLine(line);
}

Result besideOther(BenchView& view, const char* name, double (*other)(BenchView&), int pairs) {
    const Result result = measureTimedPairs(
        "hotreload", name, [&] { return moduleReloadSeconds(view); }, [&] { return other(view); }, {0.0, 0.0, pairs});
    print(result);
    return result;
}

}

void hotReload(std::size_t count, std::size_t reloads) {
    trackAllocations();
    BenchView view{{320, 240}};
    const bool areCallsCounted = countGlCalls();
    view.open(BenchProject{gridProject(count)}.path());
    for(int i = 0; i != 2; ++i) moduleReloadSeconds(view);
    growth(view, reloads, areCallsCounted);
    const int pairs = int(std::min(reloads, MostPairs));
    besideOther(view, "beside_full_reload", fullReloadSeconds, pairs);
    const Result result = besideOther(view, "beside_first_frame", firstFrameSeconds, pairs);
    printLine(limitLine("hotreload", "beside_first_frame", "ratio", result.ratio, Limit));
}

}
