#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include <Corrade/Containers/ArrayView.h>

namespace VantrelEngine {

// A number for what was added, in its order; the same in each run. Linear, eight bytes a step.
class ContentHash {
public:
    void add(std::uint64_t value) {
        // The multiplier is an odd number with its bits all over (2^64 over the golden ratio); the shift brings them down.
        _value = (_value ^ value) * 0x9e3779b97f4a7c15u;
        _value ^= _value >> 29;
    }
    void add(Corrade::Containers::ArrayView<const char> bytes) {
        add(bytes.size());
        std::uint64_t word = 0;
        std::size_t i = 0;
        for(; i + sizeof(word) <= bytes.size(); i += sizeof(word)) {
            std::memcpy(&word, bytes.data() + i, sizeof(word));
            add(word);
        }
        word = 0;
        if(i != bytes.size()) std::memcpy(&word, bytes.data() + i, bytes.size() - i);
        add(word);
    }
    void add(std::string_view text) { add(Corrade::Containers::ArrayView<const char>{text.data(), text.size()}); }
    template<class T> void addBytes(const T& value) {
        add(Corrade::Containers::ArrayView<const char>{reinterpret_cast<const char*>(&value), sizeof(value)});
    }

    // Never 0.
    std::uint64_t value() const { return _value ? _value : 1; }

private:
    std::uint64_t _value = 0;
};

} // namespace VantrelEngine
