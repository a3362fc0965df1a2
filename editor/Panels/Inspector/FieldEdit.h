#pragma once

#include <optional>
#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Panels/Inspector/InspectedGroup.h"

namespace VantrelEngine {

class ChangeManager;
class ProjectFile;

// What the user did to a field.
struct FieldInput {
    // A whole value; or, reset, none: the initial one counts again.
    std::optional<JsonValue> value;
    bool isReset = false;
    // Or one of several numbers, -1 for none: to this value, or by this much for each of the places. Of flags one bit,
    // to 0 or 1; of a number itself part 0.
    int part = -1;
    double number = 0.0;
    bool isOffset = false;
    // Whether the mouse holds it: more is to come, and all of it is one step.
    bool isHeld = false;
};

// One change of the document.
struct EditRecord {
    std::string base, tail;
    // None: what stands there goes.
    std::optional<JsonValue> value;
};

// Changes that belong together; with a reason there are none.
struct Edit {
    std::vector<EditRecord> records;
    std::string reason;
    // See FieldInput.
    bool isHeld = false;
    // What is shown of rotations that are recorded here.
    struct Angles {
        std::string place;
        EulerAngles degrees;
        QuaternionNumbers quaternion;
    };
    std::vector<Angles> angles;
};

// What an input means for each of the places of a group, or why it is refused. Where one place refuses it, all do.
Edit fieldEdit(const ProjectFile& file, const InspectedGroup& group, std::size_t row, const FieldInput& input,
    const TypedAngles& angles);

// Records all of it, in the group that is open.
void recordEdit(ChangeManager& changes, const ProjectFile& file, const Edit& edit, bool merge);

// Adds a component, "{"type": type, type: initial}", at the end of each object's.
Edit addComponentEdit(const std::vector<std::string>& objects, const std::vector<const JsonValue*>& values,
    const std::string& type, const JsonValue& initial);
// Takes whole places away: components, or elements of an array.
Edit removeEdit(const std::vector<std::string>& pointers);

} // namespace VantrelEngine
