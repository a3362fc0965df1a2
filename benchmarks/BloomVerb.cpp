#include <algorithm>
#include <string>
#include <vector>

#include <Magnum/GL/Renderer.h>

#include "BareBlur.h"
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

constexpr double PassLimit = 1.5;
constexpr double ExponentLimit = 1.15;
constexpr int FramesToSettle = 3;
// What is drawn is not the question.
constexpr std::size_t Objects = 64;

void settle(BenchView& view) {
    for(int i = 0; i != FramesToSettle; ++i) view.frameSeconds();
}

void setBloom(BenchView& view, bool isEnabled, int kernelSize, int passes) {
    JsonDocument bloom;
    bloom.Parse(("{\"enabled\": " + std::string{isEnabled ? "true" : "false"} +
        ", \"kernelSize\": " + std::to_string(kernelSize) + ", \"passes\": " + std::to_string(passes) +
        ", \"threshold\": 0.1, \"intensity\": 0.1}")
                    .data());
    view.host().session.changes().recordWithParents("/settings/rendering/bloom", bloom, false);
    settle(view);
}

int tapsOf(int kernelSize) { return kernelSize / 2 * 2 + 1; }

// Numbers of passes: 1, 2, 4 and so on up to the largest.
std::vector<double> passesUpTo(int largest) {
    std::vector<double> passes;
    for(int count = 1; count < largest; count *= 2) passes.push_back(count);
    passes.push_back(largest);
    return passes;
}

std::vector<double> frameTimes(
    BenchView& view, int kernelSize, const std::vector<double>& passes, const Budget& budget) {
    std::vector<double> times;
    for(const double count: passes) {
        setBloom(view, true, kernelSize, int(count));
        times.push_back(medianSeconds([&] { return view.frameSeconds(); }, budget));
    }
    return times;
}

double bareSeconds(const Vector2i& size, int taps, int passes) {
    BareGl bare;
    BareBlur blur{(size + Vector2i{1}) / 2, taps};
    const auto draw = [&](int count) {
        return secondsOf([&] {
            for(int i = 0; i != count; ++i) blur.draw();
            GL::Renderer::finish();
        });
    };
    // Once to get warm.
    draw(1);
    return draw(passes) / passes;
}

void passesBesideBareBlurs(BenchView& view, int kernelSize, int passes, const Budget& budget) {
    const std::vector<double> counts = passesUpTo(passes);
    const Budget ofOne{budget.seconds / 30.0, budget.sampleSeconds, 3};
    const Result result = measureTimedPairs(
        "bloom", "pass_beside_bare_blur",
        [&] { return lineThrough(counts, frameTimes(view, kernelSize, counts, ofOne)).slope; },
        [&] { return bareSeconds(view.pictureSize(), tapsOf(kernelSize), 2 * passes); }, budget);
    print(result);
    printLine(limitLine("bloom", "pass_beside_bare_blur", "ratio", result.ratio, PassLimit));
}

// Passes beyond the first, which takes its pixels from the scene and is part of what brings it to the screen.
void growthWithPasses(BenchView& view, int kernelSize, int passes, const Budget& budget) {
    const std::vector<double> counts = passesUpTo(passes), times = frameTimes(view, kernelSize, counts, budget);
    Growth growth;
    for(std::size_t i = 1; i != counts.size(); ++i) {
        growth.sizes.push_back(counts[i] - 1.0);
        growth.seconds.push_back(std::max(times[i] - times[0], 1e-9));
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    printGrowth("bloom", "passes", growth, ExponentLimit);
}

void growthWithTaps(BenchView& view, int passes, const Budget& budget) {
    const std::vector<double> counts{1.0, double(passes)};
    Growth growth;
    for(const int kernelSize: {5, 9, 15, 21}) {
        const std::vector<double> times = frameTimes(view, kernelSize, counts, budget);
        growth.sizes.push_back(double(tapsOf(kernelSize)));
        growth.seconds.push_back(std::max(lineThrough(counts, times).slope, 1e-9));
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    printGrowth("bloom", "taps", growth, ExponentLimit);
}

GlCalls callsOfFrame(BenchView& view) {
    const GlCalls before = GlCalls::soFar();
    view.frameSeconds();
    return GlCalls::soFar() - before;
}

}

void bloom(int kernelSize, int passes, const Vector2i& size, const Budget& budget) {
    BenchView view{size};
    view.setPictureSize(size);
    const bool areCallsCounted = countGlCalls();
    view.open(BenchProject{gridProject(Objects)}.path());
    settle(view);
    const GlCalls never = callsOfFrame(view);
    passesBesideBareBlurs(view, kernelSize, passes, budget);
    growthWithPasses(view, kernelSize, passes, budget);
    growthWithTaps(view, passes, budget);
    const GlCalls with = callsOfFrame(view);
    setBloom(view, false, kernelSize, passes);
    const GlCalls without = callsOfFrame(view);
    if(!areCallsCounted) return;
    printLine(exactLine(
        "bloom", "disabled", "calls_besides_the_frame", (long long)(without.all) - (long long)(never.all), 0));
    printLine(exactLine("bloom", "enabled", "shader_builds", (long long)(with.builds), 0));
    printLine(exactLine("bloom", "enabled", "uploaded_bytes", (long long)(with.uploadedBytes), 0));
}

}
