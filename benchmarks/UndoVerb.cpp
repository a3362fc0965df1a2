#include <algorithm>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double Limit = 3.0;

void undoAndUpdate(ProjectSession& session) {
    session.changes().undoLast();
    session.update();
}

}

void undo(std::size_t size, std::size_t count, const Budget& budget) {
    const BenchProject project{projectOptions(size)};
    const std::unique_ptr<ProjectSession> session = project.open();
    const std::vector<std::string> paths = spreadPaths(*session, count);
    const std::string before = textOf(*session);
    std::uint64_t key = 1;

    dragFrame(*session, paths, key, 0);
    dragFrame(*session, paths, key, 1);
    const std::size_t compiled = session->compiler().compiledObjectCount();
    const std::size_t withComponents = session->compiler().compiledComponentsCount();
    undoAndUpdate(*session);
    printLine(exactLine("undo", "objects_compiled", "objects",
        (long long)(session->compiler().compiledObjectCount() - compiled), (long long)(paths.size())));
    printLine(exactLine("undo", "components_compiled", "objects",
        (long long)(session->compiler().compiledComponentsCount() - withComponents), 0));
    printLine(exactLine("undo", "document_differs", "documents", textOf(*session) != before, 0));

    // A later frame of the same gesture beside it.
    const auto dragged = [&] {
        ++key;
        dragFrame(*session, paths, key, 0);
        return secondsOf([&] { dragFrame(*session, paths, key, 1); });
    };
    const auto undone = [&] { return secondsOf([&] { undoAndUpdate(*session); }); };
    const auto figure = [&] {
        dragged();
        return undone();
    };
    const auto floor = [&] {
        const double seconds = dragged();
        undone();
        return seconds;
    };
    const Result result = measureTimedPairs("undo", "beside_drag_frame", figure, floor, budget);
    print(result);
    printLine(limitLine("undo", "beside_drag_frame", "ratio", result.ratio, Limit));
}

}
