#pragma once

#include <string>
#include <string_view>

#include "Data/Project/Ancestry.h"
#include "Data/Project/PointerTokens.h"
#include "Vantrel/EngineData/ProjectFile.h"

namespace VantrelEngine {

// Keeps edits from bringing into the document what opening it would refuse or repair: "objects" missing, a section that
// is no object, an object that is none, has no id, or has a "name" or "parent" that is no text, an object too many, an
// object that is its own ancestor, duplicate keys, more than MaxNesting levels, text that is not UTF-8, numbers that
// are not finite or (but for "far") beyond a float. A bloom kernel's size out of range is brought into it.
//
// Costs the size of the value, and for a parent what Ancestry says.
class EditCheck: public ProjectFile::EditGuard {
public:
    void adjust(Corrade::Containers::StringView pointer, JsonValue& value) override;
    std::string whyRefused(
        const ProjectFile& file, Corrade::Containers::StringView pointer, const JsonValue* value) override;
    void changed(Corrade::Containers::StringView pointer) override;
    void documentChanged() override;

private:
    std::string whyObjectEditRefused(const ProjectFile& file, const PointerTokens& path, const JsonValue& value);
    std::string whyParentRefused(const ProjectFile& file, std::string_view object, std::string_view parent);

    Ancestry _ancestry;
};

} // namespace VantrelEngine
