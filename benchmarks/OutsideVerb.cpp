#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "CullingFloor.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr double OutsideLimit = 0.3;
constexpr double CullingLimit = 8.0;

// The renderer's culling by itself, as a view asks for it.
void cullingBesideBareLoop(BenchView& view, const Budget& budget) {
    EditorData& data = view.host().session.data();
    Scene& scene = data.scene().main();
    const SceneResources& resources = data.scene().resources();
    const auto meshes = Containers::ArrayView<const SceneMesh>{resources.meshes.data(), resources.meshes.size()};
    WebGL2Renderer renderer;
    renderer.setLayoutFlags(resources.meshLayoutFlags);
    renderer.prepareBatches(meshes, scene.texts);
    renderer.updateMeshes(meshes);
    const Matrix4 matrix = gridToClip(view.pictureSize());
    renderer.updateMeshVisibility(scene, matrix);
    CullingFloor floor{scene, resources, matrix};
    floor.cull();
    printLine(exactLine("frame", "culling_beside_bare_loop", "differences",
        (long long)(renderer.visibleMeshes() != floor.inside()), 0));
    const Result result = measurePairs(
        "frame", "culling_beside_bare_loop", [&] { renderer.updateMeshVisibility(scene, matrix); },
        [&] { floor.cull(); }, budget);
    print(result);
    printLine(limitLine("frame", "culling_beside_bare_loop", "ratio", result.ratio, CullingLimit));
}

}

void frameOutside(std::size_t count, const Vector2i& size, double outside, const Budget& budget) {
    BenchView view{size};
    view.setPictureSize(size);
    view.open(BenchProject{gridProject(count)}.path());
    const double all = view.warmFrameSeconds(budget);
    view.open(BenchProject{gridProject(count, outside)}.path());
    const double some = view.warmFrameSeconds(budget);
    view.expectVisible(count - std::size_t(double(count) * outside));
    print({"frame", "outside_beside_all_visible", some * 1e9, all * 1e9, some / all, budget.minimumPairs});
    printLine(limitLine("frame", "outside_beside_all_visible", "ratio", some / all, OutsideLimit));
    cullingBesideBareLoop(view, budget);
}

}
