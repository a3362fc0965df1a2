#pragma once

#include <cstdint>
#include <string>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

class JsonObject;
class ProjectFile;

// A place in the project, whether something stands there or not: the document's value, or else that of the defaults.
//
//     ValueAccess{file}["objects"]["tree"]["components"][0]["type"].readValue().asString()
//
// Members of the large objects below the root are found through the project file's index. Going one step costs no
// memory. Valid until the document is changed, and as long as the keys that it was given live.
class CORRADE_VISIBILITY_EXPORT ValueAccess {
public:
    // The root.
    explicit ValueAccess(const ProjectFile& file);
    // A value that is known to stand at a place, one step below this one; saves looking it up.
    ValueAccess withValue(Corrade::Containers::StringView key, const JsonValue& value) const;

    // The member of an object, the element of an array. Expects at most 10 steps from the root.
    ValueAccess operator[](Corrade::Containers::StringView key) const;
    ValueAccess operator[](std::size_t index) const;

    bool exists() const { return _value; }
    // Names of the members, in their order; empty for what is no object.
    Corrade::Containers::Array<Corrade::Containers::StringView> keys() const;
    // The value with the readers for it, also where there is none. Include JsonObject.h.
    JsonObject readValue() const;
    // Null where there is none.
    const JsonValue* value() const { return _value; }
    // What the defaults have there, null for nothing.
    const JsonValue* defaultValue() const { return _default; }

    // The JSON pointer.
    std::string path() const;

    // What a person is told of the place, "objects/tree/translation": not escaped.
    std::string description() const;

    const ProjectFile& file() const { return *_file; }

private:
    static constexpr std::size_t MaxSteps = 10;

    // The key of a member, or the index of an element where there is none.
    struct Step {
        const char* key;
        std::uint32_t size;
        std::uint32_t index;
    };

    static Step stepTo(Corrade::Containers::StringView key);
    ValueAccess step(const Step& step) const;

    const ProjectFile* _file;
    const JsonValue* _value;
    const JsonValue* _default;
    std::size_t _depth = 0;
    // Copied as a whole: that is cheaper than counting.
    Step _steps[MaxSteps]{};
};

} // namespace VantrelEngine
