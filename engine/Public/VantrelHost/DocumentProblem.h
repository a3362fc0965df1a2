#pragma once

#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// What was found out about a project when it was opened.
struct DocumentProblem {
    enum class Kind {
        // The document is as it was; the engine reads something else there.
        Warning,
        // The document was changed.
        Repair,
        // The document cannot be opened.
        Refusal,
        // A warning of a value of an object, a component or the settings that cannot be used.
        Unusable
    };

    Kind kind;
    // The object's id; empty for what does not belong to an object.
    std::string object;
    // Position among the object's components, -1 for none.
    int component = -1;
    // Keys from the object, the component or the root on, with "/" between them.
    std::string key;
    std::string reason;
};

// "objects/tree/components/0/light/color", and the JSON pointer to it.
CORRADE_VISIBILITY_EXPORT std::string placeOf(const DocumentProblem& problem);
CORRADE_VISIBILITY_EXPORT std::string pointerOf(const DocumentProblem& problem);

// One line: "objects/tree/components/0/light/color: ...".
CORRADE_VISIBILITY_EXPORT std::string lineOf(const DocumentProblem& problem);

CORRADE_VISIBILITY_EXPORT bool isRefused(const std::vector<DocumentProblem>& problems);
CORRADE_VISIBILITY_EXPORT bool isRepaired(const std::vector<DocumentProblem>& problems);

} // namespace VantrelEngine
