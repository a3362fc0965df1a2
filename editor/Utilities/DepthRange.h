#pragma once

#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class ProjectSession;

// Near and far plane of the editor's camera, scene units, with which something of this radius is seen as a whole and
// from close by.
struct DepthRange {
    double near, far;
};
CORRADE_VISIBILITY_EXPORT DepthRange depthRangeFor(double radius);

// Whether that is better than the planes of a new project, 0.05 and 1000.
CORRADE_VISIBILITY_EXPORT bool needsDepthRange(double radius);

// Records the planes that imported objects need as settings of the project, in the import's step of the undo log, which
// is its last one. Nothing is recorded for objects that those of a new project fit.
CORRADE_VISIBILITY_EXPORT void fitDepthRange(const std::vector<std::string>& objects, ProjectSession& session);

} // namespace VantrelEngine
