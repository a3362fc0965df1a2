#include "Panels/ProblemList.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <tuple>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/JsonObject.h>

#include <VantrelHost/ResourceCompiler.h>

#include "ChangeManager.h"
#include "Data/ProjectSession.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// The first key of a pointer, which is taken off.
std::string takeKey(std::string_view& pointer) {
    const std::size_t end = std::min(pointer.find('/', 1), pointer.size());
    const std::string_view token = pointer.substr(0, end);
    pointer.remove_prefix(end);
    return token.empty() ? std::string{} : unescaped({token.data() + 1, token.size() - 1});
}

// Where the value stands, see Problem; with its key in front of the reason.
Problem problemOf(const ProjectFile::UnusableValue& value) {
    Problem problem{{}, -1, {}, false, {}};
    std::string_view rest{value.pointer};
    std::string_view behind = rest;
    if(takeKey(behind) == "objects") {
        problem.object = takeKey(behind);
        rest = behind;
        if(takeKey(behind) == "components" && !behind.empty()) {
            problem.component = std::atoi(takeKey(behind).data());
            rest = behind;
        }
    }
    if(!rest.empty()) rest.remove_prefix(1);
    problem.reason = std::string{rest} + ": " + value.reason;
    return problem;
}

// Where it stands tells whether the compiler tells of it, too.
bool isToldByTheCompiler(const ProjectFile::UnusableValue& value) {
    std::string_view rest{value.pointer};
    if(takeKey(rest) != "objects") return false;
    takeKey(rest);
    if(takeKey(rest) != "components") return false;
    takeKey(rest);
    return rest.empty() || rest == "/type";
}

} // namespace

// Whether they are others now. While something is dragged they stay.
bool ProblemList::findValues(ProjectSession& session) {
    const ProjectFile& file = session.data().project();
    const ChangeManager& changes = session.changes();
    const bool isSame = _warnings == file.unusableRevision() && _changes == changes.appliedCount();
    if(_areValuesFound && (isSame || changes.trial() != Trial::None)) return false;
    _areValuesFound = true;
    _warnings = file.unusableRevision();
    _changes = changes.appliedCount();
    std::vector<Problem> values;
    for(const ProjectFile::UnusableValue& value: file.unusableValues())
        if(!isToldByTheCompiler(value)) values.push_back(problemOf(value));
    if(values == _values) return false;
    _values = std::move(values);
    return true;
}

bool ProblemList::update(ProjectSession& session) {
    if(findValues(session)) ++_valuesRevision;
    const State state{session.compiler().problemsFingerprint(), session.resourceCompiler().problemsRevision(),
        session.repairs().size(), _valuesRevision, session.data().projectNumber};
    if(_state && *_state == state) return false;
    _state = state;
    _problems = _values;
    for(const DocumentProblem& repair: session.repairs())
        _problems.push_back({repair.object, repair.component,
            repair.key.empty() ? repair.reason : repair.key + ": " + repair.reason, true, {}});
    for(const auto& problem: session.compiler().problems())
        _problems.push_back({problem.first.first, problem.first.second, problem.second, false, {}});
    for(const ResourceProblem& problem: session.resourceCompiler().problems()) {
        const Containers::StringView section = resourceSection(problem.kind);
        _problems.push_back({problem.id, -1, problem.reason, false, {section.data(), section.size()}});
    }
    std::stable_sort(_problems.begin(), _problems.end(), [](const Problem& a, const Problem& b) {
        return std::tie(a.section, a.object, a.component) < std::tie(b.section, b.object, b.component);
    });
    return true;
}

std::string componentName(ProjectSession& session, const Problem& problem) {
    if(!problem.section.empty()) return problem.section;
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
