#pragma once

#include <functional>
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
        std::string& place = _problems[{object, component}];
        if(!place.empty()) _fingerprint ^= hashOf(object, component, place);
        _fingerprint ^= hashOf(object, component, reason);
        place = std::move(reason);
        return isNew;
    }
    // What is said of the object itself.
    void forgetObject(const std::string& object) {
        const auto problem = _problems.find({object, -1});
        if(problem == _problems.end()) return;
        _fingerprint ^= hashOf(object, -1, problem->second);
        _problems.erase(problem);
    }
    // What is said of its components, which are compiled now. It is remembered until those of another object are.
    void forgetComponents(const std::string& object) {
        if(!_before.empty()) _before.clear();
        if(_problems.empty()) return;
        auto problem = _problems.lower_bound({object, 0});
        while(problem != _problems.end() && problem->first.first == object) {
            _fingerprint ^= hashOf(object, problem->first.second, problem->second);
            _before.emplace(problem->first.second, std::move(problem->second));
            problem = _problems.erase(problem);
        }
    }

    const Map& all() const { return _problems; }
    // Another number for other problems: one that is found again when its object is compiled again makes no difference.
    std::size_t fingerprint() const { return _fingerprint; }

private:
    static std::size_t hashOf(const std::string& object, int component, const std::string& reason) {
        const std::hash<std::string> hash;
        return hash(object) * 31 + hash(reason) * 17 + std::hash<int>{}(component)*1000003;
    }

    Map _problems;
    std::size_t _fingerprint = 0;
    std::map<int, std::string> _before;
};

} // namespace VantrelEngine
