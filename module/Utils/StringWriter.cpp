#include "Utils/StringWriter.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "Utils/Assert.h"

namespace VantrelEngine {

using namespace Corrade;

StringWriter::StringWriter(std::size_t capacity): _data{capacity ? new char[capacity] : nullptr}, _capacity{capacity} {
    if(_data) *_data = '\0';
}

StringWriter::StringWriter(char* storage, std::size_t capacity, Deleter deleter):
    _data{storage}, _capacity{capacity}, _deleter{deleter} {
    *_data = '\0';
}

StringWriter::StringWriter(StringWriter&& other) noexcept:
    _data{std::exchange(other._data, nullptr)}, _capacity{std::exchange(other._capacity, 0)},
    _size{std::exchange(other._size, 0)}, _deleter{std::exchange(other._deleter, nullptr)} {}

StringWriter& StringWriter::operator=(StringWriter&& other) noexcept {
    std::swap(_data, other._data);
    std::swap(_capacity, other._capacity);
    std::swap(_size, other._size);
    std::swap(_deleter, other._deleter);
    return *this;
}

StringWriter::~StringWriter() { release(); }

Containers::StringView StringWriter::text() const {
    using namespace Containers::Literals;
    return _data ? Containers::StringView{_data, _size, Containers::StringViewFlag::NullTerminated} : ""_s;
}

void StringWriter::reserve(std::size_t bytes) {
    if(available() >= bytes + 1) return;
    /* Kept: rounded to single precision, as the contract of the growth says. */
    const auto grown = std::size_t(float(_capacity) * 1.5f);
    const std::size_t capacity = std::max(grown, _size + bytes + 1);
    char* data = new char[capacity];
    if(_data) std::memcpy(data, _data, _size);
    data[_size] = '\0';
    release();
    _data = data;
    _capacity = capacity;
    _deleter = nullptr;
}

StringWriter& StringWriter::append(Containers::ArrayView<const char> bytes) {
    char* end = prepare(bytes.size());
    if(!bytes.isEmpty()) std::memcpy(end, bytes.data(), bytes.size());
    return finish(bytes.size());
}

char* StringWriter::prepare(std::size_t bytes) {
    reserve(bytes);
    /* Kept: one unit and line for every kind of append. */
    VANTREL_ASSERT(available() > bytes, "Utils/StringWriter", 83);
    return _data + _size;
}

StringWriter& StringWriter::finish(std::size_t bytes) {
    _size += bytes;
    _data[_size] = '\0';
    return *this;
}

void StringWriter::release() {
    if(_deleter)
        _deleter(_data, _capacity);
    else
        delete[] _data;
}

}
