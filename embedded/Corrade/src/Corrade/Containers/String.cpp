#include "Corrade/Containers/String.h"

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/StringIterable.h"

namespace Corrade::Containers {

namespace {

void keep(char*, std::size_t) {}

}

String String::nullTerminatedView(const StringView view) {
    if(!(view.flags() & StringViewFlag::NullTerminated)) return String{view};
    String out{const_cast<char*>(view.data()), view.size(), keep};
    out._large.size |= std::size_t(view.flags() & StringViewFlag::Global);
    return out;
}

String String::nullTerminatedGlobalView(const StringView view) {
    return view.flags() & StringViewFlag::Global ? nullTerminatedView(view) : String{view};
}

String::String() noexcept: _small{{}, SmallBit} {}

String::String(const char* const data, const std::size_t size) {
    _CORRADE_CONTAINERS_ASSERT(data || !size, "String: received a null string of size %zu", size);
    char* const to = allocate(size);
    if(size) std::memcpy(to, data, size);
}

String::String(AllocatedInitT, const StringView view) {
    char* const data = new char[view.size() + 1];
    if(view) std::memcpy(data, view.data(), view.size());
    data[view.size()] = '\0';
    setLarge(data, view.size(), nullptr);
}

String::String(char* const data, const std::size_t size, const Deleter deleter) noexcept {
    _CORRADE_CONTAINERS_ASSERT(
        data && !data[size], "String: can only take ownership of a non-null null-terminated array");
    setLarge(data, size, deleter);
}

String::String(NoInitT, const std::size_t size) { allocate(size); }

String::String(DirectInitT, const std::size_t size, const char character) {
    std::memset(allocate(size), character, size);
}

String::String(const String& other) {
    if(other.isSmall())
        _small = other._small;
    else
        new(this) String{AllocatedInit, other};
}

String::String(String&& other) noexcept {
    std::memcpy(static_cast<void*>(this), &other, sizeof(String));
    other.setLarge(nullptr, 0, nullptr);
}

String& String::operator=(const String& other) { return *this = String{other}; }

String& String::operator=(String&& other) noexcept {
    char swapped[sizeof(String)];
    std::memcpy(swapped, &other, sizeof(String));
    std::memcpy(static_cast<void*>(&other), this, sizeof(String));
    std::memcpy(static_cast<void*>(this), swapped, sizeof(String));
    return *this;
}

String::~String() {
    if(isSmall()) return;
    if(const Deleter deleter = _large.deleter)
        deleter(_large.data, size());
    else
        delete[] _large.data;
}

String::operator Array<char>() && {
    if(isSmall()) *this = String{AllocatedInit, *this};
    const std::size_t size = this->size();
    const Deleter deleter = _large.deleter;
    return Array<char>{release(), size, deleter};
}

StringViewFlags String::viewFlags() const {
    if(isSmall()) return StringViewFlag::NullTerminated;
    return (StringViewFlags{_large.size} & StringViewFlag::Global) |
        (_large.data ? StringViewFlag::NullTerminated : StringViewFlags{});
}

String::Deleter String::deleter() const {
    _CORRADE_CONTAINERS_ASSERT(!isSmall(), "String::deleter(): cannot call on a SSO instance");
    return _large.deleter;
}

char* String::release() {
    _CORRADE_CONTAINERS_ASSERT(!isSmall(), "String::release(): cannot call on a SSO instance");
    char* const data = _large.data;
    _small = {{}, SmallBit};
    return data;
}

String String::join(const StringIterable& strings) const { return view().join(strings); }

String String::joinWithoutEmptyParts(const StringIterable& strings) const {
    return view().joinWithoutEmptyParts(strings);
}

char* String::allocate(const std::size_t size) {
    if(size <= SmallCapacity) {
        _small.data[size] = '\0';
        _small.size = static_cast<unsigned char>(size | SmallBit);
        return _small.data;
    }
    char* const data = new char[size + 1];
    data[size] = '\0';
    setLarge(data, size, nullptr);
    return data;
}

void String::setLarge(char* const data, const std::size_t size, const Deleter deleter) {
    _large = {data, deleter, size};
}

}
