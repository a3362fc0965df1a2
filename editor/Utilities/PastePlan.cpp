#include "Utilities/PastePlan.h"

#include <cstring>
#include <unordered_map>
#include <unordered_set>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EditorData/EditorData.h>

#include "AssetCompiler.h"
#include "Import/NewIds.h"
#include "Import/References.h"
#include "Import/SectionNames.h"
#include "JsonEdit.h"
#include "Utilities/ClipOrigin.h"
#include "Utilities/ResourceChecksum.h"
#include "Utilities/SiblingNames.h"

namespace VantrelEngine {

namespace {

constexpr std::size_t MaxResources = 65534;
constexpr const char* CopiedResources[]{"skins", "animations"};

class Planner {
public:
    Planner(JsonDocument& clip, const EditorData& data, const AssetCompiler& compiler, const std::string& parent,
        ClipOrigin* origin):
        _clip{clip},
        _data{data}, _project{data.project()}, _compiler{compiler}, _parent{parent}, _origin{origin},
        _names{data.scene().main()} {}

    PastePlan run() {
        JsonValue& objects = *memberOf(_clip, "objects");
        _plan.objectCount = objects.MemberCount();
        const std::size_t room = _project.roomForObjects();
        if(_plan.objectCount > room) {
            _plan.error = std::to_string(_plan.objectCount) + " are too many, the project has room for " +
                std::to_string(room) + " more objects";
            return std::move(_plan);
        }
        giveIds(objects);
        // Before any reference is replaced: the ids of the copies tell which ones are used.
        for(const char* const section: CopiedResources) addResources(section, objects);
        if(!_plan.error.empty()) return std::move(_plan);
        addObjects(objects);
        return std::move(_plan);
    }

private:
    using Ids = std::unordered_map<std::string, std::string>;

    std::string newId(NewIds& ids, const std::string& id, const std::string& name) const {
        const std::string& source = name.empty() ? id : name;
        return _data.objectIdMode == 1 ? ids.uuidFromName(source) : ids.fromName(source);
    }

    void giveIds(JsonValue& objects) {
        NewIds ids{_project, "objects", "object"};
        for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object) {
            const std::string id = textOf(object->name);
            _ids["objects"][id] = newId(ids, id, textMember(object->value, "name"));
        }
    }

    // Those that the copied objects use.
    void addResources(const char* section, JsonValue& objects) {
        JsonValue* const resources = memberOf(_clip, section);
        if(!resources || resources->ObjectEmpty()) return;
        const std::unordered_set<std::string> used = usedOf(section, objects);
        SectionNames names{_project, section};
        Ids& ids = _ids[section];
        for(auto resource = resources->MemberBegin(); resource != resources->MemberEnd(); ++resource) {
            const std::string id = textOf(resource->name);
            if(!used.count(id) || (_origin && !isFileKnown(resource->value, section))) continue;
            const std::string name = textMember(resource->value, "name");
            ids[id] = _data.objectIdMode == 1 ? names.newUuid(name) : names.newId(name);
            if(!name.empty()) setText(*memberOf(resource->value, "name"), names.uniqueName(name));
            follow(section, resource->value);
            _plan.entries.push_back({section, ids[id], &resource->value});
        }
        const JsonValue* const present = _project.section(section);
        if((present && present->IsObject() ? present->MemberCount() : 0) + ids.size() > MaxResources)
            _plan.error = std::string{"the project has no room for so many "} + section;
    }

    std::unordered_set<std::string> usedOf(const char* section, JsonValue& objects) const {
        std::unordered_set<std::string> used;
        for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object)
            for(const Reference& reference: referencesOf(_clip, "objects", object->value))
                if(!std::strcmp(reference.section, section)) used.insert(textOf(*reference.id));
        return used;
    }

    // An object whose parent was copied, too, goes below the copy and keeps its name.
    void addObjects(JsonValue& objects) {
        std::vector<JsonValue*> tops;
        for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object) {
            const bool isTop = !_ids["objects"].count(textMember(object->value, "parent"));
            if(isTop) {
                if(_origin && _parent.empty()) setPlace(textOf(object->name), object->value);
                setParent(object->value);
                _names.announce(parentOf(object->value), textMember(object->value, "name"));
                tops.push_back(&object->value);
            }
            follow("objects", object->value, isTop);
            _plan.entries.push_back({"objects", _ids["objects"][textOf(object->name)], &object->value});
        }
        for(JsonValue* const top: tops) {
            const std::string name = textMember(*top, "name");
            if(!name.empty()) setText(*memberOf(*top, "name"), _names.take(parentOf(*top), name));
        }
    }

    Id parentOf(const JsonValue& object) const {
        const std::string parent = textMember(object, "parent");
        return parent.empty() ? RootObject : _compiler.objectOf({parent.data(), parent.size()});
    }

    void setParent(JsonValue& object) {
        const std::string present = textMember(object, "parent");
        const std::string wanted = !_parent.empty()           ? _parent
            : !_origin && _project.member("objects", present) ? present
                                                              : std::string{};
        if(wanted == present) return;
        JsonValue* const text = memberOf(object, "parent");
        if(text) return setText(*text, wanted);
        JsonValue value;
        setText(value, wanted);
        object.AddMember("parent", value, _clip.GetAllocator());
    }

    // In the scene, where its parent is not.
    void setPlace(const std::string& id, JsonValue& object) {
        const JsonValue* const place = _origin->placeOf(id);
        if(!place) return;
        for(auto part = place->MemberBegin(); part != place->MemberEnd(); ++part) {
            JsonValue* const present = memberOf(object, part->name.GetString());
            JsonValue value = copyOf(part->value, _clip.GetAllocator());
            if(present)
                *present = value;
            else
                object.AddMember(copyOf(part->name, _clip.GetAllocator()), value, _clip.GetAllocator());
        }
    }

    // What was copied is named by its new id. Of the rest, what is not there is noted.
    void follow(const char* section, JsonValue& entry, bool hasParent = false) {
        for(const Reference& reference: referencesOf(_clip, section, entry)) {
            // It is one of the project's already.
            if(hasParent && reference.id == memberOf(entry, "parent")) continue;
            const std::string id = textOf(*reference.id);
            const Ids& ids = _ids[reference.section];
            const auto copied = ids.find(id);
            if(copied != ids.end())
                setText(*reference.id, copied->second);
            else if(_origin && !_origin->hasSame(_project, reference.section, id)) {
                note(reference.section + ('/' + id), _plan.leftOut);
                setText(*reference.id, {});
            } else if(!_origin && !_project.member(reference.section, id))
                note(reference.section + ('/' + id), _plan.missing);
        }
    }

    void note(std::string resource, std::vector<std::string>& list) {
        if(_noted.insert(resource).second) list.push_back(std::move(resource));
    }

    void setText(JsonValue& text, const std::string& value) {
        text.SetString(value.data(), rapidjson::SizeType(value.size()), _clip.GetAllocator());
    }

    JsonDocument& _clip;
    const EditorData& _data;
    const ProjectFile& _project;
    const AssetCompiler& _compiler;
    const std::string& _parent;
    ClipOrigin* _origin;
    SiblingNames _names;
    PastePlan _plan;
    // By section and the id that was copied.
    std::unordered_map<std::string, Ids> _ids;
    std::unordered_set<std::string> _noted;
};

} // namespace

PastePlan planPaste(JsonDocument& clip, const EditorData& data, const AssetCompiler& compiler,
    const std::string& parent, ClipOrigin* origin) {
    return Planner{clip, data, compiler, parent, origin}.run();
}

} // namespace VantrelEngine
