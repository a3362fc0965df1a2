#pragma once

/** An owning string. */

#include "Corrade/Containers/StringView.h"
#include "Corrade/Tags.h"

namespace Corrade::Containers {

/** Tag: the string goes to the heap even if it is small. */
struct AllocatedInitT {
    struct Init {};
    constexpr explicit AllocatedInitT(Init) {}
};
inline constexpr AllocatedInitT AllocatedInit{AllocatedInitT::Init{}};

namespace Implementation {
template<> struct IsContiguous<String>: std::true_type {};
}

/**
Owns `size()` bytes and a zero byte behind them. Up to 22 bytes are stored in place. A deleter that is a null pointer
stands for `delete[]`; any other gets the data and the size without the zero byte.

Has the queries of StringView, with mutable views on a mutable string; a copy of a string on the heap is on the heap too.
A string that was moved from is empty and has no data.
*/
class CORRADE_VISIBILITY_EXPORT String {
public:
    using Deleter = void (*)(char*, std::size_t);

    /**
    @{
    References the data of a view that is NullTerminated, or Global too, which then has to stay alive and must not be
    changed. Makes a copy of any other. What was Global stays so when moved.
    */
    static String nullTerminatedView(StringView view);
    static String nullTerminatedGlobalView(StringView view);
    /** @} */

    /*implicit*/ String() noexcept;
    /** A copy; empty for null. */
    /*implicit*/ String(StringView view): String{view.data(), view.size()} {}
    template<class U,
        class = std::enable_if_t<!std::is_same<Implementation::RemoveCvRef<U>, String>::value &&
            !std::is_same<Implementation::RemoveCvRef<U>, StringView>::value &&
            std::is_convertible<U&&, StringView>::value>>
    /*implicit*/ String(U&& other): String{StringView(Utility::forward<U>(other))} {}
    explicit String(const char* data, std::size_t size);
    explicit String(AllocatedInitT, StringView view);
    /** Takes ownership of data with a zero byte behind it. */
    explicit String(char* data, std::size_t size, Deleter deleter) noexcept;
    /** @{ Zero bytes, undefined ones, the same everywhere. */
    explicit String(ValueInitT, std::size_t size): String{DirectInit, size, '\0'} {}
    explicit String(NoInitT, std::size_t size);
    explicit String(DirectInitT, std::size_t size, char character);
    /** @} */

    String(const String& other);
    String(String&& other) noexcept;
    String& operator=(const String& other);
    String& operator=(String&& other) noexcept;
    ~String();

    /** @{ Conversion to types of others; see StringStl.h. */
    template<class U,
        class = decltype(Implementation::StringViewConverter<const char, U>::to(std::declval<StringView>()))>
    /*implicit*/ operator U() const {
        return Implementation::StringViewConverter<const char, U>::to(*this);
    }
    /** @} */
    /** Hands the data over; the zero byte stays behind the items of the array. */
    /*implicit*/ operator Array<char>() &&;

    /** Whether the string isn't empty. */
    explicit operator bool() const { return size(); }

    char* data() { return isSmall() ? _small.data : _large.data; }
    const char* data() const { return isSmall() ? _small.data : _large.data; }
    std::size_t size() const {
        return isSmall() ? _small.size & ~SmallBit : _large.size & Implementation::StringSizeMask;
    }
    bool isEmpty() const { return !size(); }
    /** Whether it is stored in place. */
    bool isSmall() const { return _small.size & SmallBit; }
    /** NullTerminated unless moved from, Global if it references such a view. */
    StringViewFlags viewFlags() const;
    /** Only if it isn't small. */
    Deleter deleter() const;
    /** Gives up the data of a string that isn't small, without calling the deleter. */
    char* release();

    char* begin() { return data(); }
    const char* begin() const { return data(); }
    char* end() { return data() + size(); }
    const char* end() const { return data() + size(); }
    char& front() { return mutableView().front(); }
    const char& front() const { return view().front(); }
    char& back() { return mutableView().back(); }
    const char& back() const { return view().back(); }
    char& operator[](std::size_t i) { return mutableView()[i]; }
    const char& operator[](std::size_t i) const { return view()[i]; }

    /* Documented in StringView. On a mutable string the results are mutable too. */
#define _CORRADE_STRING_QUERY(name)                                                                                    \
    template<class... Args> auto name(const Args&... args) { return mutableView().name(args...); }                     \
    template<class... Args> auto name(const Args&... args) const { return view().name(args...); }
    _CORRADE_STRING_QUERY(slice)
    _CORRADE_STRING_QUERY(sliceSize)
    _CORRADE_STRING_QUERY(prefix)
    _CORRADE_STRING_QUERY(suffix)
    _CORRADE_STRING_QUERY(exceptPrefix)
    _CORRADE_STRING_QUERY(exceptSuffix)
    _CORRADE_STRING_QUERY(split)
    _CORRADE_STRING_QUERY(splitWithoutEmptyParts)
    _CORRADE_STRING_QUERY(splitOnAnyWithoutEmptyParts)
    _CORRADE_STRING_QUERY(splitOnWhitespaceWithoutEmptyParts)
    _CORRADE_STRING_QUERY(partition)
    _CORRADE_STRING_QUERY(partitionLast)
    _CORRADE_STRING_QUERY(trimmed)
    _CORRADE_STRING_QUERY(trimmedPrefix)
    _CORRADE_STRING_QUERY(trimmedSuffix)
    _CORRADE_STRING_QUERY(find)
    _CORRADE_STRING_QUERY(findOr)
    _CORRADE_STRING_QUERY(findLast)
    _CORRADE_STRING_QUERY(findLastOr)
    _CORRADE_STRING_QUERY(findAny)
    _CORRADE_STRING_QUERY(findAnyOr)
    _CORRADE_STRING_QUERY(findLastAny)
    _CORRADE_STRING_QUERY(findLastAnyOr)
#undef _CORRADE_STRING_QUERY

    String join(const StringIterable& strings) const;
    String joinWithoutEmptyParts(const StringIterable& strings) const;

    bool hasPrefix(StringView prefix) const { return view().hasPrefix(prefix); }
    bool hasPrefix(char prefix) const { return view().hasPrefix(prefix); }
    bool hasSuffix(StringView suffix) const { return view().hasSuffix(suffix); }
    bool hasSuffix(char suffix) const { return view().hasSuffix(suffix); }
    bool contains(StringView substring) const { return view().contains(substring); }
    bool contains(char character) const { return view().contains(character); }
    bool containsAny(StringView characters) const { return view().containsAny(characters); }
    std::size_t count(char character) const { return view().count(character); }

private:
    enum : std::size_t { SmallCapacity = 22 };
    enum : unsigned char { SmallBit = 0x40 };

    StringView view() const { return *this; }
    MutableStringView mutableView() { return *this; }

    char* allocate(std::size_t size);
    void setLarge(char* data, std::size_t size, Deleter deleter);

    /* The last byte of both is the top byte of the large size, whose top two bits are free */
    struct Small {
        char data[SmallCapacity + 1];
        unsigned char size;
    };
    struct Large {
        char* data;
        Deleter deleter;
        std::size_t size;
    };
    union {
        Small _small;
        Large _large;
    };
};

static_assert(sizeof(String) == 24, "the layout of small and large strings relies on 64-bit pointers");
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the top byte of the size has to come last");

}
