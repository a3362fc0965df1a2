#pragma once

#include <vector>

#include "Panels/Inspector/DocumentState.h"
#include "Panels/Inspector/FieldEditor.h"
#include "Panels/Inspector/InspectedGroups.h"

namespace VantrelEngine {

class Thumbnails;

// Shows every setting of the project and edits it; those that the project does not have are dim, with the value that is
// used instead. Costs the rows that are seen.
class SettingsPanel {
public:
    // Draws into the window that is current. The resource is set where the user wants to see one.
    void draw(EditorData& data, ChangeManager& changes, Thumbnails& thumbnails, InspectedResource& resource);
    FieldEditor& fields() { return _fields; }

private:
    FieldEditor _fields;
    DocumentState _state;
    std::vector<InspectedGroup> _groups;
};

} // namespace VantrelEngine
