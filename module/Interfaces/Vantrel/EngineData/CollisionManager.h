#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/Math/Vector3.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

// The engine's own simple collision shapes ("collision"), centred on their objects.
class CORRADE_VISIBILITY_EXPORT CollisionManager: public ComponentManager {
public:
    // Names of the collider kinds by value: a sphere; a box along the axes of the scene; a box along those of the
    // object.
    static const Corrade::Containers::StringView EnumValuesCollider[3];

    explicit CollisionManager(std::size_t capacity = 0);

    // Index into the names.
    Magnum::UnsignedByte& collider(Id component) { return _collider[slot(component)]; }
    // Scene units: half the edges of a box; of a sphere the first is the radius. Initially 0.5.
    Magnum::Vector3& extents(Id component) { return _extents[slot(component)]; }
    // One bit a group.
    Magnum::UnsignedByte& group(Id component) { return _group[slot(component)]; }

private:
    Field<Magnum::UnsignedByte> _collider{*this};
    Field<Magnum::Vector3> _extents{*this, Magnum::Vector3{0.5f}};
    Field<Magnum::UnsignedByte> _group{*this};
};

}
