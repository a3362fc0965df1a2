#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <Vantrel/EngineData/Types.h>

#include "Data/Inspected.h"
#include "Panels/Inspector/DocumentState.h"
#include "Panels/Inspector/FieldEditor.h"
#include "Panels/Inspector/InspectedGroups.h"

namespace VantrelEngine {

class ChangeManager;
class EditorData;
class Thumbnails;

// Shows every key of what is selected, or of a resource, and edits it. Costs the rows that are seen; what the selected
// objects have in common is found out once a change.
class InspectorPanel {
public:
    // Draws into the window that is current. The resource is taken away when another object is selected, or it is gone.
    void draw(EditorData& data, ChangeManager& changes, Thumbnails& thumbnails, InspectedResource& resource);
    FieldEditor& fields() { return _fields; }

    // How often what is shown was gathered from the document.
    std::size_t gatherings() const { return _gatherings; }

private:
    // What the groups were made of.
    struct State {
        DocumentState document;
        std::vector<Id> selection;
        std::string kind, id;

        bool operator==(const State& other) const;
    };

    static State stateOf(const EditorData& data, const ChangeManager& changes, const InspectedResource& resource);
    void gather(EditorData& data, const ChangeManager& changes, InspectedResource& resource);
    void drawTop(Thumbnails& thumbnails, InspectedResource& resource);
    void drawFacts() const;
    std::optional<Edit> drawGroups(const EditorData& data, Thumbnails& thumbnails);
    std::optional<Edit> drawAddComponent();
    std::optional<Edit> drawAddParameter() const;

    FieldEditor _fields;
    State _state;
    std::vector<InspectedGroup> _groups;
    std::vector<std::string> _others;
    std::vector<std::pair<std::string, std::string>> _facts;
    std::string _search;
    std::size_t _gatherings = 0;
};

} // namespace VantrelEngine
