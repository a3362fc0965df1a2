#pragma once

/** Non-owning views on strings. */

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/Move.h"

#include <cstring>

namespace Corrade::Containers {

/** What is known about the memory of a string. They are stored in the top two bits of the size. */
enum class StringViewFlag : std::size_t {
    /** The memory lives as long as the program, so that a copy is never needed. */
    Global = std::size_t(1) << (sizeof(std::size_t) * 8 - 1),
    /** There is a zero byte right behind the string, so that it can be passed to C functions. */
    NullTerminated = std::size_t(1) << (sizeof(std::size_t) * 8 - 2)
};

CORRADE_ENUMSET_OPERATORS(StringViewFlags)

namespace Implementation {

/** Conversion from and to string types of others; specialised for each in a header of its own. */
template<class T, class U> struct StringViewConverter;

template<class T> struct IsContiguous<BasicStringView<T>>: std::true_type {};

/** Types that come with flags, other than plain arrays of characters. */
template<class> struct IsString: std::false_type {};
template<class T> struct IsString<BasicStringView<T>>: std::true_type {};
template<> struct IsString<String>: std::true_type {};

/** Mask of the size bits that aren't flags. */
constexpr std::size_t StringSizeMask = ~std::size_t(0) >> 2;

/** @{ Position of the match, or null. Nothing is ever found in a null string. */
CORRADE_VISIBILITY_EXPORT const char* stringFind(
    const char* data, std::size_t size, const char* substring, std::size_t substringSize);
CORRADE_VISIBILITY_EXPORT const char* stringFindLast(const char* data, std::size_t size, char character);
CORRADE_VISIBILITY_EXPORT const char* stringFindLast(
    const char* data, std::size_t size, const char* substring, std::size_t substringSize);
/** The first or last character that is in the set, or that isn't. */
CORRADE_VISIBILITY_EXPORT const char* stringFindAny(
    const char* data, std::size_t size, const char* characters, std::size_t characterCount, bool contained);
CORRADE_VISIBILITY_EXPORT const char* stringFindLastAny(
    const char* data, std::size_t size, const char* characters, std::size_t characterCount, bool contained);
/** @} */

inline const char* stringFind(const char* data, std::size_t size, char character) {
    return size ? static_cast<const char*>(std::memchr(data, character, size)) : nullptr;
}

}

/**
View on `size()` bytes of a string in any encoding. `T` is `const char` (StringView) or `char` (MutableStringView). A view
without data is Global. Slices keep Global, and NullTerminated if they include the end. Positions are checked in debug
builds.

Returns String and Array only by declaration: include Corrade/Containers/Array.h, StaticArray.h or String.h where they are used.
*/
template<class T> class CORRADE_VISIBILITY_EXPORT BasicStringView {
    /** For literal zeros to be sizes and not null pointers, functions with positions have to be templates. */
    template<class P> using IfPointer = std::enable_if_t<std::is_convertible<P, T*>::value>;

public:
    constexpr /*implicit*/ BasicStringView(std::nullptr_t = nullptr) noexcept:
        _data{}, _sizeAndFlags{std::size_t(StringViewFlag::Global)} {}
    /** With NullTerminated the byte behind the string has to be zero. */
    constexpr /*implicit*/ BasicStringView(T* data, std::size_t size, StringViewFlags flags = {}) noexcept:
        _data{data}, _sizeAndFlags{size | std::size_t(flags)} {
        _CORRADE_CONTAINERS_CHECK(!(flags & StringViewFlag::NullTerminated) || (data && !data[size]),
            "StringView: Containers::StringViewFlag::NullTerminated expects non-null null-terminated data");
    }
    /** Up to the first zero byte. */
    template<class U, class = std::enable_if_t<std::is_pointer<U>::value && std::is_convertible<U, T*>::value>>
    /*implicit*/ BasicStringView(U data, StringViewFlags extraFlags = {}) noexcept:
        _data{data}, _sizeAndFlags{(data ? std::strlen(data) : 0) | std::size_t(extraFlags) |
                         std::size_t(data ? StringViewFlag::NullTerminated : StringViewFlag::Global)} {}
    template<class U, class = std::enable_if_t<!std::is_same<U, T>::value && std::is_convertible<U*, T*>::value>>
    constexpr /*implicit*/ BasicStringView(BasicStringView<U> other) noexcept:
        _data{other._data}, _sizeAndFlags{other._sizeAndFlags} {}
    /** Of characters in an array or array view. */
    template<class C,
        class = std::enable_if_t<!Implementation::IsString<Implementation::RemoveCvRef<C>>::value &&
            Implementation::IsArrayConvertible<Implementation::ElementOf<C>, T>::value>>
    constexpr /*implicit*/ BasicStringView(C&& array, StringViewFlags flags = {}) noexcept:
        BasicStringView{array.data(), array.size(), flags} {}
    template<class C,
        class = std::enable_if_t<std::is_same<Implementation::RemoveCvRef<C>, String>::value &&
            Implementation::IsArrayConvertible<Implementation::ElementOf<C>, T>::value>,
        class = void>
    /*implicit*/ BasicStringView(C&& string) noexcept:
        BasicStringView{string.data(), string.size(), string.viewFlags()} {}
    /** @{ Conversion from and to types of others; see StringStl.h. */
    template<class U,
        class = decltype(Implementation::StringViewConverter<T, std::decay_t<U&&>>::from(std::declval<U&&>())),
        class = void, class = void>
    /*implicit*/ BasicStringView(U&& other) noexcept:
        BasicStringView{Implementation::StringViewConverter<T, std::decay_t<U&&>>::from(Utility::forward<U>(other))} {}
    template<class U,
        class = decltype(Implementation::StringViewConverter<T, U>::to(std::declval<BasicStringView<T>>()))>
    /*implicit*/ operator U() const {
        return Implementation::StringViewConverter<T, U>::to(*this);
    }
    /** @} */

    /** Whether the string isn't empty. */
    constexpr explicit operator bool() const { return size(); }

    constexpr T* data() const { return _data; }
    constexpr std::size_t size() const { return _sizeAndFlags & Implementation::StringSizeMask; }
    constexpr bool isEmpty() const { return !size(); }
    constexpr StringViewFlags flags() const { return StringViewFlags{_sizeAndFlags & ~Implementation::StringSizeMask}; }

    constexpr T* begin() const { return _data; }
    constexpr T* end() const { return _data + size(); }
    constexpr T& front() const {
        _CORRADE_CONTAINERS_CHECK(size(), "StringView::front(): view is empty");
        return _data[0];
    }
    constexpr T& back() const {
        _CORRADE_CONTAINERS_CHECK(size(), "StringView::back(): view is empty");
        return _data[size() - 1];
    }
    /** The terminating byte of a NullTerminated string can be accessed too. */
    constexpr T& operator[](std::size_t i) const {
        _CORRADE_CONTAINERS_CHECK(i < size() + isTerminated(),
            "StringView::operator[](): index %zu out of range for %zu %s", i, size(),
            isTerminated() ? "null-terminated bytes" : "bytes");
        return _data[i];
    }

    constexpr BasicStringView<T> slice(std::size_t begin, std::size_t end) const {
        _CORRADE_CONTAINERS_CHECK_SLICE("StringView", begin, end, size());
        return unchecked(begin, end);
    }
    template<class P, class = IfPointer<P>> constexpr BasicStringView<T> slice(P begin, P end) const {
        return pointerSlice(begin, end);
    }
    constexpr BasicStringView<T> sliceSize(std::size_t begin, std::size_t size) const {
        return slice(begin, begin + size);
    }
    constexpr BasicStringView<T> prefix(std::size_t count) const { return slice(0, count); }
    /** @{ Up to or from a position such as that of what was found; null for null. */
    template<class P, class = IfPointer<P>> constexpr BasicStringView<T> prefix(P end) const {
        return static_cast<T*>(end) || !_data ? pointerSlice(_data, end) : BasicStringView<T>{};
    }
    template<class P, class = IfPointer<P>> constexpr BasicStringView<T> suffix(P begin) const {
        return static_cast<T*>(begin) || !_data ? pointerSlice(begin, _data + size()) : BasicStringView<T>{};
    }
    /** @} */
    constexpr BasicStringView<T> exceptPrefix(std::size_t count) const { return slice(count, size()); }
    constexpr BasicStringView<T> exceptSuffix(std::size_t count) const { return slice(0, size() - count); }
    /** @{ Without a prefix or suffix that has to be there. */
    BasicStringView<T> exceptPrefix(StringView prefix) const {
        _CORRADE_CONTAINERS_CHECK(hasPrefix(prefix), "StringView::exceptPrefix(): string doesn't begin with %.*s",
            int(prefix.size()), prefix.data());
        return exceptPrefix(prefix.size());
    }
    BasicStringView<T> exceptSuffix(StringView suffix) const {
        _CORRADE_CONTAINERS_CHECK(hasSuffix(suffix), "StringView::exceptSuffix(): string doesn't end with %.*s",
            int(suffix.size()), suffix.data());
        return exceptSuffix(suffix.size());
    }
    /** @} */

    /** @{ Parts between delimiters: one more than there are delimiters, none in an empty string. */
    Array<BasicStringView<T>> split(char delimiter) const;
    Array<BasicStringView<T>> split(StringView delimiter) const;
    /** @} */
    Array<BasicStringView<T>> splitWithoutEmptyParts(char delimiter) const;
    Array<BasicStringView<T>> splitOnAnyWithoutEmptyParts(StringView delimiters) const;
    /** On blanks, tabs, line and page ends. */
    Array<BasicStringView<T>> splitOnWhitespaceWithoutEmptyParts() const;

    /**
    @{
    Before the first separator, the separator, behind it. Without a separator the whole string comes first and the
    others are empty, at its end.
    */
    Array3<BasicStringView<T>> partition(char separator) const;
    Array3<BasicStringView<T>> partition(StringView separator) const;
    /** @} */
    /** @{ At the last separator. Without one the whole string comes last and the others are empty, at its end. */
    Array3<BasicStringView<T>> partitionLast(char separator) const;
    Array3<BasicStringView<T>> partitionLast(StringView separator) const;
    /** @} */

    /** @{ The strings with this one between them. */
    String join(const StringIterable& strings) const;
    String joinWithoutEmptyParts(const StringIterable& strings) const;
    /** @} */

    bool hasPrefix(StringView prefix) const {
        return size() >= prefix.size() && (prefix.isEmpty() || !std::memcmp(_data, prefix.data(), prefix.size()));
    }
    bool hasPrefix(char prefix) const { return size() && _data[0] == prefix; }
    bool hasSuffix(StringView suffix) const {
        return size() >= suffix.size() &&
            (suffix.isEmpty() || !std::memcmp(end() - suffix.size(), suffix.data(), suffix.size()));
    }
    bool hasSuffix(char suffix) const { return size() && _data[size() - 1] == suffix; }

    /** @{ Without whitespace, or without any of the characters, at both ends or at one of them. */
    BasicStringView<T> trimmed(StringView characters) const {
        return trimmedPrefix(characters).trimmedSuffix(characters);
    }
    BasicStringView<T> trimmed() const { return trimmedPrefix().trimmedSuffix(); }
    BasicStringView<T> trimmedPrefix(StringView characters) const;
    BasicStringView<T> trimmedPrefix() const;
    BasicStringView<T> trimmedSuffix(StringView characters) const;
    BasicStringView<T> trimmedSuffix() const;
    /** @} */

    /**
    @{
    The first or last occurrence as a slice of this view. If there is none a null view, or an empty one at `fail`. An
    empty string is found at the beginning or end of any but a null string.
    */
    BasicStringView<T> find(char character) const { return findOr(character, nullptr); }
    BasicStringView<T> find(StringView substring) const { return findOr(substring, nullptr); }
    BasicStringView<T> findOr(char character, T* fail) const {
        return found(Implementation::stringFind(_data, size(), character), 1, fail);
    }
    BasicStringView<T> findOr(StringView substring, T* fail) const {
        return found(
            Implementation::stringFind(_data, size(), substring.data(), substring.size()), substring.size(), fail);
    }
    BasicStringView<T> findLast(char character) const { return findLastOr(character, nullptr); }
    BasicStringView<T> findLast(StringView substring) const { return findLastOr(substring, nullptr); }
    BasicStringView<T> findLastOr(char character, T* fail) const {
        return found(Implementation::stringFindLast(_data, size(), character), 1, fail);
    }
    BasicStringView<T> findLastOr(StringView substring, T* fail) const {
        return found(
            Implementation::stringFindLast(_data, size(), substring.data(), substring.size()), substring.size(), fail);
    }
    /** @} */
    /** @{ The first or last character that is one of the given. */
    BasicStringView<T> findAny(StringView characters) const { return findAnyOr(characters, nullptr); }
    BasicStringView<T> findAnyOr(StringView characters, T* fail) const {
        return found(Implementation::stringFindAny(_data, size(), characters.data(), characters.size(), true), 1, fail);
    }
    BasicStringView<T> findLastAny(StringView characters) const { return findLastAnyOr(characters, nullptr); }
    BasicStringView<T> findLastAnyOr(StringView characters, T* fail) const {
        return found(
            Implementation::stringFindLastAny(_data, size(), characters.data(), characters.size(), true), 1, fail);
    }
    /** @} */

    bool contains(StringView substring) const { return find(substring).data(); }
    bool contains(char character) const { return find(character).data(); }
    bool containsAny(StringView characters) const { return findAny(characters).data(); }
    /** How often the character occurs. */
    std::size_t count(char character) const;

private:
    template<class> friend class BasicStringView;

    constexpr bool isTerminated() const { return _sizeAndFlags & std::size_t(StringViewFlag::NullTerminated); }

    constexpr BasicStringView<T> pointerSlice(T* begin, T* end) const {
        _CORRADE_CONTAINERS_CHECK_POINTER_SLICE("StringView", begin - _data, end - _data, size());
        return unchecked(begin - _data, end - _data);
    }

    constexpr BasicStringView<T> unchecked(std::size_t begin, std::size_t end) const {
        BasicStringView<T> out;
        out._data = _data + begin;
        out._sizeAndFlags = (end - begin) | (_sizeAndFlags & std::size_t(StringViewFlag::Global)) |
            (end == size() ? _sizeAndFlags & std::size_t(StringViewFlag::NullTerminated) : 0);
        return out;
    }

    constexpr BasicStringView<T> found(const char* position, std::size_t size, T* fail) const {
        return position ? unchecked(position - _data, position - _data + size) : BasicStringView<T>{fail, 0};
    }

    T* _data;
    std::size_t _sizeAndFlags;
};

/** @{ Bytewise, as unsigned; a proper prefix is smaller. */
inline bool operator==(StringView a, StringView b) {
    return a.size() == b.size() && (a.isEmpty() || !std::memcmp(a.data(), b.data(), a.size()));
}
inline bool operator!=(StringView a, StringView b) { return !(a == b); }
inline bool operator<(StringView a, StringView b) {
    const std::size_t common = a.size() < b.size() ? a.size() : b.size();
    const int difference = common ? std::memcmp(a.data(), b.data(), common) : 0;
    return difference ? difference < 0 : a.size() < b.size();
}
inline bool operator<=(StringView a, StringView b) { return !(b < a); }
inline bool operator>=(StringView a, StringView b) { return !(a < b); }
inline bool operator>(StringView a, StringView b) { return b < a; }
/** @} */

/** Concatenation. */
CORRADE_VISIBILITY_EXPORT String operator+(StringView a, StringView b);
/** Repetition. */
CORRADE_VISIBILITY_EXPORT String operator*(StringView string, std::size_t count);

namespace Literals {
inline namespace StringLiterals {

/** Literal that knows its size and is Global and NullTerminated. */
constexpr StringView operator""_s(const char* data, std::size_t size) {
    return {data, size, StringViewFlag::Global | StringViewFlag::NullTerminated};
}

}
}

}
