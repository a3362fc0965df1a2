#include <algorithm>

#include <Vantrel/EditorUtilities/Clipboard.h>
#include <Vantrel/EditorUtilities/Objects.h>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double CountLimit = 1.15;

void select(ProjectSession& session, const std::vector<std::string>& paths) {
    constexpr std::size_t idStart = sizeof "/objects/" - 1;
    session.data().selection().clear();
    for(const std::string& path: paths)
        session.data().selectObject(session.compiler().objectOf(path.data() + idStart), true);
}

void undoAndUpdate(ProjectSession& session) {
    session.changes().undoLast();
    session.update();
}

// Leaves the project with the objects that it had.
double duplicateSeconds(ProjectSession& session, const std::vector<std::string>& paths) {
    // Drops what could be redone from the run before, which may be much more than what is made now.
    session.changes().recordString((paths.front() + "/name").data(), "other", false);
    undoAndUpdate(session);
    select(session, paths);
    const double seconds = secondsOf([&] {
        compileAndSelect(session.editor(), duplicate(session.editor()));
        session.update();
    });
    undoAndUpdate(session);
    return seconds;
}

}

void duplicateObjects(std::size_t size, std::size_t count, const Budget& budget) {
    // The copies need room, too.
    size = std::max<std::size_t>(std::min(size, MaxObjects / 2), 16);
    count = std::max<std::size_t>(std::min(count, size), 2);
    for(const char* const name: {"flat", "tree"}) {
        const BenchProject project{projectOptions(size, *topologyNamed(name))};
        const std::unique_ptr<ProjectSession> session = project.open();
        std::vector<std::size_t> counts;
        for(std::size_t each = 1; each < count; each *= 10) counts.push_back(each);
        counts.push_back(count);
        printGrowth("duplicate", std::string{name} + "_duplicated",
            measureGrowth(
                counts, [&](std::size_t each) { return duplicateSeconds(*session, spreadPaths(*session, each)); },
                budget),
            CountLimit);
    }
}

}
