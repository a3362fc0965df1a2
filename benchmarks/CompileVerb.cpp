#include <map>

#include "BenchProject.h"
#include "CompileFloor.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

constexpr double ExponentLimit = 1.15;
constexpr double RatioLimit = 15.0;

double compileSeconds(ProjectSession& session) {
    return secondsOf([&] {
        session.compileResources();
        session.compileObjects();
    });
}

std::unique_ptr<ProjectSession> readOnly(const BenchProject& project) {
    auto session = std::make_unique<ProjectSession>();
    session->read(project.path());
    return session;
}

void compileTopology(const std::vector<std::size_t>& sizes, const std::string& name, const Budget& budget) {
    std::map<std::size_t, BenchProject> projects;
    for(const std::size_t size: sizes) projects.try_emplace(size, projectOptions(size, *topologyNamed(name)));
    std::map<std::size_t, std::unique_ptr<ProjectSession>> sessions;
    const Growth cold = measureGrowth(
        sizes,
        [&](std::size_t size) {
            std::unique_ptr<ProjectSession>& session = sessions[size];
            session.reset();
            session = readOnly(projects.at(size));
            return compileSeconds(*session);
        },
        budget);
    printGrowth("compile", name + "_cold", cold, ExponentLimit);
    const Growth warm = measureGrowth(
        sizes, [&](std::size_t size) { return compileSeconds(*sessions.at(size)); }, budget);
    printGrowth("compile", name + "_warm", warm, ExponentLimit);
}

void print(const std::string& name, const Result& result) {
    print(result);
    printLine(limitLine("compile", name, "ratio", result.ratio, RatioLimit));
}

// Beside the least that it takes, on the same document.
void compileBesideFloor(const GeneratorOptions& options, const std::string& name, const Budget& budget) {
    const BenchProject project{options};
    std::unique_ptr<ProjectSession> session;
    const auto floor = [&] {
        const JsonValue& objects = *session->data().project().valueByPointer("/objects");
        return secondsOf([&] { keep(compileFloor(objects)); });
    };
    session = readOnly(project);
    print(name + "_cold",
        measureTimedPairs(
            "compile", name + "_cold",
            [&] {
                session.reset();
                session = readOnly(project);
                return compileSeconds(*session);
            },
            floor, budget));
    print(name + "_warm",
        measureTimedPairs(
            "compile", name + "_warm", [&] { return compileSeconds(*session); }, floor, budget));
}

}

void compile(std::size_t count, const std::string& topology, const Budget& budget) {
    for(const std::string known: {"flat", "tree", "reverse", "random", "chain"})
        if(topology == "all" || topology == known) compileTopology(sizesUpTo(count), known, budget);
    GeneratorOptions options = projectOptions(count, topology == "all" ? Topology::Tree : *topologyNamed(topology));
    compileBesideFloor(options, "beside_floor_mixed", budget);
    options.componentsPerObject = 5;
    compileBesideFloor(options, "beside_floor_five", budget);
}

}
