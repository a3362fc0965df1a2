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

    // Takes the place of an earlier one. Whether it was not there before the components were compiled again.
    bool add(const std::string& object, int component, std::string reason) {
        const auto before = _before.find(component);
        const bool isNew = before == _before.end() || before->second != reason;
        _problems[{object, component}] = std::move(reason);
        return isNew;
    }
    // What is said of the object itself.
    void forgetObject(const std::string& object) {
        if(!_problems.empty()) _problems.erase({object, -1});
    }
    // What is said of its components, which are compiled now. It is remembered until those of another object are.
    void forgetComponents(const std::string& object) {
        if(!_before.empty()) _before.clear();
        if(_problems.empty()) return;
        auto problem = _problems.lower_bound({object, 0});
        while(problem != _problems.end() && problem->first.first == object) {
            _before.emplace(problem->first.second, std::move(problem->second));
            problem = _problems.erase(problem);
        }
    }

    const Map& all() const { return _problems; }

private:
    Map _problems;
    std::map<int, std::string> _before;
};

} // namespace VantrelEngine
