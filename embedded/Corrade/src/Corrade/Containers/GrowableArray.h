#pragma once

/**
Functions that make an Array grow and shrink.

An array becomes growable on the first operation that has to allocate: its memory then comes from malloc(), starts with
the capacity in front of the first item, and is recognised by its deleter. Taking over memory of another origin costs one
move of the items. Trivially copyable types are moved by realloc() and memmove(). Appending takes amortised constant
time: the allocation doubles up to 64 bytes and then grows by a half. Views and pointers into the array are
invalid after everything that allocates.
*/

#include "Corrade/Containers/Array.h"

#include <cstdlib>

namespace Corrade::Containers {

namespace Implementation {

/** Gives the functions below the members of an array. */
struct ArrayAccess {
    template<class T> static T*& data(Array<T>& array) { return array._data; }
    template<class T> static std::size_t& size(Array<T>& array) { return array._size; }
    template<class T> static void (*&deleter(Array<T>& array))(T*, std::size_t) { return array._deleter; }
};

/** Memory of growable arrays of one type. */
template<class T> struct Growable {
    static_assert(alignof(T) <= alignof(std::max_align_t), "over-aligned types can't be in a growable array");

    /** Bytes in front of the items, with the capacity at their beginning. */
    static constexpr std::size_t Header = alignof(T) < sizeof(std::size_t) ? sizeof(std::size_t) : alignof(T);

    static void* base(T* data) { return reinterpret_cast<char*>(data) - Header; }
    static std::size_t& capacity(T* data) { return *static_cast<std::size_t*>(base(data)); }

    /** `base` may be null for a new allocation. */
    static T* reallocate(void* base, std::size_t capacity) {
        const std::size_t bytes = Header + capacity * sizeof(T);
        base = std::realloc(base, bytes);
        _CORRADE_CONTAINERS_ASSERT(base, "growable array: can't allocate %zu bytes", bytes);
        *static_cast<std::size_t*>(base) = capacity;
        return reinterpret_cast<T*>(static_cast<char*>(base) + Header);
    }

    static void deleter(T* data, std::size_t size) {
        destroy(data, size);
        std::free(base(data));
    }

    /** Capacity after growing; `current` is 0 if the array isn't growable yet. */
    static std::size_t grown(std::size_t current, std::size_t desired) {
        const std::size_t bytes = current ? Header + current * sizeof(T) : 0;
        const std::size_t grownBytes = bytes < 16 ? 16 : bytes < 64 ? 2 * bytes : bytes + bytes / 2;
        const std::size_t capacity = (grownBytes - Header) / sizeof(T);
        return capacity < desired ? desired : capacity;
    }
};

/** Moves items into raw memory and ends their life where they were; the ranges may overlap. */
template<class T> void relocate(T* from, T* to, std::size_t count) {
    if constexpr(std::is_trivially_copyable<T>::value) {
        if(count) std::memmove(static_cast<void*>(to), from, count * sizeof(T));
    } else if(to < from)
        for(std::size_t i = 0; i != count; ++i) {
            construct(to + i, Utility::move(from[i]));
            from[i].~T();
        }
    else
        for(std::size_t i = count; i != 0; --i) {
            construct(to + i - 1, Utility::move(from[i - 1]));
            from[i - 1].~T();
        }
}

/** Moves items into raw memory; they stay constructed where they were, for their owner to destroy. */
template<class T> void moveConstruct(T* from, T* to, std::size_t count) {
    if constexpr(std::is_trivially_copyable<T>::value)
        copyConstruct(from, to, count);
    else
        for(std::size_t i = 0; i != count; ++i) construct(to + i, Utility::move(from[i]));
}

}

/** Whether the memory belongs to the functions here. */
template<class T> bool arrayIsGrowable(Array<T>& array) {
    return Implementation::ArrayAccess::deleter(array) == Implementation::Growable<T>::deleter;
}

/** How many items fit before the next allocation; the size if the array isn't growable. */
template<class T> std::size_t arrayCapacity(Array<T>& array) {
    return arrayIsGrowable(array) ? Implementation::Growable<T>::capacity(array.data()) : array.size();
}

namespace Implementation {

/**
Makes the array growable with exactly the given capacity, which is at least its size.
*/
template<class T> void setCapacity(Array<T>& array, std::size_t capacity) {
    T*& data = ArrayAccess::data(array);
    if(arrayIsGrowable(array) && std::is_trivially_copyable<T>::value) {
        data = Growable<T>::reallocate(Growable<T>::base(data), capacity);
        return;
    }
    T* const replacement = Growable<T>::reallocate(nullptr, capacity);
    const std::size_t size = array.size();
    if(arrayIsGrowable(array)) {
        relocate(data, replacement, size);
        std::free(Growable<T>::base(data));
        data = replacement;
        return;
    }
    moveConstruct(data, replacement, size);
    array = Array<T>{replacement, size, Growable<T>::deleter};
}

/** Room for `count` more items, growing as when appending. */
template<class T> void reserveMore(Array<T>& array, std::size_t count) {
    const std::size_t current = arrayIsGrowable(array) ? Growable<T>::capacity(array.data()) : 0;
    const std::size_t desired = array.size() + count;
    if(count && current < desired) setCapacity(array, Growable<T>::grown(current, desired));
}

/** Enlarges the array by a gap of raw memory and returns its beginning. */
template<class T> T* makeGap(Array<T>& array, std::size_t index, std::size_t count) {
    reserveMore(array, count);
    T* const gap = array.data() + index;
    if(count) relocate(gap, gap + count, array.size() - index);
    ArrayAccess::size(array) += count;
    return gap;
}

/** Whether the item is in the array, in which case growing would pull it away. */
template<class T> bool isWithin(const Array<T>& array, const T* item) {
    return item >= array.data() && item < array.data() + array.size();
}

template<class T> void checkNotWithin(const Array<T>& array, const T& value, const char* function, const char* verb) {
    _CORRADE_CONTAINERS_CHECK(!isWithin(array, &value),
        "%s(): use the list variant to %s values from within the array itself", function, verb);
}

/** Room at the end for one item. Kept small, as everything is decided here when appending one by one. */
template<class T> T* appendOne(Array<T>& array) {
    if(!arrayIsGrowable(array) || array.size() == Growable<T>::capacity(array.data())) reserveMore(array, 1);
    return array.data() + ArrayAccess::size(array)++;
}

/** Value-constructs, or leaves alone what the tag says. */
template<class T> void initialize(ValueInitT, T* data, std::size_t count) {
    if constexpr(std::is_trivially_default_constructible<T>::value && std::is_trivially_copyable<T>::value) {
        if(count) std::memset(static_cast<void*>(data), 0, count * sizeof(T));
    } else
        for(std::size_t i = 0; i != count; ++i) construct(data + i);
}
template<class T> void initialize(NoInitT, T*, std::size_t) {}

/** For arrays of other owners: a growable one of exactly the items that remain, in their order. */
template<class T> void removeByCopy(Array<T>& array, std::size_t index, std::size_t count) {
    const std::size_t size = array.size() - count;
    T* const replacement = Growable<T>::reallocate(nullptr, size);
    moveConstruct(array.data(), replacement, index);
    moveConstruct(array.data() + index + count, replacement + index, size - index);
    array = Array<T>{replacement, size, Growable<T>::deleter};
}

/** Sets the size; returns the first of the new items, which the caller constructs up to the end. */
template<class T> T* resize(Array<T>& array, std::size_t size) {
    const std::size_t previous = array.size();
    if(size < previous) {
        if(!arrayIsGrowable(array)) {
            removeByCopy(array, size, previous - size);
            return array.end();
        }
        destroy(array.data() + size, previous - size);
    } else if(size > previous && (!arrayIsGrowable(array) || Growable<T>::capacity(array.data()) < size))
        setCapacity(array, size);
    ArrayAccess::size(array) = size;
    return array.data() + (size < previous ? size : previous);
}

}

/** Capacity of at least the given one, by an allocation of exactly that; returns what there is then. */
template<class T> std::size_t arrayReserve(Array<T>& array, std::size_t capacity) {
    const std::size_t current = arrayCapacity(array);
    if(current >= capacity) return current;
    Implementation::setCapacity(array, capacity);
    return capacity;
}

/**
@{
Changes the size. More items than fit cause an allocation of exactly the new size; with fewer the capacity stays. New
items are zero or default-constructed, uninitialised, or constructed from the arguments.
*/
template<class T> void arrayResize(Array<T>& array, ValueInitT, std::size_t size) {
    T* const first = Implementation::resize(array, size);
    Implementation::initialize(ValueInit, first, array.end() - first);
}
template<class T> void arrayResize(Array<T>& array, NoInitT, std::size_t size) { Implementation::resize(array, size); }
template<class T, class... Args> void arrayResize(Array<T>& array, DirectInitT, std::size_t size, const Args&... args) {
    for(T* item = Implementation::resize(array, size); item != array.end(); ++item)
        Implementation::construct(item, args...);
}
template<class T> void arrayResize(Array<T>& array, std::size_t size) { arrayResize(array, ValueInit, size); }
template<class T> void arrayResize(Array<T>& array, std::size_t size, const std::common_type_t<T>& value) {
    Implementation::checkNotWithin<T>(array, value, "arrayResize", "append");
    arrayResize(array, DirectInit, size, value);
}
/** @} */

/** @{ One more item at the end; returns a reference to it. The value must not be in the array. */
template<class T> T& arrayAppend(Array<T>& array, const std::common_type_t<T>& value) {
    Implementation::checkNotWithin<T>(array, value, "arrayAppend", "append");
    T* const item = Implementation::appendOne(array);
    Implementation::construct(item, value);
    return *item;
}
template<class T> T& arrayAppend(Array<T>& array, std::common_type_t<T>&& value) {
    Implementation::checkNotWithin<T>(array, value, "arrayAppend", "append");
    T* const item = Implementation::appendOne(array);
    Implementation::construct(item, Utility::move(value));
    return *item;
}
template<class T, class... Args> T& arrayAppend(Array<T>& array, InPlaceInitT, Args&&... args) {
    T* const item = Implementation::appendOne(array);
    Implementation::construct(item, Utility::forward<Args>(args)...);
    return *item;
}
/** @} */

/** @{ Several items at the given place; the list may be a part of the array that doesn't span the place. */
template<class T>
ArrayView<T> arrayInsert(Array<T>& array, std::size_t index, ArrayView<const std::common_type_t<T>> values) {
    const std::size_t count = values.size();
    _CORRADE_CONTAINERS_CHECK(index <= array.size(),
        "arrayInsert(): can't insert at index %zu into an array of size %zu", index, array.size());
    const bool within = count && Implementation::isWithin<T>(array, values.data());
    const std::size_t offset = within ? values.data() - array.data() : 0;
    _CORRADE_CONTAINERS_CHECK(!within || offset >= index || offset + count <= index,
        "arrayInsert(): attempting to insert a slice [%zu:%zu] into itself at index %zu", offset, offset + count,
        index);
    T* const gap = Implementation::makeGap(array, index, count);
    const T* const from = within ? array.data() + offset + (offset >= index ? count : 0) : values.data();
    Implementation::copyConstruct(from, gap, count);
    return {gap, count};
}
template<class T>
ArrayView<T> arrayInsert(Array<T>& array, std::size_t index, std::initializer_list<std::common_type_t<T>> values) {
    return arrayInsert(array, index, arrayView(values));
}
template<class T, class Init,
    class = std::enable_if_t<std::is_same<Init, ValueInitT>::value || std::is_same<Init, NoInitT>::value>>
ArrayView<T> arrayInsert(Array<T>& array, std::size_t index, Init init, std::size_t count) {
    _CORRADE_CONTAINERS_CHECK(index <= array.size(),
        "arrayInsert(): can't insert at index %zu into an array of size %zu", index, array.size());
    T* const gap = Implementation::makeGap(array, index, count);
    Implementation::initialize(init, gap, count);
    return {gap, count};
}
/** @} */

/** @{ One item at the given place. The value must not be in the array. */
template<class T, class... Args> T& arrayInsert(Array<T>& array, std::size_t index, InPlaceInitT, Args&&... args) {
    _CORRADE_CONTAINERS_CHECK(index <= array.size(),
        "arrayInsert(): can't insert at index %zu into an array of size %zu", index, array.size());
    T* const gap = Implementation::makeGap(array, index, 1);
    Implementation::construct(gap, Utility::forward<Args>(args)...);
    return *gap;
}
template<class T> T& arrayInsert(Array<T>& array, std::size_t index, const std::common_type_t<T>& value) {
    Implementation::checkNotWithin<T>(array, value, "arrayInsert", "insert");
    return arrayInsert(array, index, InPlaceInit, value);
}
template<class T> T& arrayInsert(Array<T>& array, std::size_t index, std::common_type_t<T>&& value) {
    Implementation::checkNotWithin<T>(array, value, "arrayInsert", "insert");
    return arrayInsert(array, index, InPlaceInit, Utility::move(value));
}
/** @} */

/** @{ Several items at the end; the list may be a part of the array. */
template<class T> ArrayView<T> arrayAppend(Array<T>& array, ArrayView<const std::common_type_t<T>> values) {
    return arrayInsert(array, array.size(), values);
}
template<class T> ArrayView<T> arrayAppend(Array<T>& array, std::initializer_list<std::common_type_t<T>> values) {
    return arrayInsert(array, array.size(), arrayView(values));
}
template<class T> ArrayView<T> arrayAppend(Array<T>& array, ValueInitT, std::size_t count) {
    return arrayInsert(array, array.size(), ValueInit, count);
}
template<class T> ArrayView<T> arrayAppend(Array<T>& array, NoInitT, std::size_t count) {
    return arrayInsert(array, array.size(), NoInit, count);
}
/** @} */

/** Removes items; the ones behind move up. */
template<class T> void arrayRemove(Array<T>& array, std::size_t index, std::size_t count = 1) {
    const std::size_t size = array.size();
    _CORRADE_CONTAINERS_CHECK(index + count <= size,
        "arrayRemove(): can't remove %zu elements at index %zu from an array of size %zu", count, index, size);
    if(!count) return;
    if(!arrayIsGrowable(array)) return Implementation::removeByCopy(array, index, count);
    T* const gap = array.data() + index;
    Implementation::destroy(gap, count);
    Implementation::relocate(gap + count, gap, size - index - count);
    Implementation::ArrayAccess::size(array) -= count;
}

/** Removes items; the last ones move into the gap, so that the time doesn't depend on the size. */
template<class T> void arrayRemoveUnordered(Array<T>& array, std::size_t index, std::size_t count = 1) {
    const std::size_t size = array.size();
    _CORRADE_CONTAINERS_CHECK(index + count <= size,
        "arrayRemoveUnordered(): can't remove %zu elements at index %zu from an array of size %zu", count, index, size);
    if(!count) return;
    if(!arrayIsGrowable(array)) return Implementation::removeByCopy(array, index, count);
    T* const gap = array.data() + index;
    const std::size_t behind = size - index - count;
    const std::size_t moved = behind < count ? behind : count;
    Implementation::destroy(gap, count);
    Implementation::relocate(array.data() + size - moved, gap, moved);
    Implementation::ArrayAccess::size(array) -= count;
}

/** Removes items at the end. */
template<class T> void arrayRemoveSuffix(Array<T>& array, std::size_t count = 1) {
    _CORRADE_CONTAINERS_CHECK(count <= array.size(),
        "arrayRemoveSuffix(): can't remove %zu elements from an array of size %zu", count, array.size());
    Implementation::resize(array, array.size() - count);
}

/** Removes everything; a growable array keeps its capacity. */
template<class T> void arrayClear(Array<T>& array) {
    if(arrayIsGrowable(array))
        Implementation::resize(array, 0);
    else
        array = Array<T>{};
}

/** Turns a growable array into one of fixed size without spare memory. */
template<class T> void arrayShrink(Array<T>& array) {
    if(!arrayIsGrowable(array)) return;
    Array<T> shrunk{NoInit, array.size()};
    Implementation::moveConstruct(array.data(), shrunk.data(), array.size());
    array = Utility::move(shrunk);
}

}
