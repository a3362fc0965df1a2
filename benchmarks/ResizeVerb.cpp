#include <optional>
#include <vector>

#include <Magnum/GL/Renderer.h>

#include "BareGl.h"
#include "BenchProject.h"
#include "BenchView.h"
#include "GridProject.h"
#include "Report.h"
#include "Support/LiveObjects.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;
using VantrelTest::LiveObjects;

namespace {

constexpr double Limit = 2.0;
constexpr std::size_t Objects = 16;
constexpr Vector2i FirstSize{256, 192};

// Never the one before, and the first one after every eighth.
Vector2i sizeOf(std::size_t i) { return FirstSize + Vector2i{Int(i % 8) * 16, Int(i % 4) * 16}; }

std::size_t total(const LiveObjects& o) {
    return o.buffers + o.textures + o.framebuffers + o.renderbuffers + o.meshes + o.programs;
}

// All of them made again, in seconds; without what it takes to draw into them.
double bareSeconds(std::optional<BareTargets>& targets, const Vector2i& size) {
    BareGl bare;
    GL::Renderer::finish();
    const double made = secondsOf([&] {
        targets.emplace(size);
        targets->clear();
        GL::Renderer::finish();
    });
    return made - secondsOf([&] {
        targets->clear();
        GL::Renderer::finish();
    });
}

}

void resize(std::size_t count) {
    BenchView view{FirstSize};
    view.open(BenchProject{gridProject(Objects)}.path());
    view.setPictureSize(FirstSize);
    const LiveObjects before = LiveObjects::count();
    std::optional<BareTargets> targets;
    std::vector<double> figures, floors, ratios;
    const Vector2i window = view.windowSize();
    for(std::size_t i = 1; i <= count; ++i) {
        view.host().resize(window + sizeOf(i) - FirstSize);
        const double resized = view.frameSeconds();
        figures.push_back(resized - view.frameSeconds());
        floors.push_back(bareSeconds(targets, sizeOf(i)));
        ratios.push_back(figures.back() / floors.back());
    }
    {
        BareGl bare;
        targets.reset();
    }
    printLine(exactLine(
        "resize", "live_objects", "growth", (long long)(total(LiveObjects::count())) - (long long)(total(before)), 0));
    const double ratio = median(std::move(ratios));
    print({"resize", "beside_bare_allocation", median(std::move(figures)) * 1e9, median(std::move(floors)) * 1e9, ratio,
        int(count)});
    printLine(limitLine("resize", "beside_bare_allocation", "ratio", ratio, Limit));
}

}
