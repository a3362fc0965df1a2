#include "Utilities/DepthRange.h"

#include <cmath>

#include "Data/ProjectSession.h"
#include "Import/InsertImport.h"
#include "Utilities/SceneRadius.h"

namespace VantrelEngine {

namespace {

// A power of ten times 1, 2 or 5, not above the number: planes are settings that people read.
double roundedDown(double number) {
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    for(const double factor: {5.0, 2.0})
        if(number >= factor * power) return factor * power;
    return power;
}

// JSON text of 0.005 and the like is as short as that.
void recordSetting(const char* path, double value, ChangeManager& changes) {
    changes.recordWithParents(path, JsonValue{value}, false);
}

} // namespace

DepthRange depthRangeFor(double radius) { return {roundedDown(radius * 0.02), roundedDown(radius * 2000.0)}; }

bool needsDepthRange(double radius) { return radius > 0.0 && (radius < 0.5 || radius > 50.0); }

void fitDepthRange(const std::vector<std::string>& objects, ProjectSession& session) {
    const double radius = double(radiusOf(objects, session));
    if(!std::isfinite(radius) || !needsDepthRange(radius)) return;
    const DepthRange range = depthRangeFor(radius);
    ChangeManager& changes = session.changes();
    changes.beginGroup(ImportGesture, true);
    recordSetting("/settings/editor/camera/near", range.near, changes);
    recordSetting("/settings/editor/camera/far", range.far, changes);
    changes.commit();
}

} // namespace VantrelEngine
