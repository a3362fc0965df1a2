#include "Import/ImportPlan.h"

#include <unordered_map>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "Import/ImportedScene.h"
#include "Import/References.h"
#include "Import/SectionNames.h"

namespace VantrelEngine {

namespace {

constexpr std::size_t MaxResources = 65534;
constexpr const char* EnvironmentSetting = "/settings/rendering/environment";

std::string fileNameOf(const JsonValue& file) {
    const std::string path = textOf(file);
    return path.substr(path.rfind('/') + 1);
}

class Planner {
public:
    Planner(ImportedScene& scene, const ProjectFile& project, bool usesUuids):
        _document{scene.document}, _project{project}, _usesUuids{usesUuids}, _environment{scene.environment} {}

    ImportPlan run() {
        // Before any id is replaced: the ids tell what is a reference.
        for(const char* const section: ImportedSections) collect(section);
        nameObjects();
        for(const char* const section: ImportedSections) {
            if(section != std::string{"objects"}) addResources(section);
            if(!_plan.error.empty()) return std::move(_plan);
        }
        addObjects();
        setEnvironment();
        return std::move(_plan);
    }

private:
    struct Item {
        std::string id;
        JsonValue* value;
        std::vector<Reference> references;
        // Of a material: the member with its values, and the shader that it is named after.
        JsonValue* valuesName;
        std::string shader;
    };

    void collect(const char* section) {
        JsonValue& entries = *memberOf(_document, section);
        for(auto entry = entries.MemberBegin(); entry != entries.MemberEnd(); ++entry) {
            Item item{textOf(entry->name), &entry->value, referencesOf(_document, section, entry->value), nullptr, {}};
            if(section == std::string{"materials"}) {
                const MaterialValues values = valuesOfMaterial(_document, entry->value);
                item.valuesName = values.name;
                if(values.name) item.shader = values.shaderId;
            }
            _items[section].push_back(std::move(item));
        }
    }

    std::string newId(SectionNames& names, const std::string& name) const {
        return _usesUuids ? names.newUuid(name) : names.newId(name);
    }

    void nameObjects() {
        SectionNames names{_project, "objects"};
        for(Item& item: _items["objects"]) {
            const std::string name = textMember(*item.value, "name");
            const std::string id = newId(names, name);
            _ids["objects"][item.id] = id;
            if(!textMember(*item.value, "parent").empty()) continue;
            setName(*item.value, names.uniqueName(name));
            _plan.roots.push_back(id);
        }
    }

    void addResources(const std::string& section) {
        const std::vector<Item>& items = _items[section];
        if(items.empty()) return;
        SectionNames names{_project, section};
        const std::size_t before = _plan.entries.size();
        for(const Item& item: items) addResource(section, item, names);
        const JsonValue* const present = _project.section({section.data(), section.size()});
        const std::size_t count = present && present->IsObject() ? present->MemberCount() : 0;
        if(count + _plan.entries.size() - before > MaxResources)
            _plan.error = "the project has no room for so many " + section;
    }

    void addResource(const std::string& section, const Item& item, SectionNames& names) {
        follow(item);
        placeFile(*item.value);
        std::string& id = _ids[section][item.id];
        id = names.findSame(*item.value);
        if(!id.empty()) {
            if(section == "shaders")
                _shaderNames[item.id] = textMember(*_project.member("shaders", {id.data(), id.size()}), "name");
        } else {
            const std::string name = textMember(*item.value, "name");
            id = newId(names, name);
            setName(*item.value, names.uniqueName(name));
            if(section == "shaders") _shaderNames[item.id] = textMember(*item.value, "name");
            _plan.entries.push_back({section, id, item.value});
        }
    }

    void addObjects() {
        const std::vector<Item>& items = _items["objects"];
        if(items.size() > _project.roomForObjects()) {
            _plan.error = "the project has no room for so many objects";
            return;
        }
        for(const Item& item: items) {
            follow(item);
            _plan.entries.push_back({"objects", _ids["objects"][item.id], item.value});
        }
        _plan.objectCount = items.size();
    }

    void follow(const Item& item) {
        for(const Reference& reference: item.references)
            setText(*reference.id, _ids[reference.section][textOf(*reference.id)]);
        if(item.valuesName) setText(*item.valuesName, _shaderNames[item.shader]);
    }

    void placeFile(JsonValue& entry) {
        JsonValue* const file = memberOf(entry, "file");
        if(file) setText(*file, ImportedFolder + fileNameOf(*file));
    }

    void setName(JsonValue& entry, const std::string& name) { setText(*memberOf(entry, "name"), name); }

    void setText(JsonValue& text, const std::string& value) {
        text.SetString(value.data(), rapidjson::SizeType(value.size()), _document.GetAllocator());
    }

    void setEnvironment() {
        if(!_environment.empty() && !_project.valueByPointer(EnvironmentSetting))
            _plan.environment = _ids["images"][_environment];
    }

    JsonDocument& _document;
    const ProjectFile& _project;
    bool _usesUuids;
    std::string _environment;
    ImportPlan _plan;
    std::unordered_map<std::string, std::vector<Item>> _items;
    // By section and the import's id.
    std::unordered_map<std::string, std::unordered_map<std::string, std::string>> _ids;
    std::unordered_map<std::string, std::string> _shaderNames;
};

} // namespace

std::set<std::string> filesOf(const ImportedScene& scene) {
    std::set<std::string> files;
    for(const char* const section: ImportedSections) {
        const JsonValue& entries = *memberOf(scene.document, section);
        for(auto entry = entries.MemberBegin(); entry != entries.MemberEnd(); ++entry)
            if(const JsonValue* const file = memberOf(entry->value, "file")) files.insert(fileNameOf(*file));
    }
    return files;
}

ImportPlan planImport(ImportedScene& scene, const ProjectFile& project, bool usesUuids) {
    return Planner{scene, project, usesUuids}.run();
}

} // namespace VantrelEngine
