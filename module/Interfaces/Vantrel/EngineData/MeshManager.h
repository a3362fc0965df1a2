#pragma once

#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

// Meshes in the scene ("mesh"). Active ones are grouped by what they are drawn with, so that a group is one range of
// slots. Indices are those of the scene's resources; 0 is none.
class CORRADE_VISIBILITY_EXPORT MeshManager: public ComponentManager {
public:
    explicit MeshManager(std::size_t capacity = 0);

    Id& mesh(Id component) { return _mesh[slot(component)]; }
    Id& material(Id component) { return _material[slot(component)]; }
    Id skin(Id component) const { return _skin[slot(component)]; }
    void setSkin(Id component, Id skin) { _skin[slot(component)] = skin; }

    // Puts the component among those with the same pipeline and the same flag (0 or 1). The first component of a pair
    // makes the group; it stays when it is empty. A new component is in group 0: pipeline 0, not skinned.
    void setGroup(Id component, Id pipeline, Id skinned);

    using ComponentManager::groupOf;

    std::size_t groupsCount() const { return groupCount(); }
    Id groupPipeline(std::size_t group) const { return _keys[group].pipeline; }
    bool isGroupSkinned(std::size_t group) const { return _keys[group].isSkinned; }
    // Active components of a group, and their slots.
    std::size_t groupSize(std::size_t group) const;
    std::size_t groupStart(std::size_t group) const { return groupRange(group).first(); }
    std::size_t groupEnd(std::size_t group) const { return groupRange(group).second(); }

    // By slot; valid as long as slots are.
    Corrade::Containers::ArrayView<const Id> meshes() const { return settled(_mesh); }
    Corrade::Containers::ArrayView<const Id> materials() const { return settled(_material); }
    Corrade::Containers::ArrayView<const Id> skins() const { return settled(_skin); }

private:
    struct Key {
        Id pipeline;
        bool isSkinned;
    };

    Field<Id> _mesh{*this};
    Field<Id> _material{*this};
    Field<Id> _skin{*this};
    // By group, and the groups by 2 * pipeline + skinned, none as ~0.
    Corrade::Containers::Array<Key> _keys;
    Corrade::Containers::Array<Magnum::UnsignedInt> _groups;
};

}
