#include "Data/ProjectListener.h"

#include <string>
#include <vector>

#include <Vantrel/EditorData/EditorData.h>
#include <VantrelHost/ResourceCompiler.h>

#include "AssetCompiler.h"
#include "JsonEdit.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;

namespace {

using Components = Containers::ArrayView<const Containers::StringView>;

// A path has an empty component in front.
constexpr std::size_t SectionPosition = 1;
constexpr std::size_t IdPosition = 2;
constexpr std::size_t KeyPosition = 3;

// Calls with the id that a component of a path stands for. Costs memory only where it is escaped.
template<class Function> void withId(Containers::StringView component, Function&& function) {
    if(!component.find('~')) return function(component);
    const std::string id = unescaped(component);
    function(Containers::StringView{id.data(), id.size()});
}

bool isOutsideComponents(Containers::StringView key) {
    for(const Containers::StringView known:
        {"translation"_s, "rotation"_s, "scaling"_s, "parent"_s, "name"_s, "skin"_s})
        if(key == known) return true;
    return false;
}

template<class Function> void forEachMember(const JsonValue* object, Function&& function) {
    if(!object || !object->IsObject()) return;
    for(auto member = object->MemberBegin(); member != object->MemberEnd(); ++member)
        function(Containers::StringView{member->name.GetString(), member->name.GetStringLength()});
}

} // namespace

ProjectListener::ProjectListener(EditorData& data, AssetCompiler& objects, ResourceCompiler& resources):
    _data{data}, _objects{objects}, _resources{resources} {}

void ProjectListener::registerWith(ChangeManager& changes) {
    changes.addListener("objects", *this);
    changes.addListener("settings", *this);
    for(std::size_t kind = 0; kind != ResourceKindCount; ++kind)
        changes.addListener(resourceSection(ResourceKind(kind)), *this);
}

void ProjectListener::onChange(const Change&, Components components) {
    // Where the key stands decides: an object may be called "settings".
    if(components.size() <= SectionPosition) return;
    const Containers::StringView section = components[SectionPosition];
    if(section == "objects") return onObjectChange(components);
    if(section == "settings") return _data.scene().revisions().touch(Aspect::Settings);
    const std::size_t kind = resourceKindOf(section);
    if(kind != ResourceKindCount) onResourceChange(kind, components);
}

void ProjectListener::onObjectChange(Components components) {
    if(components.size() > IdPosition) {
        const bool isWhole = components.size() == KeyPosition || !isOutsideComponents(components[KeyPosition]);
        return withId(
            components[IdPosition], [this, isWhole](Containers::StringView id) { _objects.setPending(id, isWhole); });
    }
    // All of them were replaced.
    _objects.setAllPending();
}

void ProjectListener::onResourceChange(std::size_t kind, Components components) {
    if(components.size() > IdPosition)
        return withId(components[IdPosition],
            [this, kind](Containers::StringView id) { _resources.compile(ResourceKind(kind), id); });
    std::vector<std::string> known;
    _data.scene().resourceMaps().of(ResourceKind(kind)).forEach([&](const ResourceNode& node) {
        known.push_back(node.id);
    });
    for(const std::string& id: known) _resources.compile(ResourceKind(kind), {id.data(), id.size()});
    forEachMember(_data.project().valueByPointer("/" + resourceSection(ResourceKind(kind))),
        [this, kind](Containers::StringView id) { _resources.compile(ResourceKind(kind), id); });
}

} // namespace VantrelEngine
