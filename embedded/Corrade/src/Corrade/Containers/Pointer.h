#pragma once

/** Unique ownership of a single object. */

#include "Corrade/Containers/Checks.h"
#include "Corrade/Containers/Containers.h"
#include "Corrade/Tags.h"
#include "Corrade/Utility/Move.h"

namespace Corrade::Containers {

/** Owns an object that came from `new`, or nothing; move-only. Access to nothing is caught in debug builds. */
template<class T> class Pointer {
public:
    using Type = T;

    /*implicit*/ Pointer(std::nullptr_t = nullptr) noexcept: _pointer{} {}
    /** Takes ownership. */
    explicit Pointer(T* pointer) noexcept: _pointer{pointer} {}
    /** Constructs the object from the arguments. */
    template<class... Args>
    explicit Pointer(InPlaceInitT, Args&&... args): _pointer{new T{Utility::forward<Args>(args)...}} {}
    /** From one to a derived type; the base has to have a virtual destructor, or none that does anything. */
    template<class U, class = std::enable_if_t<std::is_base_of<T, U>::value>>
    /*implicit*/ Pointer(Pointer<U>&& other) noexcept: _pointer{other.release()} {
        static_assert(std::has_virtual_destructor<T>::value || std::is_trivially_destructible<T>::value,
            "the base type needs a virtual destructor");
    }
    Pointer(Pointer<T>&& other) noexcept: _pointer{other.release()} {}
    Pointer<T>& operator=(Pointer<T>&& other) noexcept {
        Utility::swap(_pointer, other._pointer);
        return *this;
    }
    ~Pointer() { delete _pointer; }

    bool operator==(std::nullptr_t) const { return !_pointer; }
    bool operator!=(std::nullptr_t) const { return _pointer; }
    explicit operator bool() const { return _pointer; }

    T* get() { return _pointer; }
    const T* get() const { return _pointer; }
    T* operator->() { return checked(); }
    const T* operator->() const { return checked(); }
    T& operator*() { return *checked(); }
    const T& operator*() const { return *checked(); }

    /** Deletes the object and takes ownership of another. */
    void reset(T* pointer = nullptr) {
        delete _pointer;
        _pointer = pointer;
    }
    /** Deletes the object and constructs another, of a derived type if `U` is given. */
    template<class... Args> T& emplace(Args&&... args) { return emplace<T>(Utility::forward<Args>(args)...); }
    template<class U, class... Args> U& emplace(Args&&... args) {
        U* const pointer = new U{Utility::forward<Args>(args)...};
        reset(pointer);
        return *pointer;
    }
    /** Gives up ownership. */
    T* release() {
        T* const pointer = _pointer;
        _pointer = nullptr;
        return pointer;
    }

private:
    T* checked() const {
        _CORRADE_CONTAINERS_CHECK(_pointer, "Pointer: the pointer is null");
        return _pointer;
    }

    T* _pointer;
};

template<class T> bool operator==(std::nullptr_t, const Pointer<T>& pointer) { return pointer == nullptr; }
template<class T> bool operator!=(std::nullptr_t, const Pointer<T>& pointer) { return pointer != nullptr; }

/** Takes ownership. */
template<class T> Pointer<T> pointer(T* pointer) { return Pointer<T>{pointer}; }
/** Constructs the object from the arguments. */
template<class T, class... Args> Pointer<T> pointer(Args&&... args) {
    return Pointer<T>{InPlaceInit, Utility::forward<Args>(args)...};
}

/** Passes ownership on as a base or, unchecked, as a derived type. */
template<class U, class T> Pointer<U> pointerCast(Pointer<T>&& pointer) {
    return Pointer<U>{static_cast<U*>(pointer.release())};
}

}
