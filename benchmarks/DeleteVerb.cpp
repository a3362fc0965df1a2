#include <algorithm>
#include <cstring>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double CountLimit = 1.15;
// One move, and the noise of both measurements.
constexpr double MovesLimit = 1.5;

void deleteAndUpdate(ProjectSession& session, const std::vector<std::string>& paths) {
    session.changes().beginGroup();
    for(const std::string& path: paths) session.changes().recordChange({path.data(), path.size()}, nullptr, false);
    session.changes().commit();
    session.update();
}

void undoAndUpdate(ProjectSession& session) {
    session.changes().undoLast();
    session.update();
}

std::string pathAt(ProjectSession& session, std::size_t position) {
    const JsonValue& objects = *session.data().project().valueByPointer("/objects");
    return std::string{"/objects/"} + (objects.MemberBegin() + std::ptrdiff_t(position))->name.GetString();
}

// Leaves the project with all its objects.
double deleteSeconds(ProjectSession& session, const std::vector<std::string>& paths) {
    // Drops what could be redone from the run before, which may be much more than what is deleted now. The last object
    // comes back to its place.
    deleteAndUpdate(session, {pathAt(session, session.data().scene().main().size() - 2)});
    undoAndUpdate(session);
    const double seconds = secondsOf([&] { deleteAndUpdate(session, paths); });
    undoAndUpdate(session);
    return seconds;
}

double deleteOneSeconds(ProjectSession& session, std::size_t position) {
    return deleteSeconds(session, {pathAt(session, position)});
}

// Moves the members of all objects one place up, as the removal of the first one does.
class BareMove {
public:
    explicit BareMove(std::size_t count): _members(count * sizeof(JsonValue::Member)) {}

    double seconds() {
        return secondsOf([&] {
            std::memmove(_members.data(), _members.data() + sizeof(JsonValue::Member),
                _members.size() - sizeof(JsonValue::Member));
            keep(_members.data());
        });
    }

private:
    std::vector<char> _members;
};

// How many moves of all the members the removal of the first object takes more than that of the last one does.
double extraMoves(ProjectSession& session, std::size_t size) {
    BareMove move{size};
    std::vector<double> first, last, moves;
    for(int round = 0; round != 51; ++round) {
        first.push_back(deleteOneSeconds(session, 0));
        last.push_back(deleteOneSeconds(session, size - 1));
        moves.push_back(move.seconds());
    }
    printLine(timeLine("delete", "first_object", median(first)));
    printLine(timeLine("delete", "last_object", median(last)));
    printLine(timeLine("delete", "bare_move", median(moves)));
    return (median(first) - median(last)) / median(moves);
}

}

void deleteObjects(std::size_t size, std::size_t count, const Budget& budget) {
    const BenchProject project{projectOptions(size, Topology::Flat)};
    const std::unique_ptr<ProjectSession> session = project.open();
    printLine(limitLine("delete", "one", "moves", extraMoves(*session, size), MovesLimit));

    count = std::max<std::size_t>(std::min(count, size), 2);
    std::vector<std::size_t> counts;
    for(std::size_t each = 1; each < count; each *= 10) counts.push_back(each);
    counts.push_back(count);
    const auto lastFirst = [&](std::size_t each) {
        std::vector<std::string> paths = spreadPaths(*session, each);
        std::reverse(paths.begin(), paths.end());
        return paths;
    };
    printGrowth("delete", "deleted",
        measureGrowth(
            counts, [&](std::size_t each) { return deleteSeconds(*session, lastFirst(each)); }, budget),
        CountLimit);
    // Each removal moves up what is still to be removed.
    printLine(timeLine("delete", "in_document_order", deleteSeconds(*session, spreadPaths(*session, count))));
}

}
