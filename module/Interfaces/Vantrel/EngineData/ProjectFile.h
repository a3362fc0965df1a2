#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/FileLink.h"
#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// The project's JSON document, and the way to its values.
//
// A value is named by a JSON pointer (RFC 6901): "/objects/tree/translation/0".
// The members of the root and of the large objects just below it (objects, materials,
// meshes, ...) are found through an index, so that a look-up, an addition and a
// removal cost the same in a small and in a large project; the order of members
// is kept. Hence members are added and removed through the functions below.
// Whoever changes the members of the root or of an object below it by other
// means calls membersChanged().
class CORRADE_VISIBILITY_EXPORT ProjectFile {
public:
    // An empty object, and no defaults.
    explicit ProjectFile();
    ~ProjectFile();
    ProjectFile(const ProjectFile&) = delete;
    ProjectFile& operator=(const ProjectFile&) = delete;

    JsonDocument& projectFile();
    const JsonDocument& projectFile() const;
    // For values that are placed into the document.
    JsonAllocator& allocator();
    void membersChanged();

    // Values that getValue() gives where the document has none; replaces earlier
    // ones.
    void setDefaults(JsonDocument&& defaults);
    const JsonDocument& defaults() const;

    // The warning, on the warning output, the first time that it is given; what is wrong in a project would be said
    // again with each frame of a drag otherwise.
    void warnOnce(const std::string& line) const;
    // The same of a value that cannot be used, "PLACE: REASON", which is remembered by its pointer besides.
    struct UnusableValue {
        std::string pointer, reason;
    };
    void warnUnusable(const UnusableValue& value, const std::string& place) const;
    // Those that stand in the document still as they were when they were warned of last, by their pointers. Linear in
    // all that were.
    std::vector<UnusableValue> unusableValues() const;
    // Another one whenever a value was warned of that was not remembered.
    std::size_t unusableRevision() const;
    void forgetWarnings();

    // How many more objects the document takes. Who adds several in one group asks first: the one too many is refused,
    // those before it are not.
    std::size_t roomForObjects() const;

    // Says of each edit of the document whether it may be made.
    class EditGuard {
    public:
        virtual ~EditGuard() = default;
        // Brings the value of an edit into its range, with one line; called first.
        virtual void adjust(Corrade::Containers::StringView pointer, JsonValue& value) = 0;
        // Asked before an edit: empty where it may be made, else the reason why not. The value is null for a removal.
        virtual std::string whyRefused(
            const ProjectFile& file, Corrade::Containers::StringView pointer, const JsonValue* value) = 0;
        // Told after an edit, also when it is undone or made again: another value, or none, stands at the pointer.
        virtual void changed(Corrade::Containers::StringView pointer) = 0;
        // The document was changed by other means.
        virtual void documentChanged() = 0;
    };
    // Not owned; null for none.
    void setEditGuard(EditGuard* guard);
    EditGuard* editGuard() const;

    // The value at a pointer in the document, or null: also for a text that is no
    // valid pointer.
    JsonValue* valueByPointer(Corrade::Containers::StringView pointer);
    const JsonValue* valueByPointer(Corrade::Containers::StringView pointer) const;

    // The member of the root. Null where there is none.
    const JsonValue* section(Corrade::Containers::StringView name) const;
    // The member of an object just below the root, by their plain names and
    // through the index: member("objects", "tree"). Null where there is none.
    const JsonValue* member(Corrade::Containers::StringView section, Corrade::Containers::StringView key) const;

    // The id of the first resource of a section ("textures") that has this display name; empty where none has. Looks at
    // each resource of the section.
    Corrade::Containers::StringView resourceByName(
        Corrade::Containers::StringView section, Corrade::Containers::StringView name) const;
    // Where a resource has its data; without a file where the resource is not there or has none.
    FileLink fileLinkForResource(Corrade::Containers::StringView section, Corrade::Containers::StringView id) const;

    // The value at a pointer, in the document or else, with the flag set, among
    // the defaults; null if neither has it.
    const JsonValue* getValue(Corrade::Containers::StringView pointer, bool withDefaults) const;

    // Why createByPointer() would destroy a value, waste memory or fail, or null
    // where it would not: the pointer is not valid, it leads through a value that
    // is neither object nor array (null excepted), it leads through an array with
    // a token that is no index, or an index is more than MaximumPadding beyond
    // the end.
    const char* whyNotCreatable(Corrade::Containers::StringView pointer) const;
    static constexpr std::size_t MaximumPadding = 65536;

    // The value at a pointer; what is missing on the way is made. A missing
    // member becomes null, an array that is too short is padded with null, "-"
    // appends to an array, and a null that gets a child becomes an array for an
    // index and an object for any other token. Expects that whyNotCreatable() is
    // null. existed, where given, tells whether the value was there before.
    JsonValue& createByPointer(Corrade::Containers::StringView pointer, bool* existed = nullptr);

    // Removes the value; members and elements behind it move up. False where
    // there is none, and for the root.
    bool eraseByPointer(Corrade::Containers::StringView pointer);

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
