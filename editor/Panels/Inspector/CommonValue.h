#pragma once

#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Panels/Inspector/EulerAngles.h"
#include "Panels/Schema/SchemaKey.h"

namespace VantrelEngine {

// What several places of the document have at the same key.
struct CommonValue {
    // Of the first place: what stands there, else the initial value; of a rotation its three angles. Null where there
    // is neither.
    JsonValue value;
    // Whether nothing stands there at all of the places, or at some of them.
    bool isMissing = true, isSomewhereMissing = false;
    // Whether some differ; and of numbers in an array, a bit for each that does.
    bool isMixed = false;
    unsigned mixedParts = 0;
    // Why the key's own widget cannot show the values of all; null where it can.
    const char* whyNotShown = nullptr;
    // What is wrong with a value that can be shown, as one out of its range; empty for nothing.
    std::string complaint;
};

// The places by their pointers and values, at least one. Costs a look at each.
CommonValue commonValue(const SchemaKey& key, const std::vector<std::string>& bases,
    const std::vector<const JsonValue*>& values, const TypedAngles& angles);

// The numbers of a quaternion that can be used; those of no rotation otherwise.
QuaternionNumbers quaternionNumbers(const JsonValue* value);

// The numbers of a vector or a colour; one that is missing is 1.
std::vector<double> numbersOf(const JsonValue& value, unsigned size);

} // namespace VantrelEngine
