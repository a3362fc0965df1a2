#pragma once

#include <string>
#include <unordered_map>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

struct Scene;

// Names for new objects beside those that are there: "Lamp" where no other has that name, else "Lamp 2", or as many as
// follow the highest number. All that will be asked for is announced first; then each parent's children are looked at
// once, whatever is asked for.
class SiblingNames {
public:
    explicit SiblingNames(const Scene& scene): _scene{scene} {}

    void announce(Id parent, const std::string& name);
    // A name that was announced for the parent, or that with another number. It is taken from now on.
    std::string take(Id parent, const std::string& name);

private:
    // Of the names that are a text alone, or that with a blank and a number behind it.
    struct Family {
        // The numbers that were announced, 0 for the text alone, and whether they are taken.
        std::unordered_map<unsigned, bool> isTaken;
        unsigned highest = 1;
    };
    struct Children {
        std::unordered_map<std::string, Family> families;
        bool wereSeen = false;
    };

    void look(Id parent, Children& children) const;

    const Scene& _scene;
    std::unordered_map<Id, Children> _children;
};

} // namespace VantrelEngine
