#include "Data/Project/EditCheck.h"

#include <Corrade/Utility/Debug.h>

#include <algorithm>
#include <cmath>

#include "Data/Project/DuplicateMembers.h"
#include "Data/Project/KnownKeys.h"
#include "Data/Project/ParentLinks.h"
#include "Data/Project/Utf8.h"
#include "Vantrel/EngineData/Types.h"
#include <VantrelHost/DocumentReader.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::string_view textOf(const JsonValue& text) { return {text.GetString(), text.GetStringLength()}; }

// What is wrong with a value wherever it stands, with the way to it in front; empty for nothing.
class ValueCheck {
public:
    // depth objects and arrays are around the value, which has this key.
    std::string whyRefused(const JsonValue& value, std::size_t depth, std::string_view key) {
        if(value.IsObject() || value.IsArray()) {
            if(depth == MaxNesting) return ": more than 512 objects and arrays inside of each other";
            return value.IsObject() ? inObject(value, depth) : inArray(value, depth);
        }
        if(value.IsString() && !isUtf8(textOf(value))) return ": the text is not UTF-8";
        if(value.IsNumber() && !std::isfinite(value.GetDouble())) return ": the number is not finite";
        if(key != "far" && isBeyondFloat(value)) return ": the number is too large for a float";
        return {};
    }
    static_assert(MaxNesting == 512, "the reason names the limit");

private:
    std::string inObject(const JsonValue& object, std::size_t depth) {
        const std::vector<rapidjson::SizeType> duplicates = duplicateMembers(object);
        if(!duplicates.empty())
            return '/' + std::string{textOf((object.MemberBegin() + std::ptrdiff_t(duplicates[0]))->name)} +
                ": the key stands there twice";
        for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
            const std::string_view key = textOf(member->name);
            if(!isUtf8(key)) return ": a key is not UTF-8";
            const std::string reason = whyRefused(member->value, depth + 1, key);
            if(!reason.empty()) return '/' + std::string{key} + reason;
        }
        return {};
    }

    std::string inArray(const JsonValue& array, std::size_t depth) {
        for(rapidjson::SizeType i = 0; i != array.Size(); ++i) {
            const std::string reason = whyRefused(array[i], depth + 1, {});
            if(!reason.empty()) return '/' + std::to_string(i) + reason;
        }
        return {};
    }
};

// The check names the way from the value on, the line the value.
std::string withoutSlash(const std::string& reason) {
    return reason.substr(reason.empty() ? 0 : reason[0] == '/' ? 1 : 2);
}

std::string whyTokensRefused(const PointerTokens& path) {
    for(std::size_t i = 0; i != path.size(); ++i)
        if(!isUtf8(path[i].name)) return "a key is not UTF-8";
    // The containers on the way count even where the value is none itself.
    if(path.size() > MaxNesting) return "more than 512 objects and arrays inside of each other";
    return {};
}

// The value that a key of the settings gets when another value is put at a path; null where it gets none.
const JsonValue* valueForSetting(const PointerTokens& path, const JsonValue& value, std::string_view key) {
    if(path[0].name != "settings") return nullptr;
    for(std::size_t i = 1; i != path.size(); ++i) {
        const std::size_t end = std::min(key.find('/'), key.size());
        if(key.empty() || path[i].name != key.substr(0, end)) return nullptr;
        key.remove_prefix(std::min(end + 1, key.size()));
    }
    return key.empty() ? &value : valueAtKey(value, key);
}

std::string whyNoObject(const JsonValue& value) {
    if(!value.IsObject()) return "an object of the scene is a JSON object";
    for(const char* key: {"name", "parent"})
        if(const JsonValue* const text = valueAtKey(value, key))
            if(!text->IsString()) return std::string{key} + " is a text";
    return {};
}

std::string tooManyObjects() { return "a project has at most " + std::to_string(MaxObjects) + " objects"; }

constexpr std::string_view Objects = "objects";
constexpr const char* EmptyId = "an object has an id that is not empty";
constexpr const char* OwnAncestor = "the object would become its own ancestor";

std::string whyObjectsRefused(const JsonValue& objects) {
    if(objects.MemberCount() > MaxObjects) return tooManyObjects();
    for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object) {
        const std::string reason = object->name.GetStringLength() ? whyNoObject(object->value) : EmptyId;
        if(!reason.empty()) return std::string{textOf(object->name)} + ": " + reason;
    }
    const std::vector<std::uint32_t> cycles = ParentLinks{objects}.cycles();
    if(cycles.empty()) return {};
    return std::string{textOf((objects.MemberBegin() + std::ptrdiff_t(cycles[0]))->name)} + ": " + OwnAncestor;
}

std::string whySectionRefused(std::string_view name, const JsonValue& value) {
    if(!isSection(name)) return {};
    if(!value.IsObject()) return "a section is an object";
    return name == "objects" ? whyObjectsRefused(value) : std::string{};
}

} // namespace

std::string EditCheck::whyRefused(const ProjectFile& file, Containers::StringView pointer, const JsonValue* value) {
    const PointerTokens path{pointer};
    if(!path.isValid()) return "the pointer is not valid";
    if(!path.size()) return "a project is not edited as a whole";
    if(!value) return path.size() == 1 && path[0].name == Objects ? "a project always has \"objects\"" : "";

    std::string reason = whyTokensRefused(path);
    if(reason.empty()) reason = withoutSlash(ValueCheck{}.whyRefused(*value, path.size(), path[path.size() - 1].name));
    if(!reason.empty()) return reason;
    if(path.size() == 1) return whySectionRefused(path[0].name, *value);
    return path[0].name == Objects ? whyObjectEditRefused(file, path, *value) : std::string{};
}

void EditCheck::adjust(Containers::StringView pointer, JsonValue& value) {
    const PointerTokens path{pointer};
    if(!path.isValid() || !path.size()) return;
    // The value is ours to change; only the way to it is that of a reader.
    auto* const size = const_cast<JsonValue*>(valueForSetting(path, value, BloomKernelSizeKey));
    if(!size || !size->IsNumber() || !std::isfinite(size->GetDouble())) return;
    const double clamped = std::min(std::max(size->GetDouble(), 0.0), MaxBloomKernelSize);
    if(clamped == size->GetDouble()) return;
    Utility::Warning{} << "settings/rendering/bloom/kernelSize:" << size->GetDouble()
                       << "is not between 0 and 21, it became" << clamped;
    size->SetDouble(clamped);
}

void EditCheck::changed(Containers::StringView pointer) {
    if(!_ancestry.isRead()) return;
    const PointerTokens path{pointer};
    if(!path.isValid() || !path.size() || path[0].name != Objects) return;
    if(path.size() == 1) return _ancestry.forget();
    if(path.size() == 2 || path[2].name == "parent") _ancestry.parentChanged(path[1].name);
}

void EditCheck::documentChanged() { _ancestry.forget(); }

std::string EditCheck::whyObjectEditRefused(
    const ProjectFile& file, const PointerTokens& path, const JsonValue& value) {
    const std::string_view id = path[1].name;
    if(!file.member("objects", {id.data(), id.size()})) {
        if(id.empty()) return EmptyId;
        if(!file.roomForObjects()) return tooManyObjects();
    }
    if(path.size() == 2) {
        const std::string reason = whyNoObject(value);
        if(!reason.empty()) return reason;
        const JsonValue* const parent = valueAtKey(value, "parent");
        return whyParentRefused(file, id, parent ? textOf(*parent) : std::string_view{});
    }
    const std::string_view key = path[2].name;
    if(key != "name" && key != "parent") return {};
    if(path.size() > 3 || !value.IsString()) return std::string{key} + " is a text";
    return key == "parent" ? whyParentRefused(file, id, textOf(value)) : std::string{};
}

std::string EditCheck::whyParentRefused(const ProjectFile& file, std::string_view object, std::string_view parent) {
    return _ancestry.isAncestor(file, object, parent) ? OwnAncestor : std::string{};
}

} // namespace VantrelEngine
