#pragma once

#include <cstddef>
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
};

// What the compiler could not make of the objects, and what was repaired when the project was opened, by object. Made
// anew only where there are others.
class ProblemList {
public:
    // Whether it was made anew.
    bool update(ProjectSession& session);
    const std::vector<Problem>& problems() const { return _problems; }

private:
    std::vector<Problem> _problems;
    std::optional<std::size_t> _fingerprint;
    std::size_t _repairs = 0;
    unsigned _project = 0;
};

// The component's type in the document; "object" for the object itself.
std::string componentName(ProjectSession& session, const Problem& problem);

} // namespace VantrelEngine
