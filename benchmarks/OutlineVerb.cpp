#include <string>
#include <utility>
#include <vector>

#include <Magnum/GL/Renderer.h>
#include <Vantrel/EditorData/EditorData.h>

#include "BareGl.h"
#include "BenchProject.h"
#include "BenchView.h"
#include "GlCalls.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr double Limit = 1.6;
// Of the outline at a scale of 1.
constexpr double PixelsOfScale = 4.0;
constexpr int FramesToSettle = 3;

void select(BenchView& view, std::size_t count, bool isSelected) {
    for(std::size_t i = 0; i != count; ++i) {
        const std::string id = "o" + std::to_string(i);
        EditorData& data = view.host().session.data();
        const Id object = view.host().session.compiler().objectOf(id.data());
        if(isSelected)
            data.selectObject(object, true);
        else
            data.deselectObject(object);
    }
}

// Its framebuffers stay as large as they are.
void setWidth(BenchView& view, double pixels) { view.host().platform.scale = Vector2{Float(pixels / PixelsOfScale)}; }

double barePassSeconds(BareNineFetches& pass, int steps) {
    return secondsOf([&] {
        for(int i = steps; i-- != 0;) pass.draw(1 << i);
        GL::Renderer::finish();
    }) / steps;
}

// The widths from which on a step more is made, up to the largest one.
std::vector<double> widthsUpTo(double largest) {
    std::vector<double> widths;
    for(double width = 2.0; width < largest; width *= 2.0) widths.push_back(width);
    widths.push_back(largest);
    return widths;
}

Line outlineTimes(BenchView& view, const std::vector<double>& widths) {
    std::vector<double> steps, times;
    for(const double width: widths) {
        setWidth(view, width);
        steps.push_back(double(steps.size() + 1));
        times.push_back(view.frameSeconds());
    }
    return lineThrough(steps, times);
}

void stepsBesideBarePasses(BenchView& view, double width, const Budget& budget) {
    const std::vector<double> widths = widthsUpTo(width);
    const auto barePasses = [&] {
        BareGl bare;
        BareNineFetches pass{view.pictureSize()};
        // Once to get warm.
        barePassSeconds(pass, 1);
        return barePassSeconds(pass, int(widths.size()));
    };
    std::vector<double> starts;
    outlineTimes(view, widths);
    const Result result = measureTimedPairs(
        "outline", "step_beside_bare_pass",
        [&] {
            const Line line = outlineTimes(view, widths);
            starts.push_back(line.start);
            return line.slope;
        },
        barePasses, budget);
    print(result);
    printLine(limitLine("outline", "step_beside_bare_pass", "ratio", result.ratio, Limit));
    printLine(timeLine("outline", "without_steps", median(std::move(starts))));
}

GlCalls callsOfFrame(BenchView& view) {
    const GlCalls before = GlCalls::soFar();
    view.frameSeconds();
    return GlCalls::soFar() - before;
}

}

void outline(std::size_t count, std::size_t selected, const Vector2i& size, double width, const Budget& budget) {
    BenchView view{size};
    view.setPictureSize(size);
    const bool areCallsCounted = countGlCalls();
    view.open(BenchProject{gridProject(count)}.path());
    for(int i = 0; i != FramesToSettle; ++i) view.frameSeconds();
    const GlCalls never = callsOfFrame(view);
    select(view, selected, true);
    stepsBesideBarePasses(view, width, budget);
    const GlCalls with = callsOfFrame(view);
    select(view, selected, false);
    view.frameSeconds();
    const GlCalls without = callsOfFrame(view);
    if(!areCallsCounted) return;
    printLine(exactLine("outline", "nothing_selected", "calls_besides_the_frame",
        (long long)(without.all) - (long long)(never.all), 0));
    printLine(exactLine("outline", "nothing_selected", "blits", (long long)(without.blits), 1));
    printLine(exactLine("outline", "nothing_selected", "clears", (long long)(without.clears), 2));
    // What it is when there is something: a mask that is cleared and resolved, too.
    printLine(exactLine("outline", "selected", "blits", (long long)(with.blits), 2));
    printLine(exactLine("outline", "selected", "clears", (long long)(with.clears), 3));
}

}
