#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <VantrelHost/ResourceCompiler.h>

namespace VantrelEngine {

// What is wrong with the resources of the document as it stands.
class ResourceProblems {
public:
    // Takes the place of what was said of the resource. What is new gets one line on the warning output. Without an id
    // it is the whole section that is wrong.
    void set(ResourceKind kind, const std::string& id, std::vector<std::string> reasons);

    // Nothing is known of any.
    void clear() {
        _reasons.clear();
        ++_revision;
    }
    // Another one whenever something else is wrong.
    std::size_t revision() const { return _revision; }
    // By kind and id.
    std::vector<ResourceProblem> all() const;

private:
    std::map<std::pair<ResourceKind, std::string>, std::vector<std::string>> _reasons;
    std::size_t _revision = 0;
};

} // namespace VantrelEngine
