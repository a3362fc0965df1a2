#pragma once

#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class ProjectSession;

// Radius, in scene units, of a sphere about the meshes of these objects of the document and of all below them; 0 where
// there are none. The session is up to date. Costs a step for each of the objects.
CORRADE_VISIBILITY_EXPORT float radiusOf(const std::vector<std::string>& objects, ProjectSession& session);

} // namespace VantrelEngine
