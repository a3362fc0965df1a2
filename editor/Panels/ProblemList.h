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
    // Of the document.
    std::string object;
    // Position among its components, -1 for the object itself.
    int component;
    std::string reason;
    // Whether it was changed when the project was opened.
    bool isRepair;

    bool operator==(const Problem& other) const {
        return object == other.object && component == other.component && reason == other.reason &&
            isRepair == other.isRepair;
    }
};

// What the compiler could not make of the objects, the values that nobody could use, and what was repaired when the project
// was opened, by object. Made anew only where there are others; of values that are dragged when the drag is over.
class ProblemList {
public:
    void update(ProjectSession& session);
    const std::vector<Problem>& problems() const { return _problems; }

private:
    // What the problems were made of.
    struct State {
        std::size_t compiled, repairs, values;
        unsigned project;

        bool operator==(const State& other) const {
            return compiled == other.compiled && repairs == other.repairs && values == other.values &&
                project == other.project;
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

// The component's type in the document; "object" for the object itself.
std::string componentName(ProjectSession& session, const Problem& problem);

} // namespace VantrelEngine
