#include "AssetCompiler/ComponentHandlers.h"

#include <algorithm>

#include <Vantrel/EngineData/RapidJsonUtils.h>

#include "AssetCompiler.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;

namespace {

constexpr ComponentType Types[]{
    {"collision"_s, compileCollision},
    {"physx"_s, nullptr},
    {"input"_s, compileInput},
    {"view"_s, compileView},
    {"animation"_s, nullptr},
    {"text"_s, nullptr},
    {"light"_s, compileLight},
    {"mesh"_s, compileMesh},
};

} // namespace

const ComponentType* componentType(Containers::StringView name) {
    for(const ComponentType& type: Types)
        if(type.name == name) return &type;
    return nullptr;
}

bool ComponentTask::ensureComponent(ComponentManager& manager) {
    if(component == NoComponent) component = manager.addComponent(object());
    if(component != NoComponent) return true;
    problem("there are too many components of its type");
    return false;
}

Magnum::UnsignedByte ComponentTask::enumValue(
    Containers::StringView name, Containers::ArrayView<const Containers::StringView> names) const {
    const auto* const found = std::find(names.begin(), names.end(), name);
    if(found != names.end()) return Magnum::UnsignedByte(found - names.begin());
    const auto text = [](Containers::StringView view) { return std::string{view.data(), view.size()}; };
    const bool isNew = problem("\"" + text(name) + "\" is not known, \"" + text(names[0]) + "\" is used");
    return isNew ? Magnum::UnsignedByte(RapidJsonUtils::enumStringToValue(name, names)) : 0;
}

bool ComponentTask::problem(std::string reason) const {
    return compiler._problems.add(node.id, position, std::move(reason));
}

void ComponentTask::changed(Aspect aspect) const { compiler._changedAspects |= 1u << unsigned(aspect); }

Id ComponentTask::resource(ResourceKind kind, Containers::StringView id) const {
    ResourceNode& resource = data.scene().resourceMaps().node(kind, id);
    node.use(resource);
    return resource.index;
}

} // namespace VantrelEngine
