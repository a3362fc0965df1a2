#include <string>
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

constexpr double ObjectsLimit = 1.1;
constexpr double DrawLimit = 0.5;
constexpr double CallsBesidesGroups = 200.0;
// The ids, then the picture.
constexpr std::size_t Passes = 2;
constexpr Vector2i SmallSize{64, 64};

std::vector<Matrix4> transformations(Scene& scene, const Matrix4& toClip) {
    std::vector<Matrix4> matrices;
    // The root is the first.
    for(std::size_t i = 1; i != scene.size(); ++i)
        matrices.push_back(toClip * scene.absoluteTransformationAsMatrix(scene.toId(i)));
    return matrices;
}

double plainDrawsSeconds(Scene& scene, GridObjects objects, const Budget& budget) {
    BareGl bare;
    const BareTargets targets{SmallSize};
    const BareDraws draws{objects, transformations(scene, gridToClip(SmallSize))};
    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
    GL::Renderer::setFeature(GL::Renderer::Feature::FaceCulling, objects == GridObjects::Backs);
    return medianSeconds(
        [&] {
            targets.clear();
            GL::Renderer::finish();
            return secondsOf([&] {
                targets.bindIds();
                draws.draw();
                targets.bindPicture();
                draws.draw();
                GL::Renderer::finish();
            });
        },
        budget);
}

// A call a group, or else one a mesh with all its places.
void setMultiDraw(BenchView& view, bool isEnabled) {
    const JsonValue value{isEnabled};
    view.host().session.changes().recordWithParents("/settings/rendering/useMultiDraw", value, false);
}

// Of the whole frame but what it takes without any object.
Result meshAndPassBesidePlainDraw(
    BenchView& view, std::size_t count, GridObjects objects, const std::string& name, const Budget& budget) {
    view.open(BenchProject{gridProject(0)}.path());
    const double empty = view.warmFrameSeconds(budget);
    view.open(BenchProject{gridProject(count, 0.0, objects)}.path());
    const double full = view.warmFrameSeconds(budget);
    const double plain = plainDrawsSeconds(view.host().session.data().scene().main(), objects, budget);
    setMultiDraw(view, false);
    const double instanced = view.warmFrameSeconds(budget);
    const double drawn = double(count * Passes);
    printLine(timeLine("frame", name + "_instanced", (instanced - empty) / drawn));
    const double figure = (full - empty) / drawn, floor = plain / drawn;
    const Result result{"frame", name, figure * 1e9, floor * 1e9, figure / floor, budget.minimumPairs};
    print(result);
    return result;
}

void besidePlainDraws(BenchView& view, std::size_t count, const Budget& budget) {
    view.setPictureSize(SmallSize);
    // With the work on triangles, which is the same for both and no question of how they are drawn.
    meshAndPassBesidePlainDraw(view, count, GridObjects::CubesAndPlanes, "mesh_and_pass_with_triangles", budget);
    const std::string name = "mesh_and_pass";
    const Result result = meshAndPassBesidePlainDraw(view, count, GridObjects::Backs, name, budget);
    printLine(limitLine("frame", name, "ratio", result.ratio, DrawLimit));
}

void callsOfFrame(BenchView& view) {
    const GlCalls before = GlCalls::soFar();
    view.frameSeconds();
    const GlCalls calls = GlCalls::soFar() - before;
    // The first group has no pipeline.
    const std::size_t groups = view.host().session.data().scene().main().meshes.groupsCount() - 1;
    printLine(limitLine("frame", "gl_calls", "calls", double(calls.all), double(groups) + CallsBesidesGroups));
}

double openAndDrawSeconds(BenchView& view, const BenchProject& project) {
    return secondsOf([&] { view.open(project.path()); }) + view.frameSeconds();
}

}

void frame(std::size_t count, const Vector2i& size, const Budget& budget) {
    BenchView view{size};
    view.setPictureSize(size);
    const bool areCallsCounted = countGlCalls();
    Growth growth;
    for(const std::size_t each: sizesUpTo(count)) {
        const double seconds = openAndDrawSeconds(view, BenchProject{gridProject(each)});
        if(each == count) printLine(timeLine("frame", "open_and_draw", seconds));
        growth.sizes.push_back(double(each));
        growth.seconds.push_back(view.warmFrameSeconds(budget));
        view.expectVisible(each);
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    printGrowth("frame", "objects", growth, ObjectsLimit);
    if(areCallsCounted) callsOfFrame(view);
    besidePlainDraws(view, count, budget);
}

}
