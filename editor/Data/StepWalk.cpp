#include "Data/StepWalk.h"

#include <algorithm>

#include "Data/ProjectSession.h"

namespace VantrelEngine {

namespace {

void select(const SelectedIds& ids, ProjectSession& session) {
    session.data().selection().clear();
    for(const std::string& id: ids)
        session.data().selectObject(session.compiler().objectOf({id.data(), id.size()}), true);
}

} // namespace

void selectAsAfterSteps(ProjectSession& session) {
    const StepLog& log = session.steps();
    const std::size_t position = log.position();
    if(!log.steps().empty())
        select(position ? log.steps()[position - 1].selectedAfter : log.steps()[0].selectedBefore, session);
}

void goToStep(ProjectSession& session, std::size_t position) {
    StepLog& log = session.steps();
    log.update();
    position = std::min(position, log.steps().size());
    if(position == log.position()) return;
    const bool goesBack = position < log.position();
    const SelectedIds selected =
        goesBack ? log.steps()[position].selectedBefore : log.steps()[position - 1].selectedAfter;
    while(log.position() > position) session.changes().undoLast();
    while(log.position() < position) session.changes().redoLast();
    session.update();
    select(selected, session);
}

} // namespace VantrelEngine
