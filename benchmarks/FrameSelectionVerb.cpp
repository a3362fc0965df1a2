#include <Vantrel/EditorData/EditorData.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double SizeLimit = 1.15;
constexpr int KeyF = 'F';

// All of a project is selected.
double frameSelectionSeconds(std::size_t size, const GeneratorOptions& options, const Budget& budget) {
    GeneratorOptions sized = options;
    sized.count = size;
    const BenchProject project{sized};
    BenchView view{{64, 64}};
    view.open(project.path());
    EditorData& data = view.host().session.data();
    for(std::size_t i = 1; i != data.scene().main().size(); ++i) data.selectObject(data.scene().main().toId(i), true);
    return medianSeconds(
        [&] { return secondsOf([&] {
                  view.host().view().keyPressEvent({KeyF, 0, false});
              }); }, budget);
}

void frameTopology(std::size_t size, const std::string& name, const GeneratorOptions& options, const Budget& budget) {
    Growth growth;
    for(const std::size_t each: sizesUpTo(size)) {
        growth.sizes.push_back(double(each));
        growth.seconds.push_back(frameSelectionSeconds(each, options, budget));
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    printGrowth("frame_selection", name, growth, SizeLimit);
}

}

void frameSelection(std::size_t size, const std::string& topology, const Budget& budget) {
    for(const char* const name: {"flat", "tree", "reverse", "random", "chain"}) {
        if(topology != "all" && topology != name) continue;
        GeneratorOptions options = projectOptions(size, *topologyNamed(name));
        frameTopology(size, std::string{name} + "_mixed", options, budget);
        // Without meshes, what is below an object is looked at.
        options.componentsPerObject = 0;
        frameTopology(size, std::string{name} + "_without_meshes", options, budget);
    }
}

}
