#include <cstdio>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <Corrade/Utility/Debug.h>
#include <VantrelHost/ResourceCompiler.h>

#include "Data/ProjectSession.h"
#include "Project/Text.h"
#include "Project/Verbs.h"

namespace VantrelTools {

using namespace Corrade;
using namespace VantrelEngine;

namespace {

const char* kindOf(DocumentProblem::Kind kind) {
    switch(kind) {
    case DocumentProblem::Kind::Warning:
    case DocumentProblem::Kind::Unusable: break;
    case DocumentProblem::Kind::Repair: return "repaired";
    case DocumentProblem::Kind::Refusal: return "refused";
    }
    return "warning";
}

void addResourceProblems(ProjectSession& session, std::vector<DocumentProblem>& problems) {
    for(const ResourceProblem& problem: session.resourceCompiler().problems()) {
        const Containers::StringView section = resourceSection(problem.kind);
        std::string key{section.data(), section.size()};
        if(!problem.id.empty()) key += '/' + problem.id;
        problems.push_back({DocumentProblem::Kind::Warning, {}, -1, std::move(key), problem.reason});
    }
}

void addComponentProblems(ProjectSession& session, std::vector<DocumentProblem>& problems) {
    // What is wrong with an object as such was found when the project was opened, and has its key there.
    std::unordered_set<std::string> known;
    for(const DocumentProblem& problem: problems)
        if(problem.component == -1) known.insert(problem.object);
    for(const auto& problem: session.compiler().problems()) {
        if(problem.first.second == -1 && known.count(problem.first.first)) continue;
        problems.push_back(
            {DocumentProblem::Kind::Warning, problem.first.first, problem.first.second, {}, problem.second});
    }
}

// What the libraries say while they work. The same problems are listed with their places afterwards; what is on no list
// is passed on, and counts.
class Overheard {
public:
    std::string text() const { return _stream.str(); }

private:
    std::ostringstream _stream;
    Utility::Debug _debug{nullptr};
    Utility::Warning _warning{&_stream};
    Utility::Error _error{&_stream};
};

// Whether a line only says again what the list has; that of a component has no place in the line.
bool isListed(std::string_view line, const std::unordered_set<std::string>& listed) {
    const auto begins = [&](std::string_view text) { return line.substr(0, text.size()) == text; };
    if(begins("Unknown light type ") || begins("RapidJsonUtils::enumStringToValue(): ") ||
        begins("Skipping component with missing JavaScript component: "))
        return true;
    constexpr std::string_view resources = "ResourceCompiler: ";
    if(begins(resources)) line.remove_prefix(resources.size());
    return listed.count(std::string{line});
}

std::vector<std::string> unlistedLines(const std::string& text, const std::vector<DocumentProblem>& problems) {
    std::unordered_set<std::string> listed;
    for(const DocumentProblem& problem: problems) listed.insert(lineOf(problem));
    std::vector<std::string> lines;
    std::istringstream stream{text};
    for(std::string line; std::getline(stream, line);)
        if(!isListed(line, listed)) lines.push_back(line);
    return lines;
}

}

int check(const std::string& file, bool quiet) {
    ProjectSession session;
    OpenedProject opened;
    std::string overheard;
    {
        const Overheard listener;
        opened = session.open(file);
        overheard = listener.text();
    }
    std::vector<DocumentProblem> problems = std::move(opened.problems);
    if(opened.error.empty()) {
        addResourceProblems(session, problems);
        addComponentProblems(session, problems);
    }
    const std::vector<std::string> others = unlistedLines(overheard, problems);
    if(!quiet) {
        for(const DocumentProblem& problem: problems)
            std::printf("%s: %s\n", kindOf(problem.kind), lineOf(problem).data());
        for(const std::string& line: others) std::printf("warning: %s\n", line.data());
        if(!opened.error.empty()) fail(opened.error);
    }
    if(!opened.error.empty()) return Failure;
    return problems.empty() && others.empty() ? Success : Problems;
}

}
