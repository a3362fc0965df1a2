#pragma once

#include <string>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class ProjectSession;
struct Scene;

// Edits of objects of the document, each as one step of undo. Objects are runtime ids that are valid. Nothing is edited
// while the undo log has a group or a trial open, see canEdit().

// "/objects/ID", escaped.
CORRADE_VISIBILITY_EXPORT std::string objectPointer(Corrade::Containers::StringView id);

CORRADE_VISIBILITY_EXPORT void renameObject(ProjectSession& session, Id object, const std::string& name);

// Those of the objects that have none of the others above them, in index order.
CORRADE_VISIBILITY_EXPORT std::vector<Id> topmostOf(const Scene& scene, const std::vector<Id>& objects);

// One line where a parent (the root is one) is one of the objects or below one; else empty.
CORRADE_VISIBILITY_EXPORT std::string whyNotReparented(const Scene& scene, const std::vector<Id>& objects, Id parent);

// Puts the objects, each with all that is below it, under another parent, or the root. They stay where they are in the
// scene, and what is below them as well; one for which that is not possible keeps its place in the parent's space, with a
// line. One that has an ancestor among the others goes with that. What is below the parent already is left alone. Changes
// nothing where whyNotReparented() has a reason.
CORRADE_VISIBILITY_EXPORT void reparentObjects(ProjectSession& session, const std::vector<Id>& objects, Id parent);

enum class NewObject { Empty, Sun, PointLight, SpotLight, View };

// Adds an object below a parent, or the root, and selects it. With a line where the project is full.
CORRADE_VISIBILITY_EXPORT void addObject(ProjectSession& session, NewObject kind, Id parent);

} // namespace VantrelEngine
