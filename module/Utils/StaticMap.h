#pragma once

#include <algorithm>
#include <cstdint>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Move.h>

namespace VantrelEngine {

// A map with string keys that is filled first, compiled once, and then only searched: a sorted array. Keys are ordered
// byte by byte, a proper prefix before the longer string.
template<class T> class StaticMap {
public:
    // The value of a key, for filling: a value-initialised one the first time the key is named. Costs a walk over the
    // keys so far. The reference is valid until the next call. A new key makes the map uncompiled.
    T& operator[](Corrade::Containers::StringView key);

    // Sorts the entries. find() works from here on.
    void compile();

    bool isCompiled() const { return _compiled; }
    std::size_t size() const { return _entries.size(); }

    // The value stored under the key, or null; costs a binary search. Aborts with "StaticMap::find(): Map needs to be
    // compiled." on a map that is not.
    T* find(Corrade::Containers::StringView key);
    const T* find(Corrade::Containers::StringView key) const { return const_cast<StaticMap&>(*this).find(key); }

private:
    struct Entry {
        Corrade::Containers::String key;
        T value;
    };

    // One bit a length; all that are too long for a bit of their own share the last one.
    static std::uint64_t lengthBit(std::size_t length) { return std::uint64_t{1} << std::min(length, std::size_t{63}); }

    Corrade::Containers::Array<Entry> _entries;
    // Lengths of the keys: most texts that are no key have none of them.
    std::uint64_t _lengths = 0;
    bool _compiled = false;
};

template<class T> T& StaticMap<T>::operator[](Corrade::Containers::StringView key) {
    for(Entry& entry: _entries)
        if(entry.key == key) return entry.value;
    _compiled = false;
    return arrayAppend(_entries, Corrade::InPlaceInit, Entry{key, T{}}).value;
}

template<class T> void StaticMap<T>::compile() {
    std::sort(_entries.begin(), _entries.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
    _lengths = 0;
    for(const Entry& entry: _entries) _lengths |= lengthBit(entry.key.size());
    _compiled = true;
}

template<class T> T* StaticMap<T>::find(Corrade::Containers::StringView key) {
    CORRADE_ASSERT(_compiled, "StaticMap::find(): Map needs to be compiled.", nullptr);
    if(!(_lengths & lengthBit(key.size()))) return nullptr;
    Entry* const found = std::lower_bound(_entries.begin(), _entries.end(), key,
        [](const Entry& entry, Corrade::Containers::StringView searched) { return entry.key < searched; });
    return found != _entries.end() && found->key == key ? &found->value : nullptr;
}

}
