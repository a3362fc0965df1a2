#include "BenchProject.h"
#include "BenchView.h"
#include "GridLights.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr double LightsLimit = 1.1;

}

void frameLights(std::size_t count, const Vector2i& size, std::size_t lights, const Budget& budget) {
    BenchView view{size};
    view.setPictureSize(size);
    Growth growth;
    for(const std::size_t each: sizesUpTo(lights)) {
        JsonDocument project = gridProject(count);
        addPointLights(project, each);
        view.open(BenchProject{project}.path());
        growth.sizes.push_back(double(each));
        growth.seconds.push_back(view.warmFrameSeconds(budget));
        view.expectVisible(count);
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    printGrowth("frame", "lights", growth, LightsLimit);
}

}
