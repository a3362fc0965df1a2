#pragma once

/** A value that may be missing. */

#include "Corrade/Containers/Checks.h"
#include "Corrade/Containers/Containers.h"
#include "Corrade/Tags.h"
#include "Corrade/Utility/Move.h"

#include <new>

namespace Corrade::Containers {

/** Tag: no value. */
struct NullOptT {
    struct Init {};
    constexpr explicit NullOptT(Init) {}
};
inline constexpr NullOptT NullOpt{NullOptT::Init{}};

/** Holds a `T` in place or nothing. Access to nothing is caught in debug builds. */
template<class T> class Optional {
public:
    using Type = T;

    /*implicit*/ Optional(NullOptT = NullOpt) noexcept: _set{false} {}
    /*implicit*/ Optional(const T& value) noexcept(std::is_nothrow_copy_constructible<T>::value):
        _value(value), _set{true} {}
    /*implicit*/ Optional(T&& value) noexcept(std::is_nothrow_move_constructible<T>::value):
        _value(Utility::move(value)), _set{true} {}
    template<class... Args>
    explicit Optional(InPlaceInitT, Args&&... args): _value{Utility::forward<Args>(args)...}, _set{true} {}

    Optional(const Optional<T>& other) noexcept(std::is_nothrow_copy_constructible<T>::value): _set{other._set} {
        if(_set) new(&_value) T(other._value);
    }
    Optional(Optional<T>&& other) noexcept(std::is_nothrow_move_constructible<T>::value): _set{other._set} {
        if(_set) new(&_value) T(Utility::move(other._value));
    }
    Optional<T>& operator=(const Optional<T>& other) {
        if(_set && other._set)
            _value = other._value;
        else if(other._set)
            emplace(other._value);
        else
            reset();
        return *this;
    }
    /** What is moved from stays set. */
    Optional<T>& operator=(Optional<T>&& other) noexcept(
        std::is_nothrow_move_constructible<T>::value&& std::is_nothrow_move_assignable<T>::value) {
        if(_set && other._set)
            _value = Utility::move(other._value);
        else if(other._set)
            emplace(Utility::move(other._value));
        else
            reset();
        return *this;
    }
    Optional<T>& operator=(NullOptT) noexcept {
        reset();
        return *this;
    }
    ~Optional() { reset(); }

    explicit operator bool() const { return _set; }

    bool operator==(const Optional<T>& other) const { return _set == other._set && (!_set || _value == other._value); }
    bool operator!=(const Optional<T>& other) const { return !(*this == other); }
    bool operator==(NullOptT) const { return !_set; }
    bool operator!=(NullOptT) const { return _set; }
    bool operator==(const T& value) const { return _set && _value == value; }
    bool operator!=(const T& value) const { return !(*this == value); }

    T* operator->() { return &checked(); }
    const T* operator->() const { return &checked(); }
    T& operator*() & { return checked(); }
    T&& operator*() && { return Utility::move(checked()); }
    const T& operator*() const& { return checked(); }

    /** Replaces what was there. */
    template<class... Args> T& emplace(Args&&... args) {
        reset();
        new(&_value) T{Utility::forward<Args>(args)...};
        _set = true;
        return _value;
    }

private:
    void reset() {
        if(_set) _value.~T();
        _set = false;
    }

    T& checked() {
        _CORRADE_CONTAINERS_CHECK(_set, "Optional: the optional is empty");
        return _value;
    }
    const T& checked() const { return const_cast<Optional<T>&>(*this).checked(); }

    union {
        T _value;
    };
    bool _set;
};

template<class T> bool operator==(NullOptT, const Optional<T>& optional) { return !optional; }
template<class T> bool operator!=(NullOptT, const Optional<T>& optional) { return bool(optional); }

template<class T> Optional<std::decay_t<T>> optional(T&& value) {
    return Optional<std::decay_t<T>>{Utility::forward<T>(value)};
}
/** Constructs the value from the arguments. */
template<class T, class... Args> Optional<T> optional(Args&&... args) {
    return Optional<T>{InPlaceInit, Utility::forward<Args>(args)...};
}

}
