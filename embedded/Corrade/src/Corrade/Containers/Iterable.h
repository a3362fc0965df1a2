#pragma once

/** A list of objects, wherever they are. */

#include "Corrade/Containers/ErasedList.h"
#include "Corrade/Containers/Reference.h"

namespace Corrade::Containers {

namespace Implementation {

/** How to get from an item of a list to the `T` that it stands for. */
template<class T, class U> struct IterableItem {
    static constexpr bool IsSupported = IsArrayConvertible<U, T>::value;
    static T& get(const void* item) { return *static_cast<U*>(const_cast<void*>(item)); }
};
template<class T, class U> struct IterableItem<T, Reference<U>> {
    static constexpr bool IsSupported = std::is_convertible<U*, T*>::value;
    static T& get(const void* item) { return *static_cast<const Reference<U>*>(item); }
};
template<class T, class U> struct IterableItem<T, const Reference<U>>: IterableItem<T, Reference<U>> {};

struct IterableName {
    static constexpr const char* Value = "Iterable";
};

}

/**
View on a list of `T`, of a derived type that is equally large, or of references to any derived types: arrays, strided
views, and lists of objects in braces, `f({a, b})`. The list has to stay alive; one in braces does until the end of the full expression.
Access is checked in debug builds.
*/
template<class T> class Iterable: public Implementation::ErasedList<T&, Implementation::IterableName> {
    using Base = Implementation::ErasedList<T&, Implementation::IterableName>;

public:
    using Type = T;

    /*implicit*/ Iterable(std::nullptr_t = nullptr) noexcept {}
    /*implicit*/ Iterable(std::initializer_list<Reference<T>> list) noexcept: Iterable{arrayView(list)} {}
    template<class C, class U = typename decltype(stridedArrayView(std::declval<C&&>()))::Type,
        class = std::enable_if_t<Implementation::IterableItem<T, U>::IsSupported>>
    /*implicit*/ Iterable(C&& list) noexcept: Base{list, Implementation::IterableItem<T, U>::get} {}
};

}
