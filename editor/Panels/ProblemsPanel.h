#pragma once

#include <string>

#include "Data/Inspected.h"
#include "Panels/ProblemList.h"

namespace VantrelEngine {

// Shows what does not work in the project: object, component, reason. A click selects the object. Costs the rows that are
// seen.
class ProblemsPanel {
public:
    // To be called in each frame in which the project is there.
    void update(ProjectSession& session) { _list.update(session); }
    // How many there are, for the title; empty for none.
    std::string badge() const;
    // Draws into the window that is current. A click on the problem of a resource asks for that to be shown.
    void draw(ProjectSession& session, InspectedResource& resource);

private:
    void drawRow(ProjectSession& session, const Problem& problem, InspectedResource& resource);

    ProblemList _list;
};

} // namespace VantrelEngine
