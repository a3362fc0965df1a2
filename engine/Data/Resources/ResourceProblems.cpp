#include "Data/Resources/ResourceProblems.h"

#include <set>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

using namespace Corrade;

void ResourceProblems::set(ResourceKind kind, const std::string& id, std::vector<std::string> reasons) {
    const auto known = _reasons.find({kind, id});
    if(known == _reasons.end() ? !reasons.empty() : known->second != reasons) ++_revision;
    std::set<std::string> told;
    if(known != _reasons.end()) told.insert(known->second.begin(), known->second.end());
    for(const std::string& reason: reasons) {
        if(!told.insert(reason).second) continue;
        const std::string section = resourceSection(kind);
        const std::string line = (id.empty() ? section : section + '/' + id) + ": " + reason;
        Utility::Warning{} << "ResourceCompiler:" << line.c_str();
    }
    if(!reasons.empty())
        _reasons[{kind, id}] = std::move(reasons);
    else if(known != _reasons.end())
        _reasons.erase(known);
}

std::vector<ResourceProblem> ResourceProblems::all() const {
    std::vector<ResourceProblem> problems;
    for(const auto& resource: _reasons)
        for(const std::string& reason: resource.second)
            problems.push_back({resource.first.first, resource.first.second, reason});
    return problems;
}

} // namespace VantrelEngine
