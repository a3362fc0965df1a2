#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

void compileCollision(ComponentTask& task) {
    CollisionManager& collisions = task.scene.collisions;
    if(!task.ensureComponent(collisions)) return;
    const ValueAccess json = task.json["collision"];

    const Containers::StringView collider = json["collider"].readValue().asString("sphere");
    const UnsignedByte kind = task.enumValue(collider, CollisionManager::EnumValuesCollider);
    collisions.collider(task.component) = kind;

    // The sizes of the other kinds stand beside it and are kept for when the kind is switched back.
    const ValueAccess size = json[collider];
    Vector3& extents = collisions.extents(task.component);
    if(kind == 0)
        extents.x() = size["radius"].readValue().asFloat(extents.x());
    else
        extents = size["extents"].readValue().asVector3(extents);

    collisions.group(task.component) =
        UnsignedByte(json["groups"].readValue().asUnsignedInt(0, JsonObject::WhenMissing::Accept));
    collisions.setActive(task.component, task.isActive());
}

} // namespace VantrelEngine
