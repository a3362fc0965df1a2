#include <algorithm>
#include <map>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double CountLimit = 1.15;
constexpr double SizeLimit = 0.4;
constexpr double FirstFrameLimit = 4.0;
constexpr std::size_t Gestures = 5;

struct Opened {
    explicit Opened(std::size_t size): project{projectOptions(size)}, session{project.open()} {}

    BenchProject project;
    std::unique_ptr<ProjectSession> session;
    std::uint64_t key = 0;
};

// Seconds of a frame that is not the first one of its gesture: the median of all but the first.
double laterFrameSeconds(Opened& opened, std::size_t count, std::size_t frames) {
    const std::vector<std::string> paths = spreadPaths(*opened.session, count);
    ++opened.key;
    dragFrame(*opened.session, paths, opened.key, 0);
    std::vector<double> times;
    for(std::size_t frame = 1; frame < frames; ++frame)
        times.push_back(secondsOf([&] { dragFrame(*opened.session, paths, opened.key, frame); }));
    opened.session->changes().undoLast();
    opened.session->update();
    return median(std::move(times));
}

double firstToLaterFrame(Opened& opened, std::size_t count, std::size_t frames) {
    const std::vector<std::string> paths = spreadPaths(*opened.session, count);
    std::vector<double> ratios;
    for(std::size_t gesture = 0; gesture != Gestures; ++gesture) {
        ++opened.key;
        const double first = secondsOf([&] { dragFrame(*opened.session, paths, opened.key, 0); });
        std::vector<double> later;
        for(std::size_t frame = 1; frame < frames; ++frame)
            later.push_back(secondsOf([&] { dragFrame(*opened.session, paths, opened.key, frame); }));
        ratios.push_back(first / median(std::move(later)));
    }
    return median(std::move(ratios));
}

// Bytes from the end of the second frame to the end of the last one. The gestures before bring the allocator's own
// caches, which count as allocated, to what they stay at.
long long heapGrowth(Opened& opened, std::size_t count, std::size_t frames) {
    const std::vector<std::string> paths = spreadPaths(*opened.session, count);
    std::size_t before = 0;
    for(std::size_t gesture = 0; gesture != Gestures; ++gesture) {
        ++opened.key;
        for(std::size_t frame = 0; frame != frames + 2; ++frame) {
            dragFrame(*opened.session, paths, opened.key, frame);
            if(frame == 1) before = allocatedBytes();
        }
    }
    return (long long)(allocatedBytes()) - (long long)(before);
}

std::vector<std::size_t> countsUpTo(std::size_t largest) {
    std::vector<std::size_t> counts;
    for(std::size_t count = 1; count < largest; count *= 10) counts.push_back(count);
    counts.push_back(largest);
    return counts;
}

}

void drag(std::size_t size, std::size_t count, std::size_t frames, const Budget& budget) {
    const std::vector<std::size_t> sizes = sizesUpTo(size);
    std::map<std::size_t, Opened> opened;
    for(const std::size_t each: sizes) opened.try_emplace(each, each);
    Opened& largest = opened.at(sizes.back());
    count = std::max<std::size_t>(std::min(count, size), 2);

    const std::size_t few = std::min<std::size_t>(sizes.front(), 100);

    // First of all, with a log that has nothing before.
    printLine(exactLine("drag", "heap_growth", "bytes", heapGrowth(largest, count, frames), 0));
    printGrowth("drag", "dragged",
        measureGrowth(
            countsUpTo(count), [&](std::size_t each) { return laterFrameSeconds(largest, each, frames); }, budget),
        CountLimit);
    printGrowth("drag", "objects",
        measureGrowth(
            sizes, [&](std::size_t each) { return laterFrameSeconds(opened.at(each), few, frames); }, budget),
        SizeLimit);
    printLine(limitLine(
        "drag", "first_frame_beside_later", "ratio", firstToLaterFrame(largest, count, frames), FirstFrameLimit));
}

}
