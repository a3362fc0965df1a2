#include <algorithm>
#include <string>
#include <unordered_map>

#include <Vantrel/EditorData/EditorData.h>

#include "Panels/Inspector/InspectedGroups.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Schema/Schema.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr SchemaKey ActiveKey{"active", "Active", KeyKind::Truth, "true", ""};

struct Object {
    std::string base;
    const JsonValue* value;
};

std::vector<Object> selectedObjects(const EditorData& data) {
    std::vector<Object> objects;
    const BitSetView selection = data.selection();
    for(std::size_t id = selection.findFirstSet(); id < selection.size(); id = selection.findFirstSet(id + 1)) {
        const Containers::StringView name = data.scene().main().objectIds.nameOf(Id(id));
        const JsonValue* const value = data.project().member("objects", name);
        if(value) objects.push_back({"/objects/" + escapedToken({name.data(), name.size()}), value});
    }
    return objects;
}

const JsonValue* componentsOf(const JsonValue* object) {
    const JsonValue* const components = valueBelow(object, "components");
    return components && components->IsArray() ? components : nullptr;
}

const JsonValue* componentsOf(const Object& object) { return componentsOf(object.value); }

std::string_view typeOf(const JsonValue& component) {
    const JsonValue* const type = valueBelow(&component, "type");
    if(!type || !type->IsString()) return {};
    return {type->GetString(), type->GetStringLength()};
}

// The index of the component that is the nth of its type; -1 for none.
int indexOf(const Object& object, std::string_view type, int nth) {
    const JsonValue* const components = componentsOf(object);
    for(rapidjson::SizeType i = 0; components && i != components->Size(); ++i)
        if(typeOf((*components)[i]) == type && !nth--) return int(i);
    return -1;
}

std::string titleOf(std::string_view type, int nth, rapidjson::SizeType index) {
    if(type.empty()) return "Component " + std::to_string(index + 1);
    const ComponentSchema* const schema = componentSchema(type);
    const std::string name = schema ? schema->label : std::string{type};
    return nth ? name + ' ' + std::to_string(nth + 1) : name;
}

InspectedGroup componentGroup(
    std::string_view type, std::string title, std::vector<std::string> bases, std::vector<const JsonValue*> values) {
    InspectedGroup group{InspectedGroup::Kind::Components, std::move(title), std::move(bases), std::move(values)};
    group.type = type;
    group.addKeys(Containers::arrayView(&ActiveKey, 1));
    if(const ComponentSchema* const schema = componentSchema(type)) {
        group.tip = schema->tip;
        group.addKeys(schema->keys);
    } else if(!type.empty()) {
        group.tip = "Not a type that the editor knows.";
    }
    if(type.empty())
        group.addUnknownKeys();
    else
        group.addUnknownKeys({"type"});
    return group;
}

// How many of the components before have the type.
int nthOf(const JsonValue& components, rapidjson::SizeType index) {
    int nth = 0;
    for(rapidjson::SizeType i = 0; i != index; ++i) nth += typeOf(components[i]) == typeOf(components[index]);
    return nth;
}

void addComponents(const std::vector<Object>& objects, std::vector<InspectedGroup>& groups) {
    const JsonValue* const components = componentsOf(objects.front());
    for(rapidjson::SizeType i = 0; components && i != components->Size(); ++i) {
        const std::string_view type = typeOf((*components)[i]);
        const int nth = nthOf(*components, i);
        // Without a type there is nothing to tell which ones belong together.
        if(type.empty() && objects.size() != 1) continue;
        std::vector<std::string> bases;
        std::vector<const JsonValue*> values;
        for(const Object& object: objects) {
            const int index = type.empty() ? int(i) : indexOf(object, type, nth);
            if(index < 0) break;
            bases.push_back(object.base + "/components/" + std::to_string(index));
            values.push_back(&(*componentsOf(object))[rapidjson::SizeType(index)]);
        }
        if(bases.size() == objects.size())
            groups.push_back(componentGroup(type, titleOf(type, nth, i), std::move(bases), std::move(values)));
    }
}

// The types of an object's components, in their order.
std::string typesOf(const JsonValue* object) {
    std::string types;
    const JsonValue* const components = componentsOf(object);
    for(rapidjson::SizeType i = 0; components && i != components->Size(); ++i)
        types.append(typeOf((*components)[i])).push_back('\0');
    return types;
}

// The titles of all components, in the order in which they come first, with how many objects have them. Those without a
// type do not count.
std::vector<std::pair<std::string, std::size_t>> countedTitles(const std::vector<const JsonValue*>& objects) {
    // Most objects have the same components as others: one of them stands for all.
    std::vector<std::pair<const JsonValue*, std::size_t>> kinds;
    std::unordered_map<std::string, std::size_t> kindOf;
    for(const JsonValue* const object: objects) {
        const auto found = kindOf.try_emplace(typesOf(object), kinds.size());
        if(found.second) kinds.push_back({object, 0});
        ++kinds[found.first->second].second;
    }
    std::vector<std::pair<std::string, std::size_t>> titles;
    for(const auto& [object, count]: kinds) {
        const JsonValue* const components = componentsOf(object);
        for(rapidjson::SizeType i = 0; components && i != components->Size(); ++i) {
            const std::string_view type = typeOf((*components)[i]);
            if(type.empty()) continue;
            const std::string title = titleOf(type, nthOf(*components, i), i);
            const auto known = std::find_if(
                titles.begin(), titles.end(), [&title = title](const auto& each) { return each.first == title; });
            if(known == titles.end())
                titles.push_back({title, count});
            else
                known->second += count;
        }
    }
    return titles;
}

} // namespace

std::vector<InspectedGroup> selectionGroups(const EditorData& data) {
    std::vector<InspectedGroup> groups;
    const std::vector<Object> objects = selectedObjects(data);
    if(objects.empty()) return groups;
    std::vector<std::string> bases;
    std::vector<const JsonValue*> values;
    for(const Object& object: objects) {
        bases.push_back(object.base);
        values.push_back(object.value);
    }
    const std::string title = objects.size() == 1 ? "Object" : std::to_string(objects.size()) + " objects";
    InspectedGroup& group =
        groups.emplace_back(InspectedGroup::Kind::Objects, title, std::move(bases), std::move(values));
    group.addKeys(objectSchema());
    group.addUnknownKeys();
    addComponents(objects, groups);
    return groups;
}

std::vector<std::string> componentsOfSome(const std::vector<InspectedGroup>& groups) {
    std::vector<std::string> titles;
    if(groups.empty() || groups.front().values.size() < 2) return titles;
    const std::vector<const JsonValue*>& objects = groups.front().values;
    for(const auto& [title, count]: countedTitles(objects))
        if(count != objects.size())
            titles.push_back(
                title + ": " + std::to_string(count) + " of " + std::to_string(objects.size()) + " objects");
    return titles;
}

} // namespace VantrelEngine
