#pragma once

#include <optional>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

class ProjectSession;

// The box about the meshes of these objects of the document and of all below them, in the scene's space; none where there
// are no meshes. The session is up to date. Costs a step for each of the objects.
std::optional<Magnum::Range3D> boundsOf(const std::vector<std::string>& objects, ProjectSession& session);

// Moves objects of the document that have no parent, as part of the import that brought them: their box stands on the
// place with the middle of its lower side; without a box, what was in the origin does.
void placeImport(const std::vector<std::string>& objects, const std::optional<Magnum::Range3D>& bounds,
    const Magnum::Vector3& place, ProjectSession& session);

} // namespace VantrelEngine
