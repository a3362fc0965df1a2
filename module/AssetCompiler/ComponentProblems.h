#pragma once

#include <map>
#include <string>
#include <utility>

#include <Corrade/Containers/StringView.h>

namespace VantrelEngine {

// Why components do not work as the document has them: by the object's id and the position among its components; -1
// speaks of the object itself.
class ComponentProblems {
public:
    using Map = std::map<std::pair<std::string, int>, std::string>;

    // Takes the place of an earlier one.
    void add(const std::string& object, int component, std::string reason) {
        _problems[{object, component}] = std::move(reason);
    }
    // What is said of the object itself.
    void forgetObject(const std::string& object) {
        if(!_problems.empty()) _problems.erase({object, -1});
    }
    void forgetComponents(const std::string& object) {
        if(_problems.empty()) return;
        auto problem = _problems.lower_bound({object, 0});
        while(problem != _problems.end() && problem->first.first == object) problem = _problems.erase(problem);
    }

    const Map& all() const { return _problems; }

private:
    Map _problems;
};

} // namespace VantrelEngine
