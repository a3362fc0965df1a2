#include <VantrelHost/DocumentProblem.h>

#include <algorithm>

#include "Utils/PointerToken.h"

namespace VantrelEngine {

namespace {

bool hasKind(const std::vector<DocumentProblem>& problems, DocumentProblem::Kind kind) {
    return std::any_of(
        problems.begin(), problems.end(), [kind](const DocumentProblem& problem) { return problem.kind == kind; });
}

std::string placeBelow(const DocumentProblem& problem, const std::string& object) {
    std::string place = object.empty() ? "" : "objects/" + object;
    if(problem.component >= 0) place += "/components/" + std::to_string(problem.component);
    if(!place.empty() && !problem.key.empty()) place += '/';
    return place + problem.key;
}

} // namespace

std::string placeOf(const DocumentProblem& problem) { return placeBelow(problem, problem.object); }

std::string pointerOf(const DocumentProblem& problem) {
    return '/' + placeBelow(problem, pointerToken({problem.object.data(), problem.object.size()}));
}

std::string lineOf(const DocumentProblem& problem) { return placeOf(problem) + ": " + problem.reason; }

bool isRefused(const std::vector<DocumentProblem>& problems) {
    return hasKind(problems, DocumentProblem::Kind::Refusal);
}

bool isRepaired(const std::vector<DocumentProblem>& problems) {
    return hasKind(problems, DocumentProblem::Kind::Repair);
}

} // namespace VantrelEngine
