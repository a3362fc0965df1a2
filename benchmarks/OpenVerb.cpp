#include <map>

#include "BenchProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double Limit = 1.15;

double openSeconds(ProjectSession& session, const BenchProject& project) {
    return secondsOf([&] { session.open(project.path()); });
}

void openTopology(const std::vector<std::size_t>& sizes, const char* name, const Budget& budget) {
    std::map<std::size_t, BenchProject> projects;
    for(const std::size_t size: sizes) projects.try_emplace(size, projectOptions(size, *topologyNamed(name)));

    // Fresh sessions, and the same ones again.
    std::map<std::size_t, std::unique_ptr<ProjectSession>> sessions;
    const Growth cold = measureGrowth(
        sizes,
        [&](std::size_t size) {
            std::unique_ptr<ProjectSession>& session = sessions[size];
            session = std::make_unique<ProjectSession>();
            return openSeconds(*session, projects.at(size));
        },
        budget);
    printGrowth("open", name + std::string{"_cold"}, cold, Limit);
    const Growth warm = measureGrowth(
        sizes, [&](std::size_t size) { return openSeconds(*sessions.at(size), projects.at(size)); }, budget);
    printGrowth("open", name + std::string{"_warm"}, warm, Limit);
}

}

void open(std::size_t count, const Budget& budget) {
    for(const char* const topology: {"flat", "tree", "reverse", "random", "chain"})
        openTopology(sizesUpTo(count), topology, budget);
}

}
