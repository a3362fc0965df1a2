#pragma once

#include <type_traits>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/Pair.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class DynamicSceneGraph;

// The components of one type in one scene: one array a field. What a manager of a type adds is its fields.
//
// A component is known by its id, which it keeps for life. Its fields stand in a slot, which changes: the slots are
// dense, those of active components that are not hidden come first, and among these the components of one group are contiguous. (Most
// managers have one group.) Where the slots are needed, what changed since then is put in its place: k changes among g
// groups cost k g moves of one component, and never more than one pass over all components.
//
// The ids of deleted components are used again, the one that was deleted first comes first, and before fresh ones.
//
// Functions that take a component abort on an id that names none. References to a field are valid until the next call
// that adds a component or asks for slots. Not for use from several threads, even where functions are const.
class CORRADE_VISIBILITY_EXPORT ComponentManager {
public:
    ComponentManager(const ComponentManager&) = delete;
    ComponentManager& operator=(const ComponentManager&) = delete;

    // What the type of component is called in a document.
    Corrade::Containers::StringView name() const { return _name; }

    // Components, active or not.
    std::size_t size() const { return _size; }
    // Those that are active and not hidden.
    std::size_t numActiveComponents() const { return _activeCount; }
    // Components that were reserved or are in use.
    std::size_t capacity() const { return _capacity; }

    // Raises the capacity to this, at most 65,535. The memory behind it grows by factors.
    void allocate(std::size_t capacity);

    // An inactive component with the fields' initial values, at the end of the object's component list. Amortised
    // constant time. Prints one line and returns 65,535 where there are 65,535 components already. Expects that the
    // manager belongs to a scene graph and that the object is valid there.
    //
    // A component is deleted by the scene graph.
    Id addComponent(Id object);

    // Whether the id names a component.
    bool isValid(Id component) const { return component < _records.size() && _records[component].isAlive; }

    // What components of every type have.
    struct Header {
        Id object;
        bool isActive;
    };
    Header header(Id component) const { return {object(component), isActive(component)}; }

    // The object that the component belongs to.
    Id object(Id component) const { return _objects[slot(component)]; }

    bool isActive(Id component) const { return record(component).isActive; }
    void setActive(Id component, bool active);
    void activate(Id component) { setActive(component, true); }

    // Whether components of this type go away with a hidden object (DynamicSceneGraph::setHidden()): those that are seen do.
    bool hidesWithObject() const { return _hidesWithObject; }

    // The component's slot. Valid until a component is added, deleted, activated, deactivated or regrouped.
    Id toIndex(Id component) const;

    // By slot: the components, and the objects that they belong to. The first numActiveComponents() are active and not
    // hidden. Valid as
    // long as slots are.
    Corrade::Containers::ArrayView<const Id> components() const { return settled(_ids); }
    Corrade::Containers::ArrayView<const Id> objects() const { return settled(_objects); }

protected:
    // Memory of one field, type-erased; registers itself with its manager.
    class CORRADE_VISIBILITY_EXPORT FieldBase {
    public:
        FieldBase(const FieldBase&) = delete;
        FieldBase& operator=(const FieldBase&) = delete;

    protected:
        explicit FieldBase(ComponentManager& manager, std::size_t stride, const void* initial);

        Corrade::Containers::Array<char> _data;

    private:
        friend ComponentManager;

        const std::size_t _stride;
        const void* const _initial;
        FieldBase* const _next;
    };

    // One value a component, by slot.
    template<class T> class Field: public FieldBase {
        static_assert(
            std::is_trivially_copyable<T>::value && alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__, "moved as bytes");

    public:
        explicit Field(ComponentManager& manager, const T& initial = T{}):
            FieldBase{manager, sizeof(T), &_initial}, _initial(initial) {}

        T& operator[](std::size_t slot) { return data()[slot]; }
        const T& operator[](std::size_t slot) const { return const_cast<Field<T>&>(*this).data()[slot]; }

    private:
        friend ComponentManager;

        T* data() { return reinterpret_cast<T*>(_data.data()); }

        const T _initial;
    };

    // Lets go of what a manager keeps of a component besides its fields; called when the component is deleted.
    using Forget = void (*)(ComponentManager& manager, Id component);

    explicit ComponentManager(
        Corrade::Containers::StringView name, std::size_t capacity, std::size_t groups = 1, Forget forget = nullptr);
    ~ComponentManager();

    // For managers of what is seen; before the first component.
    void hideWithObjects() { _hidesWithObject = true; }

    // The component's slot as it is, without putting anything in its place. For access to fields.
    std::size_t slot(Id component) const { return record(component).slot; }

    // The whole field by slot, put in order.
    template<class T> Corrade::Containers::ArrayView<const T> settled(const Field<T>& field) const {
        settle();
        return {const_cast<Field<T>&>(field).data(), _size};
    }

    std::size_t groupCount() const { return _starts.size() - 2; }
    // A further group, empty.
    std::size_t addGroup();
    // Components start in group 0. The group matters while the component is active.
    std::size_t groupOf(Id component) const { return record(component).group; }
    void setGroupOf(Id component, std::size_t group);
    // First slot and the one past the last of the group's active components.
    Corrade::Containers::Pair<Id, Id> groupRange(std::size_t group) const;

    const DynamicSceneGraph* graph() const { return _graph; }

private:
    friend DynamicSceneGraph;

    struct Record {
        Magnum::UnsignedInt group;
        // In the object's component list; of a free id: the next free one.
        Magnum::UnsignedInt position;
        Id slot;
        bool isAlive;
        bool isActive;
        bool isHidden;
        bool isPending;

        bool isUsed() const { return isActive && !isHidden; }
    };

    const Record& record(Id component) const {
        CORRADE_ASSERT(isValid(component), "ComponentManager: there is no" << name() << "component" << component,
            _records[component]);
        return _records[component];
    }
    Record& record(Id component) {
        return const_cast<Record&>(static_cast<const ComponentManager&>(*this).record(component));
    }

    void grow(std::size_t capacity);
    void setHidden(Id component, bool hidden);
    void setUse(Id component, bool active, bool hidden);
    Id takeId();
    void freeId(Id component);
    // Deletes the component; the object's list is the caller's business.
    void remove(Id component);

    // Slots. A bucket is a group, the inactive ones after all groups, or the deleted ones after these.
    std::size_t bucketOf(const Record& record) const;
    std::size_t bucketAt(std::size_t slot) const;
    void setPending(Id component);
    void settle() const;
    void settleOneByOne();
    void settleAll();
    void swapRows(std::size_t a, std::size_t b);
    void dropDeleted();

    Corrade::Containers::String _name;
    Forget _forget;
    DynamicSceneGraph* _graph = nullptr;
    Magnum::UnsignedByte _graphIndex = 0;
    bool _hidesWithObject = false;

    std::size_t _capacity = 0;
    std::size_t _size = 0;
    std::size_t _activeCount = 0;

    // By id.
    Corrade::Containers::Array<Record> _records;
    std::size_t _idEnd = 0;
    Id _firstFree = NoComponent;
    Id _lastFree = NoComponent;

    // First slot of each bucket, and the end of the slots in use (which are more than the components while deleted ones
    // wait to be taken out).
    Corrade::Containers::Array<Magnum::UnsignedInt> _starts;
    // Components whose bucket may have changed.
    Corrade::Containers::Array<Id> _pending;

    FieldBase* _fields = nullptr;
    Field<Id> _ids;
    Field<Id> _objects;
};

}
