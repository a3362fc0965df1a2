#include "Utilities/ObjectClip.h"

#include <cstring>
#include <unordered_set>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Assert.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <VantrelHost/DocumentProblem.h>
#include <VantrelHost/DocumentReader.h>
#include <VantrelHost/DocumentWriter.h>

#include "Data/Project/DocumentCheck.h"
#include "Import/ConverterLines.h"
#include "Import/References.h"
#include "JsonEdit.h"
#include "Utilities/ClipOrigin.h"

namespace VantrelEngine {

namespace {

constexpr const char* TypeMarker = "vantrel-objects";
constexpr int Version = 1;
constexpr const char* NoObjects = "it has no objects of a project";
constexpr const char* Sections[]{"objects", "skins", "animations"};

class Copier {
public:
    Copier(const ProjectFile& project, const std::vector<std::string>& ids):
        _project{project}, _ids{ids.begin(), ids.end()} {
        _clip.SetObject();
        add(_clip, "type", JsonValue{rapidjson::StringRef(TypeMarker)});
        add(_clip, "version", JsonValue{Version});
        for(const char* const section: Sections) add(_clip, section, JsonValue{rapidjson::kObjectType});
    }

    JsonDocument run(const std::vector<std::string>& ids) {
        for(const std::string& id: ids)
            if(const JsonValue* const object = _project.member("objects", id)) addObject(id, *object);
        return std::move(_clip);
    }

private:
    void add(JsonValue& object, const std::string& key, JsonValue value) {
        object.AddMember(
            JsonValue{key.data(), rapidjson::SizeType(key.size()), _clip.GetAllocator()}, value, _clip.GetAllocator());
    }

    void addObject(const std::string& id, const JsonValue& object) {
        JsonValue copy = copyOf(object, _clip.GetAllocator());
        for(const Reference& reference: referencesOf(_clip, "objects", copy)) addUsed(reference);
        add(*memberOf(_clip, "objects"), id, std::move(copy));
    }

    // Where it names a copied object, another one is needed that names the copy.
    void addUsed(const Reference& reference) {
        const bool isObject = !std::strcmp(reference.section, "objects");
        JsonValue* const section = isObject ? nullptr : memberOf(_clip, reference.section);
        const std::string id = textOf(*reference.id);
        if(!section || !_seen.insert(reference.section + ('/' + id)).second) return;
        const JsonValue* const resource = _project.member(reference.section, id);
        if(!resource) return;
        JsonValue copy = copyOf(*resource, _clip.GetAllocator());
        if(namesCopied(reference.section, copy)) add(*section, id, std::move(copy));
    }

    bool namesCopied(const char* section, JsonValue& resource) const {
        for(const Reference& reference: referencesOf(_clip, section, resource))
            if(!std::strcmp(reference.section, "objects") && _ids.count(textOf(*reference.id))) return true;
        return false;
    }

    const ProjectFile& _project;
    const std::unordered_set<std::string> _ids;
    // "skins/ID" and the like.
    std::unordered_set<std::string> _seen;
    JsonDocument _clip;
};

std::string whyNoClip(const JsonDocument& document) {
    if(textMember(document, "type") != TypeMarker) return NoObjects;
    const JsonValue* const version = memberOf(document, "version");
    if(!version || !version->IsInt() || version->GetInt() != Version) return "it is of another version";
    const JsonValue* const objects = memberOf(document, "objects");
    return objects && (!objects->IsObject() || !objects->ObjectEmpty()) ? std::string{} : NoObjects;
}

// The check of a project looks at what the scene is made of; what a resource is, whoever compiles it finds out.
std::string whyNoResources(const JsonDocument& document) {
    for(const char* const section: {"skins", "animations"}) {
        const JsonValue* const resources = memberOf(document, section);
        if(!resources) continue;
        for(auto resource = resources->MemberBegin(); resource != resources->MemberEnd(); ++resource)
            if(!resource->value.IsObject() || !resource->name.GetStringLength())
                return section + ('/' + shownText(textOf(resource->name))) + ": not a resource";
    }
    return {};
}

std::string firstNotAllowed(const std::vector<DocumentProblem>& problems) {
    for(const DocumentProblem& problem: problems)
        if(problem.kind == DocumentProblem::Kind::Repair || problem.kind == DocumentProblem::Kind::Refusal)
            return shownText(lineOf(problem));
    return {};
}

} // namespace

JsonDocument copyObjects(const ProjectFile& project, const std::vector<std::string>& ids) {
    return Copier{project, ids}.run(ids);
}

std::string textOfClip(const JsonDocument& clip) {
    std::string text;
    const std::string error = writeDocument(clip, text);
    CORRADE_ASSERT(error.empty(), "textOfClip():" << error.data(), {});
    return text;
}

bool looksLikeClip(std::string_view text) {
    constexpr std::size_t beginning = 100;
    return text.substr(0, beginning).find(TypeMarker) != std::string_view::npos;
}

std::string readClip(std::string_view text, JsonDocument& clip) {
    if(text.empty()) return "it is empty";
    if(text.size() > MaxClipSize) return "it is too large";
    JsonDocument document;
    if(!parseDocument(text, document).empty()) return NoObjects;
    std::string error = whyNoClip(document);
    if(error.empty()) error = firstNotAllowed(checkDocument(document));
    if(error.empty()) error = whyNoResources(document);
    if(error.empty()) error = whyNoOrigin(document);
    if(error.empty()) clip.Swap(document);
    return error;
}

} // namespace VantrelEngine
