#pragma once

#include <optional>
#include <string>
#include <vector>

#include <Vantrel/EditorData/ObjectMarks.h>

#include "Panels/Outliner/OutlinerRowView.h"
#include "Panels/Outliner/OutlinerRows.h"
#include "Utilities/ObjectEdits.h"

namespace VantrelEngine {

class ProjectSession;
struct SharedState;

// The objects of the scene as a tree: selects, renames, reparents, adds, hides and locks them. Costs the rows that are seen.
class OutlinerPanel {
public:
    // Draws into the window that is current, and does what the user asks for.
    void draw(ProjectSession& session);

private:
    enum class Selecting { One, Toggle, Range };

    void takeProject(const EditorData& data);
    void drawHead(ProjectSession& session);
    void drawAddMenu(ProjectSession& session, Id parent);
    void followSelection(const EditorData& data);
    void drawRows(ProjectSession& session);
    void drawOneRow(ProjectSession& session, const OutlinerRow& row);
    void drawRest(ProjectSession& session);
    void answer(ProjectSession& session, Id object, const RowResponse& response);

    void select(EditorData& data, Id object, Selecting how);
    void selectChildren(EditorData& data);
    void beginNaming(const EditorData& data, Id object);

    void drawRowMenu(ProjectSession& session, Id object);
    void drawRestMenu(ProjectSession& session);
    void drawFoldItems(const EditorData& data);

    void dragFrom(const EditorData& data, Id object);
    void dropOn(ProjectSession& session, Id target);
    void scrollWhileDragging(SharedState& state);

    void useKeys(ProjectSession& session);
    void moveTo(EditorData& data, std::ptrdiff_t row);
    void scrollToRow();

    OutlinerRows _rows;
    std::string _search;
    RowNaming _naming;
    // Where a range begins, and where the arrow keys go on.
    Id _anchor = NoObject, _cursor = NoObject;
    std::optional<Id> _selectedSeen;
    // To be brought into sight.
    std::optional<Id> _sought;
    // Those that are dragged.
    std::vector<Id> _dragged;
    std::optional<unsigned> _projectSeen;
};

} // namespace VantrelEngine
