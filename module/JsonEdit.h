#pragma once

#include <string>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

class ProjectFile;

// Edits of the project document at a JSON pointer, as the undo log makes them.

// A deep copy. The JSON library's own goes through a document for each array and object.
JsonValue copyOf(const JsonValue& value, JsonAllocator& allocator);

// Writes a deep copy of the value where a value stands.
void replaceValue(ProjectFile& file, Corrade::Containers::StringView path, const JsonValue& value);

// Writes a deep copy of the value where none stands. In an object it becomes a
// member. In an array, or where there is no parent and the last token is an
// index (which makes an array), it is inserted before the element at that
// index; at the end it is appended, and beyond it the array is padded with
// null. A parent that only the defaults know, as neither object nor array, is
// made as an object.
//
// Aborts with "Assertion value.IsArray() failed at ChangeManager:285" under a
// parent that is neither an object nor, for an index, an array.
void insertValue(ProjectFile& file, Corrade::Containers::StringView path, const JsonValue& value);

// Removes the value, and then upwards each object or array that became empty;
// never one just below the root.
void eraseValue(ProjectFile& file, Corrade::Containers::StringView path);

// The outermost object or array that eraseValue() would remove along with a value; empty where it removes just that.
Corrade::Containers::StringView prunedWith(ProjectFile& file, Corrade::Containers::StringView path);

// Everything before the last "/" of a pointer, and what stands behind it; all
// of a text without "/" is the token.
struct SplitPath {
    Corrade::Containers::StringView parent, token;
};
CORRADE_VISIBILITY_EXPORT SplitPath splitLast(Corrade::Containers::StringView path);

// Whether a token is one optional "-" and then decimal digits, at least one.
CORRADE_VISIBILITY_EXPORT bool isIndexToken(Corrade::Containers::StringView token);

} // namespace VantrelEngine
