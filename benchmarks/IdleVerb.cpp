#include "Allocations.h"
#include "BenchProject.h"
#include "BenchView.h"
#include "GlCalls.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr int Ticks = 1000;
constexpr int ForcedFrames = 10;
constexpr int FramesToSettle = 3;

// A host that draws only when its views want it.
long long framesWhileNothingMoves(BenchView& view) {
    long long frames = 0;
    for(int tick = 0; tick != Ticks; ++tick)
        if(view.host().state.wantsFrame) {
            view.frameSeconds();
            ++frames;
        }
    return frames;
}

}

void idle(std::size_t count) {
    BenchView view{{640, 480}};
    const bool areCallsCounted = countGlCalls();
    view.open(BenchProject{gridProject(count)}.path());
    for(int i = 0; i != FramesToSettle; ++i) view.frameSeconds();
    printLine(exactLine("idle", "while_nothing_moves", "frames", framesWhileNothingMoves(view), 0));

    const GlCalls callsBefore = GlCalls::soFar();
    const std::uint64_t allocationsBefore = allocationCount();
    for(int i = 0; i != ForcedFrames; ++i) view.host().frame();
    const auto allocations = (long long)(allocationCount() - allocationsBefore);
    const GlCalls calls = GlCalls::soFar() - callsBefore;
    printLine(exactLine("idle", "forced_frames", "allocations", allocations, 0));
    if(!areCallsCounted) return;
    printLine(exactLine("idle", "forced_frames", "shader_builds", (long long)(calls.builds), 0));
    printLine(exactLine("idle", "forced_frames", "uploaded_bytes", (long long)(calls.uploadedBytes), 0));

    // What the counters see when something does move.
    view.host().session.changes().recordVector3("/objects/o0/translation", {}, false);
    const GlCalls before = GlCalls::soFar();
    view.host().frame();
    printLine(limitLine(
        "idle", "one_object_moved", "uploaded_bytes", double((GlCalls::soFar() - before).uploadedBytes), 4096.0));
}

}
