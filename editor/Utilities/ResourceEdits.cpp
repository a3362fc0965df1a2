#include "Utilities/ResourceEdits.h"

#include <vector>

#include "Data/ProjectSession.h"
#include "Import/References.h"
#include "Import/SectionNames.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

Containers::StringView view(const std::string& text) { return {text.data(), text.size()}; }

std::string pointerTo(const std::string& section, const std::string& id) {
    return '/' + section + '/' + pointerToken(view(id));
}

// Whether some text of the document is this one, but for names.
bool isNamed(const JsonValue& document, const std::string& text) {
    std::vector<const JsonValue*> waiting{&document};
    while(!waiting.empty()) {
        const JsonValue& value = *waiting.back();
        waiting.pop_back();
        if(value.IsString() && textOf(value) == text) return true;
        if(value.IsArray())
            for(const JsonValue& element: value.GetArray()) waiting.push_back(&element);
        if(value.IsObject())
            for(const auto& member: value.GetObject())
                if(textOf(member.name) != "name") waiting.push_back(&member.value);
    }
    return false;
}

} // namespace

std::string whyNotRenamed(const std::string& section) {
    return section == "shaders" ? "Materials keep their values under the name of their shader" : std::string{};
}

std::size_t usersOf(const std::string& section, const std::string& id, ProjectSession& session) {
    const std::size_t kind = resourceKindOf(view(section));
    if(kind == ResourceKindCount) return 0;
    const ResourceNode* const node = session.data().scene().resourceMaps().find(ResourceKind(kind), view(id));
    return node ? node->userCount() : 0;
}

std::string whyNotDeleted(const std::string& section, const std::string& id, ProjectSession& session) {
    const std::size_t count = usersOf(section, id, session);
    if(!count) return {};
    return "It is used " + (count == 1 ? std::string{"once"} : std::to_string(count) + " times");
}

void renameResource(
    const std::string& section, const std::string& id, const std::string& name, ProjectSession& session) {
    const JsonValue* const resource = session.data().project().member(view(section), view(id));
    if(!resource || !resource->IsObject() || !whyNotRenamed(section).empty() || textMember(*resource, "name") == name)
        return;
    session.changes().recordString(view(pointerTo(section, id) + "/name"), view(name), false);
}

std::string duplicateResource(const std::string& section, const std::string& id, ProjectSession& session) {
    ProjectFile& project = session.data().project();
    const JsonValue* const resource = project.member(view(section), view(id));
    if(!resource || !resource->IsObject()) return {};
    const std::string name = textMember(*resource, "name").empty() ? id : textMember(*resource, "name");
    SectionNames names{project, section};
    const std::string copyId = session.data().objectIdMode == 1 ? names.newUuid(name) : names.newId(name);
    const std::string copyName = names.uniqueName(name);
    JsonValue copy{*resource, project.allocator()};
    copy.RemoveMember("name");
    copy.AddMember("name", JsonValue{copyName.data(), rapidjson::SizeType(copyName.size()), project.allocator()},
        project.allocator());
    session.changes().recordChange(view(pointerTo(section, copyId)), &copy, false);
    return copyId;
}

std::string deleteResource(const std::string& section, const std::string& id, ProjectSession& session) {
    ProjectFile& project = session.data().project();
    if(!project.member(view(section), view(id))) return {};
    std::string reason = whyNotDeleted(section, id, session);
    if(reason.empty() && isNamed(project.projectFile(), id)) reason = "Something in the project names it";
    if(reason.empty()) session.changes().recordChange(view(pointerTo(section, id)), nullptr, false);
    return reason;
}

} // namespace VantrelEngine
