#pragma once

#include <string>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class ProjectSession;

// Edits of a resource, by its section of the document and its id: each one step of the undo log. Not while changes are on
// trial or a group is open.

// Why a resource can get no other name, or cannot go; empty where it can. What uses it is counted, not looked for.
CORRADE_VISIBILITY_EXPORT std::string whyNotRenamed(const std::string& section);
CORRADE_VISIBILITY_EXPORT std::string whyNotDeleted(
    const std::string& section, const std::string& id, ProjectSession& session);

// Objects and resources that use it; one that does so twice counts twice.
CORRADE_VISIBILITY_EXPORT std::size_t usersOf(
    const std::string& section, const std::string& id, ProjectSession& session);

// The name that people see. Nothing where it is the same.
CORRADE_VISIBILITY_EXPORT void renameResource(
    const std::string& section, const std::string& id, const std::string& name, ProjectSession& session);
// The id of the copy, which has a name that no other of the section has; empty where there is nothing to be copied.
CORRADE_VISIBILITY_EXPORT std::string duplicateResource(
    const std::string& section, const std::string& id, ProjectSession& session);
// Empty, or one line: it is used, also by what is not compiled, as the settings are. Looks through the whole document.
CORRADE_VISIBILITY_EXPORT std::string deleteResource(
    const std::string& section, const std::string& id, ProjectSession& session);

} // namespace VantrelEngine
