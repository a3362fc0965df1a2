#include "Panels/Resources/ResourceRows.h"

#include <algorithm>
#include <cctype>

#include <Vantrel/EngineData/ProjectFile.h>

namespace VantrelEngine {

namespace {

const JsonValue* sectionOf(const ProjectFile& project, const char* section) {
    const JsonValue* const resources = project.section(section);
    return resources && resources->IsObject() ? resources : nullptr;
}

std::string textMember(const JsonValue& object, const char* key) {
    if(!object.IsObject()) return {};
    const auto found = object.FindMember(key);
    if(found == object.MemberEnd() || !found->value.IsString()) return {};
    return {found->value.GetString(), found->value.GetStringLength()};
}

bool isSameLetter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

bool holds(const std::string& text, const std::string& part) {
    return std::search(text.begin(), text.end(), part.begin(), part.end(), isSameLetter) != text.end();
}

} // namespace

std::size_t resourceCount(const ProjectFile& project, const char* section) {
    const JsonValue* const resources = sectionOf(project, section);
    return resources ? resources->MemberCount() : 0;
}

ResourceRow resourceAt(const ProjectFile& project, const char* section, std::size_t position) {
    const auto member = sectionOf(project, section)->MemberBegin() + std::ptrdiff_t(position);
    ResourceRow row{{member->name.GetString(), member->name.GetStringLength()}, textMember(member->value, "name")};
    if(row.name.empty()) row.name = row.id;
    return row;
}

std::vector<std::size_t> searchResources(const ProjectFile& project, const char* section, const std::string& text) {
    std::vector<std::size_t> positions;
    for(std::size_t i = 0, count = resourceCount(project, section); i != count; ++i) {
        const ResourceRow row = resourceAt(project, section, i);
        if(holds(row.name, text) || holds(row.id, text)) positions.push_back(i);
    }
    return positions;
}

std::string imageOfTexture(const ProjectFile& project, const std::string& texture) {
    const JsonValue* const value = project.member("textures", {texture.data(), texture.size()});
    return value ? textMember(*value, "image") : std::string{};
}

} // namespace VantrelEngine
