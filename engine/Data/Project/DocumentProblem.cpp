#include <VantrelHost/DocumentProblem.h>

#include <algorithm>

namespace VantrelEngine {

namespace {

bool hasKind(const std::vector<DocumentProblem>& problems, DocumentProblem::Kind kind) {
    return std::any_of(
        problems.begin(), problems.end(), [kind](const DocumentProblem& problem) { return problem.kind == kind; });
}

} // namespace

std::string lineOf(const DocumentProblem& problem) {
    std::string place = problem.object.empty() ? "" : "objects/" + problem.object;
    if(problem.component >= 0) place += "/components/" + std::to_string(problem.component);
    if(!place.empty() && !problem.key.empty()) place += '/';
    return place + problem.key + ": " + problem.reason;
}

bool isRefused(const std::vector<DocumentProblem>& problems) {
    return hasKind(problems, DocumentProblem::Kind::Refusal);
}

bool isRepaired(const std::vector<DocumentProblem>& problems) {
    return hasKind(problems, DocumentProblem::Kind::Repair);
}

} // namespace VantrelEngine
