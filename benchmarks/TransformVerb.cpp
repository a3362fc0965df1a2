#include <cmath>

#include <Vantrel/EngineData/Scene.h>

#include "BenchProject.h"
#include "Report.h"
#include "TransformFloor.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double AllLimit = 3.0;
constexpr double LeafLimit = 0.1;
// Of positions, after as many steps as a chain has.
constexpr double DifferenceLimit = 0.01;

void transformTopology(std::size_t size, const std::string& name, const Budget& budget) {
    const BenchProject project{projectOptions(size, *topologyNamed(name))};
    const std::unique_ptr<ProjectSession> session = project.open();
    Scene& scene = session->data().scene().main();
    TransformFloor floor{scene};
    const auto all = [&] {
        for(std::size_t i = 1; i != scene.size(); ++i) scene.setDirty(scene.toId(i));
        keep(scene.computeAbsoluteTransformations());
        scene.resetChanged();
    };
    all();
    floor.compute();
    printLine(limitLine("xform", name + "_beside_bare_loop", "difference", floor.differenceTo(scene), DifferenceLimit));

    const Result beside = measurePairs(
        "xform", name + "_all", all, [&] { floor.compute(); }, budget);
    print(beside);
    printLine(limitLine("xform", name + "_all", "ratio", beside.ratio, AllLimit));

    // The last one in index order has no descendants.
    const Id leaf = scene.toId(scene.size() - 1);
    const auto one = [&] {
        scene.setDirty(leaf);
        keep(scene.computeAbsoluteTransformations());
        scene.resetChanged();
    };
    const Result leafBesideAll = measurePairs("xform", name + "_leaf_beside_all", one, all, budget);
    print(leafBesideAll);
    printLine(limitLine("xform", name + "_leaf_beside_all", "ratio", leafBesideAll.ratio, LeafLimit));
}

}

void transform(std::size_t size, const Budget& budget) {
    for(const char* const topology: {"flat", "tree", "random", "chain"}) transformTopology(size, topology, budget);
}

}
