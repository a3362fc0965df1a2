#include <algorithm>
#include <vector>

#include "BenchProject.h"
#include "BenchView.h"
#include "Data/StepWalk.h"
#include "GridProject.h"
#include "MouseDrag.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double CountLimit = 1.15;
constexpr double HoldLimit = 1.2;
// Small, and of objects that are seen from behind: what a frame takes of them is the question, not pixels.
constexpr Magnum::Vector2i PictureSize{320, 260};
// Of all objects, and frames of the long drag for each frame of a short one.
constexpr std::size_t ObjectsOfLongDrag = 10000, DraggedOfLongDrag = 1000, LongDrag = 60;

void undoDrag(BenchView& view) {
    ProjectSession& session = view.host().session;
    session.steps().update();
    goToStep(session, session.steps().position() - 1);
}

double laterFrameSeconds(BenchView& view, std::size_t count, std::size_t frames) {
    MouseDrag drag{view, count};
    drag.begin();
    std::vector<double> times;
    for(std::size_t frame = 1; frame < frames; ++frame) times.push_back(drag.moveOn());
    drag.end();
    undoDrag(view);
    view.frameSeconds();
    return median(std::move(times));
}

// Seconds of the undo, and of the frame that shows it.
double undoSeconds(BenchView& view, std::size_t count) {
    MouseDrag drag{view, count};
    drag.begin();
    drag.end();
    return secondsOf([&] { undoDrag(view); }) + view.frameSeconds();
}

// The last frames of a long drag beside its first ones.
double lastBesideFirst(BenchView& view, std::size_t count, std::size_t frames) {
    MouseDrag drag{view, count};
    drag.begin();
    std::vector<double> times;
    for(std::size_t frame = 0; frame != frames; ++frame) times.push_back(drag.moveOn());
    drag.end();
    const auto part = std::ptrdiff_t(times.size() / 4);
    return median({times.end() - part, times.end()}) / median({times.begin(), times.begin() + part});
}

std::vector<std::size_t> countsUpTo(std::size_t largest) {
    std::vector<std::size_t> counts;
    for(std::size_t count = 1; count < largest; count *= 10) counts.push_back(count);
    counts.push_back(largest);
    return counts;
}

void openGrid(BenchView& view, std::size_t size) {
    view.open(BenchProject{gridProject(size, 0.0, GridObjects::Backs)}.path());
    for(int i = 0; i != 3; ++i) view.frameSeconds();
}

}

void dragInView(std::size_t size, std::size_t count, std::size_t frames, const Budget& budget) {
    BenchView view{PictureSize};
    size = std::min(size, ObjectsOfLongDrag);
    openGrid(view, size);
    count = std::clamp<std::size_t>(count, 2, size);
    printGrowth("drag", "by_mouse",
        measureGrowth(
            countsUpTo(count), [&](std::size_t each) { return laterFrameSeconds(view, each, frames); }, budget),
        CountLimit);
    const double ratio = lastBesideFirst(view, std::min(count, DraggedOfLongDrag), frames * LongDrag);
    printLine(limitLine("drag", "last_frames_beside_first", "ratio", ratio, HoldLimit));
    // All others were undone.
    printLine(exactLine("drag", "long_drag", "steps", (long long)(view.host().session.steps().position()), 1));
}

void undoInView(std::size_t size, std::size_t count, const Budget& budget) {
    BenchView view{PictureSize};
    size = std::min(size, ObjectsOfLongDrag);
    openGrid(view, size);
    count = std::clamp<std::size_t>(count, 2, size);
    printGrowth("undo", "by_mouse",
        measureGrowth(
            countsUpTo(count), [&](std::size_t each) { return undoSeconds(view, each); }, budget),
        CountLimit);
}

}
