#pragma once

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Pointer.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector3.h>

#include <Vantrel/EngineData/BitSetView.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class ComponentManager;
template<class Number> class AncestryForest;

// Where an object stands. The number of descendants is the third field.
struct ObjectData {
    // 65,535 for the root.
    Id parent;
    Id index;
    // They follow the object in index order.
    Magnum::UnsignedShort descendants;
};

// The objects of one scene: a tree under the root, with transformations and with the components of each object.
//
// An object is known by its id, which it keeps for life; its index, the position in an order in which the descendants of
// an object follow it directly, changes. Objects under one parent stand in the order in which they came there. The
// order is made again, in one linear pass, when it is asked for after objects came, went or moved; so any number of such
// edits in a row costs one pass, and each by itself amortised logarithmic time at most (deleting: for each object of the
// subtree constant time). Nothing here recurses.
//
// The ids of deleted objects are used again, the one that was deleted first comes first, and before fresh ones.
//
// Functions that take an object or a component abort where the id names none. References to local transformations are
// valid until the next addObject() or reallocateCapacity(), lists of components until a component is added or deleted.
// Not for use from several threads, even where functions are const. Stays where it was made: managers point to it.
class CORRADE_VISIBILITY_EXPORT DynamicSceneGraph {
public:
    // Capacities: objects with the root (at most 65,535), components of all types, managers (at most 255). The first
    // two are no limits.
    explicit DynamicSceneGraph(std::size_t objects, std::size_t components, std::size_t managers);
    DynamicSceneGraph(const DynamicSceneGraph&) = delete;
    DynamicSceneGraph& operator=(const DynamicSceneGraph&) = delete;
    ~DynamicSceneGraph();

    // Objects, with the root.
    std::size_t size() const { return _size; }
    // Objects, with the root, and components of all types that were reserved or are in use.
    std::size_t capacity() const { return _capacity; }
    std::size_t unusedCapacity() const { return _capacity - _size; }
    std::size_t componentsSize() const { return _componentsSize; }
    std::size_t componentsCapacity() const { return _componentsCapacity; }
    // Raises the capacities to these. Prints one line and changes nothing, false, for more than 65,535 objects.
    bool reallocateCapacity(std::size_t objects, std::size_t components);

    // Whether the id names an object; the root is one.
    bool isValid(Id object) const { return _valid.isSet(object); }
    Id parent(Id object) const { return checked(object).parent; }

    // A new last child of the parent, without rotation and translation, of scaling 1, dirty. Prints one line and
    // returns 0, where the scene holds 65,534 objects already.
    Id addObject(Id parent);
    // Deletes the object, its descendants, and the components of all of them. Expects not the root.
    void deleteObjects(Id object);
    // Makes the object, with its descendants, the last child of another parent; where that is its parent already,
    // nothing moves. The local transformation stays, the object becomes dirty. Prints one line and changes nothing,
    // false, where the new parent is the object or a descendant of it. Expects not the root.
    bool reparent(Id object, Id parent);

    // The object after this one in a walk through the subtree of an object, ancestors first and children in their order;
    // 65,535 after the last one. Needs no index order. Amortised constant time.
    Id nextInTree(Id object, Id top) const;

    // The children of an object in their order, 65,535 beyond the last and the first one.
    Id firstChild(Id object) const { return checked(object), _siblings[object].firstChild; }
    Id nextSibling(Id object) const { return checked(object), _siblings[object].next; }
    Id previousSibling(Id object) const { return checked(object), _siblings[object].previous; }
    // Whether an object is another one or a descendant of it. Amortised logarithmic time.
    bool isInSubtree(Id object, Id top) const;

    // Index order.
    Id toId(std::size_t index) const;
    Id toIndex(Id object) const { return objectData(object).index; }
    ObjectData objectData(Id object) const;

    // A unit dual quaternion; setDirty() after a change. One that is not a unit one counts as if it were normalised,
    // one without direction (zero, not a number) as identity.
    Magnum::DualQuaternion& localTransformation(Id object) { return local(object).transformation; }
    const Magnum::DualQuaternion& localTransformation(Id object) const { return local(object).transformation; }
    Magnum::Vector3& localScaling(Id object) { return local(object).scaling; }
    const Magnum::Vector3& localScaling(Id object) const { return local(object).scaling; }
    // Scaling, then rotation and translation.
    Magnum::Matrix4 localTransformationAsMatrix(Id object) const;

    // Says that the local transformation changed: the absolute ones of the object and of all its descendants are
    // computed again, once, when they are next needed. Constant time.
    void setDirty(Id object);

    // Computes the absolute transformations of the dirty objects and their descendants, in index order; returns how
    // many. The rotation is the product of the local ones, normalised; the scaling is the product; the position is the
    // local one, scaled and rotated by the parent's absolute transformation, from the parent's position. A position or a
    // scaling that comes out as no finite number is the parent's.
    std::size_t computeAbsoluteTransformations();
    // The same if the object or one of its ancestors is dirty; may be done, too, where they are not.
    void computeAbsoluteTransformation(Id object);

    // As of the last computation. The dual quaternion is always a unit one; the matrix has the absolute scaling.
    Magnum::DualQuaternion absoluteTransformation(Id object) const;
    Magnum::Matrix4 absoluteTransformationAsMatrix(Id object) const;
    Magnum::Vector3 absoluteScaling(Id object) const { return absolute(object).scaling; }
    // As of now: computed first where something changed.
    Magnum::DualQuaternion absoluteTransformationSafe(Id object);
    Magnum::Matrix4 absoluteTransformationAsMatrixSafe(Id object);

    // Hides the object, but not its descendants: its components of the managers that hide with it count as inactive,
    // whatever else is said of them, and so do those that it gets later. Linear in its components.
    void setHidden(Id object, bool hidden);
    bool isHidden(Id object) const { return checked(object), _hidden.isSet(object); }

    // The objects, by id, that came, went or got another parent since the last reset, which costs a step for every 64 ids
    // where there are any. For one reader; to be read only.
    bool isAnyRearranged() const { return _isAnyRearranged; }
    BitSetView rearranged() const { return _rearranged; }
    void resetRearranged();

    // The objects, by id, whose absolute transformation was computed since the last reset. To be read only.
    BitSetView changed() const { return _changed; }
    void resetChanged() { _changed.clear(); }

    // Registers the manager under an index below the capacity that is still free, with its components' type name. The
    // manager is registered nowhere else, is empty, and is not used after either of the two is gone.
    void setComponentManager(std::size_t index, ComponentManager& manager);
    // 255 where no manager has this name.
    Magnum::UnsignedByte componentManagerIndex(Corrade::Containers::StringView name) const;
    // Null where none was set.
    ComponentManager* componentManager(std::size_t index) const;

    // The object's components and, parallel to them, the indices of their managers. In the order in which they were
    // added, but that the last one takes the place of one that is deleted.
    Corrade::Containers::ArrayView<const Id> components(Id object) const;
    Corrade::Containers::ArrayView<const Magnum::UnsignedByte> componentTypes(Id object) const;
    // Constant time. Expects that the component belongs to the object.
    void deleteComponent(Id object, std::size_t managerIndex, Id component);

private:
    friend ComponentManager;

    struct Siblings {
        Id firstChild, lastChild, previous, next;
    };
    struct Local {
        Magnum::DualQuaternion transformation;
        Magnum::Vector3 scaling{1.0f};
    };
    struct Absolute {
        Magnum::Quaternion rotation;
        Magnum::Vector3 translation;
        Magnum::Vector3 scaling{1.0f};
    };
    // A piece of the pool of components, of 2^sizeClass entries.
    struct ComponentList {
        Magnum::UnsignedInt offset = 0;
        Magnum::UnsignedInt count = 0;
        Magnum::Byte sizeClass = -1;
    };
    static constexpr std::size_t SizeClassCount = 25;

    const ObjectData& checked(Id object) const {
        CORRADE_ASSERT(isValid(object), "DynamicSceneGraph: there is no object" << object, _objects[object]);
        return _objects[object];
    }
    Local& local(Id object) { return checked(object), _local[object]; }
    const Local& local(Id object) const { return checked(object), _local[object]; }
    const Absolute& absolute(Id object) const { return checked(object), _absolute[object]; }

    void grow(std::size_t objects);
    Id takeId();
    void appendChild(Id parent, Id object);
    void unlinkChild(Id object);
    void forgetObject(Id object);
    void setRearranged(Id object);
    void order() const;
    bool isSurelyClean(Id object) const;
    void compute(std::size_t begin, std::size_t end);

    // Adds an entry to the object's list; returns its position.
    Magnum::UnsignedInt attachComponent(Id object, Magnum::UnsignedByte managerIndex, Id component);
    void growList(ComponentList& list);
    void freeList(ComponentList& list);

    std::size_t _size = 0;
    std::size_t _capacity = 0;

    // By id. The memory behind the capacity grows by factors.
    Corrade::Containers::Array<ObjectData> _objects;
    Corrade::Containers::Array<Siblings> _siblings;
    Corrade::Containers::Array<Local> _local;
    Corrade::Containers::Array<Absolute> _absolute;
    Corrade::Containers::Array<ComponentList> _lists;
    Corrade::Containers::Pointer<AncestryForest<Id>> _ancestry;
    Corrade::Containers::Array<Magnum::UnsignedLong> _validWords, _dirtyWords, _changedWords, _hiddenWords,
        _rearrangedWords;
    BitSetView _valid, _dirty, _changed, _hidden, _rearranged;
    bool _isAnyDirty = false;
    bool _isAnyRearranged = false;
    std::size_t _idEnd = 0;
    // Free ids, each naming the next as its next sibling.
    Id _firstFree = NoObject;
    Id _lastFree = NoObject;

    // By index.
    Corrade::Containers::Array<Id> _order;
    Corrade::Containers::Array<Magnum::UnsignedLong> _dirtyIndexWords;
    bool _isOrderPending = false;

    Corrade::Containers::Array<ComponentManager*> _managers;
    Corrade::Containers::Array<Id> _components;
    Corrade::Containers::Array<Magnum::UnsignedByte> _componentTypes;
    Corrade::Containers::Array<Magnum::UnsignedInt> _freeLists[SizeClassCount];
    std::size_t _componentsSize = 0;
    std::size_t _componentsCapacity = 0;
};

}
