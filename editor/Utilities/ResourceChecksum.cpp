#include "Utilities/ResourceChecksum.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <VantrelHost/FileFingerprint.h>

#include "Import/ImportPlan.h"
#include "Import/References.h"
#include "JsonEdit.h"

namespace VantrelEngine {

namespace {

constexpr const char* Sections[]{"meshes", "images", "textures", "shaders", "pipelines", "materials", "fonts"};
constexpr const char* FileKeys[]{"file", "vertex", "fragment"};

template<class T> std::uint64_t added(std::uint64_t sum, const T& value) {
    return checksum({reinterpret_cast<const char*>(&value), sizeof value}, sum);
}

// The same for values that compare equal: members in any order, and whole numbers like doubles.
std::uint64_t sumOf(const JsonValue& value) {
    const std::uint64_t start = std::uint64_t(value.GetType()) + 1;
    if(value.IsNumber()) return added(start, value.GetDouble());
    if(value.IsString()) return checksum({value.GetString(), value.GetStringLength()}, start);
    std::uint64_t sum = start;
    if(value.IsArray())
        for(const JsonValue& element: value.GetArray()) sum = added(sum, sumOf(element));
    if(value.IsObject())
        for(auto member = value.MemberBegin(); member != value.MemberEnd(); ++member)
            sum += added(sumOf(member->name), sumOf(member->value));
    return sum;
}

bool isKnown(const JsonValue& resource, const std::string& section, const char* key) {
    const std::string file = textMember(resource, key);
    const bool isEngines = memberOf(resource, "asset") ? !textMember(resource, "asset").empty() : section == "shaders";
    return file.empty() || isEngines || file.compare(0, std::strlen(ImportedFolder), ImportedFolder) == 0;
}

bool isSelfContained(const std::string& section) {
    return std::find(std::begin(Sections), std::end(Sections), section) != std::end(Sections);
}

} // namespace

bool isFileKnown(const JsonValue& resource, const std::string& section) {
    return std::all_of(
        std::begin(FileKeys), std::end(FileKeys), [&](const char* key) { return isKnown(resource, section, key); });
}

std::optional<std::uint64_t> resourceChecksum(
    const ProjectFile& project, const std::string& section, const std::string& id) {
    const JsonValue* const resource = project.member(section, id);
    if(!resource || !isSelfContained(section) || !isFileKnown(*resource, section)) return {};
    std::uint64_t sum = sumOf(*resource);
    JsonDocument copies;
    JsonValue copy = copyOf(*resource, copies.GetAllocator());
    for(const Reference& reference: referencesOf(project.projectFile(), section, copy)) {
        const std::string used = textOf(*reference.id);
        // What is missing is so in both projects.
        if(!project.member(reference.section, used)) continue;
        const std::optional<std::uint64_t> part = resourceChecksum(project, reference.section, used);
        if(!part) return {};
        sum = added(sum, *part);
    }
    return sum;
}

} // namespace VantrelEngine
