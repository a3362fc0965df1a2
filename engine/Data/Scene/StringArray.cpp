#include <Vantrel/EngineData/StringArray.h>

#include <algorithm>
#include <cstring>

#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Utility/Assert.h>

namespace VantrelEngine {

using namespace Corrade;

void StringArray::reserve(std::size_t count, std::size_t bytes) {
    _countCapacity = std::max(_countCapacity, count);
    if(count > arrayCapacity(_places)) arrayReserve(_places, std::max(count, arrayCapacity(_places) * 3 / 2));
    _capacity = std::max(_capacity, bytes);
    if(bytes > _text.size()) _text = repack(std::max(bytes, _text.size() * 3 / 2), ~std::size_t{});
}

void StringArray::setSize(std::size_t size) {
    for(std::size_t i = size; i < _places.size(); ++i) _occupied -= footprint(_places[i].size);
    reserve(size, 0);
    arrayResize(_places, ValueInit, size);
}

Containers::StringView StringArray::operator[](std::size_t i) const {
    CORRADE_ASSERT(i < size(), "StringArray: there is no text" << i << "among" << size(), {});
    const Place& place = _places[i];
    if(!place.size) return {"", 0, Containers::StringViewFlag::Global | Containers::StringViewFlag::NullTerminated};
    return {_text.data() + place.offset, place.size, Containers::StringViewFlag::NullTerminated};
}

void StringArray::set(std::size_t i, Containers::StringView text) {
    CORRADE_ASSERT(i < size(), "StringArray::set(): there is no text" << i << "among" << size(), );
    Place& place = _places[i];
    const std::size_t bytes = footprint(text.size());
    const std::size_t others = _occupied - footprint(place.size);

    // The text may lie in the memory that is replaced: that lives until it is copied.
    Containers::Array<char> old;
    if(text.size() > place.size) {
        if(_end + bytes > _text.size()) {
            // Packed where that frees half of the memory, else doubled: either is paid for by the bytes set since.
            const std::size_t needed = others + bytes;
            old = repack(needed <= _text.size() / 2 ? _text.size() : needed * 2, i);
            std::swap(old, _text);
        }
        place.offset = _end;
        _end += bytes;
    }
    place.size = text.size();
    _occupied = others + bytes;
    _capacity = std::max(_capacity, _occupied);
    if(!bytes) return;
    std::memmove(_text.data() + place.offset, text.data(), text.size());
    _text[place.offset + text.size()] = '\0';
}

Containers::Array<char> StringArray::repack(std::size_t bytes, std::size_t skipped) {
    Containers::Array<char> packed{NoInit, bytes};
    _end = 0;
    for(std::size_t i = 0; i != _places.size(); ++i) {
        if(i == skipped || !_places[i].size) continue;
        const std::size_t length = footprint(_places[i].size);
        std::memcpy(packed.data() + _end, _text.data() + _places[i].offset, length);
        _places[i].offset = _end;
        _end += length;
    }
    return packed;
}

}
