#pragma once

/** A reference that can be stored and re-bound. */

#include "Corrade/Containers/Containers.h"

#include <utility>

namespace Corrade::Containers {

/** Never null. Doesn't bind to temporaries. */
template<class T> class Reference {
public:
    using Type = T;

    constexpr /*implicit*/ Reference(T& reference) noexcept: _pointer{&reference} {}
    Reference(T&&) = delete;
    /** From one to a derived or to a mutable type. */
    template<class U, class = std::enable_if_t<!std::is_same<U, T>::value && std::is_convertible<U*, T*>::value>>
    constexpr /*implicit*/ Reference(Reference<U> other) noexcept: _pointer{&other.get()} {}

    constexpr /*implicit*/ operator T&() const { return *_pointer; }
    constexpr T& get() const { return *_pointer; }
    constexpr T* operator->() const { return _pointer; }
    constexpr T& operator*() const { return *_pointer; }

private:
    T* _pointer;
};

}
