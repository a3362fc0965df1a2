#pragma once

#include <string>

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
    // Draws into the window that is current.
    void draw(ProjectSession& session);

private:
    void drawRow(ProjectSession& session, const Problem& problem);

    ProblemList _list;
};

} // namespace VantrelEngine
