#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VantrelEngine {

class ProjectSession;

// Something in the project that does not work as it stands there.
struct Problem {
    // Of the document: an object's id; or of a resource, whose section follows.
    std::string object;
    // Position among its components, -1 for the object itself.
    int component;
    std::string reason;
    // Whether it was changed when the project was opened.
    bool isRepair;
    // Empty for an object.
    std::string section;

    bool operator==(const Problem& other) const {
        return object == other.object && component == other.component && reason == other.reason &&
            isRepair == other.isRepair && section == other.section;
    }
};

// What the compilers could not make of the objects and the resources, the values that nobody could use, and what was
// repaired when the project was opened, by object. Made anew only where there are others; of values that are dragged when
// the drag is over.
class ProblemList {
public:
    // Whether it was made anew.
    bool update(ProjectSession& session);
    const std::vector<Problem>& problems() const { return _problems; }

private:
    // What the problems were made of.
    struct State {
        std::size_t compiled, resources, repairs, values;
        unsigned project;

        bool operator==(const State& other) const {
            return compiled == other.compiled && resources == other.resources && repairs == other.repairs &&
                values == other.values && project == other.project;
        }
    };

    bool findValues(ProjectSession& session);

    std::vector<Problem> _problems;
    std::optional<State> _state;
    // Values that cannot be used, and of which changes and warnings.
    std::vector<Problem> _values;
    std::size_t _valuesRevision = 0, _warnings = 0;
    std::uint64_t _changes = 0;
    bool _areValuesFound = false;
};

// The component's type in the document; "object" for the object itself, the section for a resource.
std::string componentName(ProjectSession& session, const Problem& problem);

} // namespace VantrelEngine
