#include "Panels/ProblemList.h"

#include <algorithm>
#include <tuple>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "Data/ProjectSession.h"

namespace VantrelEngine {

using namespace Corrade;

bool ProblemList::update(ProjectSession& session) {
    const std::size_t fingerprint = session.compiler().problemsFingerprint();
    const bool isSame =
        _fingerprint == fingerprint && _repairs == session.repairs().size() && _project == session.data().projectNumber;
    if(isSame) return false;
    _fingerprint = fingerprint;
    _repairs = session.repairs().size();
    _project = session.data().projectNumber;
    _problems.clear();
    for(const DocumentProblem& repair: session.repairs())
        _problems.push_back({repair.object, repair.component,
            repair.key.empty() ? repair.reason : repair.key + ": " + repair.reason, true});
    for(const auto& problem: session.compiler().problems())
        _problems.push_back({problem.first.first, problem.first.second, problem.second, false});
    std::stable_sort(_problems.begin(), _problems.end(), [](const Problem& a, const Problem& b) {
        return std::tie(a.object, a.component) < std::tie(b.object, b.component);
    });
    return true;
}

std::string componentName(ProjectSession& session, const Problem& problem) {
    if(problem.object.empty()) return "project";
    if(problem.component < 0) return "object";
    const Containers::StringView type = ValueAccess{session.data().project()}["objects"][{
        problem.object.data(), problem.object.size()}]["components"][std::size_t(problem.component)]["type"]
                                            .readValue()
                                            .asString("", JsonObject::WhenMissing::Accept);
    const std::string position = std::to_string(problem.component + 1);
    return type.isEmpty() ? "component " + position : std::string{type} + " (" + position + ")";
}

} // namespace VantrelEngine
