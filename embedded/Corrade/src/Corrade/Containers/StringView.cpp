#include "Corrade/Containers/StringView.h"

#include "Corrade/Containers/GrowableArray.h"
#include "Corrade/Containers/StaticArray.h"
#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringIterable.h"

namespace Corrade::Containers {

using namespace Literals;

namespace Implementation {

namespace {

constexpr StringView Whitespace = " \t\f\v\r\n"_s;

/** Set of bytes. */
class ByteSet {
public:
    explicit ByteSet(const char* characters, std::size_t count) {
        for(std::size_t i = 0; i != count; ++i) word(characters[i]) |= bit(characters[i]);
    }
    bool contains(char character) const { return const_cast<ByteSet&>(*this).word(character) & bit(character); }

private:
    unsigned long long& word(char character) { return _words[static_cast<unsigned char>(character) / 64]; }
    static unsigned long long bit(char character) { return 1ull << (static_cast<unsigned char>(character) % 64); }

    unsigned long long _words[4]{};
};

}

const char* stringFind(const char* data, std::size_t size, const char* substring, std::size_t substringSize) {
    if(!data || size < substringSize) return nullptr;
    if(!substringSize) return data;
    /* Most searches end at one of the first occurrences of the first character; for others memmem() never becomes
       quadratic, but takes its time to prepare */
    const char* const end = data + size;
    for(unsigned i = 0; i != 8; ++i) {
        data = stringFind(data, end - data - (substringSize - 1), *substring);
        if(!data ||
            (data[substringSize - 1] == substring[substringSize - 1] && !std::memcmp(data, substring, substringSize)))
            return data;
        if(std::size_t(end - ++data) < substringSize) return nullptr;
    }
    return static_cast<const char*>(memmem(data, end - data, substring, substringSize));
}

const char* stringFindLast(const char* data, std::size_t size, char character) {
    return size ? static_cast<const char*>(memrchr(data, character, size)) : nullptr;
}

const char* stringFindLast(const char* data, std::size_t size, const char* substring, std::size_t substringSize) {
    if(!data || size < substringSize) return nullptr;
    if(!substringSize) return data + size;
    std::size_t candidates = size - substringSize + 1;
    while(const char* const candidate = stringFindLast(data, candidates, *substring)) {
        if(!std::memcmp(candidate, substring, substringSize)) return candidate;
        candidates = candidate - data;
    }
    return nullptr;
}

const char* stringFindAny(
    const char* data, std::size_t size, const char* characters, std::size_t characterCount, bool contained) {
    const ByteSet set{characters, characterCount};
    for(std::size_t i = 0; i != size; ++i)
        if(set.contains(data[i]) == contained) return data + i;
    return nullptr;
}

const char* stringFindLastAny(
    const char* data, std::size_t size, const char* characters, std::size_t characterCount, bool contained) {
    const ByteSet set{characters, characterCount};
    for(std::size_t i = size; i != 0; --i)
        if(set.contains(data[i - 1]) == contained) return data + i - 1;
    return nullptr;
}

namespace {

/** Collects the parts of a string. Most have few: those are allocated once and for all at the end. */
template<class T> class Parts {
public:
    void append(BasicStringView<T> part) {
        if(_count == Capacity) flush();
        _first[_count++] = part;
    }

    Array<BasicStringView<T>> take() {
        if(_rest.isEmpty())
            return Array<BasicStringView<T>>{InPlaceInit, ArrayView<const BasicStringView<T>>{_first, _count}};
        flush();
        return Utility::move(_rest);
    }

private:
    enum : std::size_t { Capacity = 16 };

    void flush() {
        arrayAppend(_rest, ArrayView<const BasicStringView<T>>{_first, _count});
        _count = 0;
    }

    BasicStringView<T> _first[Capacity];
    std::size_t _count = 0;
    Array<BasicStringView<T>> _rest;
};

/** `find` gives the next delimiter in a view, or an empty view at its end. */
template<class T, class Find> Array<BasicStringView<T>> split(BasicStringView<T> rest, bool keepEmpty, Find find) {
    Parts<T> parts;
    if(rest.isEmpty()) return {};
    for(;;) {
        const BasicStringView<T> delimiter = find(rest);
        const BasicStringView<T> part = rest.prefix(delimiter.data());
        if(keepEmpty || part) parts.append(part);
        if(!delimiter) return parts.take();
        rest = rest.suffix(delimiter.end());
    }
}

/** `found` is the separator, or a null view; then the whole string becomes the part with the given index. */
template<class T>
Array3<BasicStringView<T>> partition(BasicStringView<T> string, BasicStringView<T> found, std::size_t whole) {
    if(found.data()) return {string.prefix(found.begin()), found, string.suffix(found.end())};
    const BasicStringView<T> nothing = string.exceptPrefix(string.size());
    Array3<BasicStringView<T>> out{nothing, nothing, nothing};
    out[whole] = string;
    return out;
}

String join(StringView separator, const StringIterable& strings, bool keepEmpty) {
    const auto isJoined = [&](StringView string) { return keepEmpty || string; };
    std::size_t size = 0;
    std::size_t count = 0;
    for(const StringView string: strings)
        if(isJoined(string)) {
            size += string.size();
            ++count;
        }
    if(count) size += (count - 1) * separator.size();

    String out{NoInit, size};
    char* to = out.data();
    const auto append = [&to](StringView string) {
        if(string) std::memcpy(to, string.data(), string.size());
        to += string.size();
    };
    for(const StringView string: strings)
        if(isJoined(string)) {
            append(string);
            if(--count) append(separator);
        }
    return out;
}

}

}

template<class T> Array<BasicStringView<T>> BasicStringView<T>::split(const char delimiter) const {
    return Implementation::split(*this, true, [=](BasicStringView<T> s) { return s.findOr(delimiter, s.end()); });
}

template<class T> Array<BasicStringView<T>> BasicStringView<T>::split(const StringView delimiter) const {
    _CORRADE_CONTAINERS_ASSERT(delimiter, "StringView::split(): delimiter is empty");
    return Implementation::split(*this, true, [=](BasicStringView<T> s) { return s.findOr(delimiter, s.end()); });
}

template<class T> Array<BasicStringView<T>> BasicStringView<T>::splitWithoutEmptyParts(const char delimiter) const {
    return Implementation::split(*this, false, [=](BasicStringView<T> s) { return s.findOr(delimiter, s.end()); });
}

template<class T>
Array<BasicStringView<T>> BasicStringView<T>::splitOnAnyWithoutEmptyParts(const StringView delimiters) const {
    return Implementation::split(*this, false, [=](BasicStringView<T> s) { return s.findAnyOr(delimiters, s.end()); });
}

template<class T> Array<BasicStringView<T>> BasicStringView<T>::splitOnWhitespaceWithoutEmptyParts() const {
    return splitOnAnyWithoutEmptyParts(Implementation::Whitespace);
}

template<class T> Array3<BasicStringView<T>> BasicStringView<T>::partition(const char separator) const {
    return Implementation::partition(*this, find(separator), 0);
}

template<class T> Array3<BasicStringView<T>> BasicStringView<T>::partition(const StringView separator) const {
    return Implementation::partition(*this, find(separator), 0);
}

template<class T> Array3<BasicStringView<T>> BasicStringView<T>::partitionLast(const char separator) const {
    return Implementation::partition(*this, findLast(separator), 2);
}

template<class T> Array3<BasicStringView<T>> BasicStringView<T>::partitionLast(const StringView separator) const {
    return Implementation::partition(*this, findLast(separator), 2);
}

template<class T> String BasicStringView<T>::join(const StringIterable& strings) const {
    return Implementation::join(*this, strings, true);
}

template<class T> String BasicStringView<T>::joinWithoutEmptyParts(const StringIterable& strings) const {
    return Implementation::join(*this, strings, false);
}

template<class T> BasicStringView<T> BasicStringView<T>::trimmedPrefix(const StringView characters) const {
    const char* const begin = Implementation::stringFindAny(_data, size(), characters.data(), characters.size(), false);
    return exceptPrefix(begin ? begin - _data : size());
}

template<class T> BasicStringView<T> BasicStringView<T>::trimmedPrefix() const {
    return trimmedPrefix(Implementation::Whitespace);
}

template<class T> BasicStringView<T> BasicStringView<T>::trimmedSuffix(const StringView characters) const {
    const char* const last =
        Implementation::stringFindLastAny(_data, size(), characters.data(), characters.size(), false);
    return prefix(std::size_t(last ? last + 1 - _data : 0));
}

template<class T> BasicStringView<T> BasicStringView<T>::trimmedSuffix() const {
    return trimmedSuffix(Implementation::Whitespace);
}

template<class T> std::size_t BasicStringView<T>::count(const char character) const {
    std::size_t count = 0;
    for(const char i: *this) count += i == character;
    return count;
}

template class BasicStringView<char>;
template class BasicStringView<const char>;

String operator+(const StringView a, const StringView b) {
    String out{NoInit, a.size() + b.size()};
    if(a) std::memcpy(out.data(), a.data(), a.size());
    if(b) std::memcpy(out.data() + a.size(), b.data(), b.size());
    return out;
}

String operator*(const StringView string, const std::size_t count) {
    String out{NoInit, string.size() * count};
    if(string)
        for(std::size_t i = 0; i != count; ++i)
            std::memcpy(out.data() + i * string.size(), string.data(), string.size());
    return out;
}

}
