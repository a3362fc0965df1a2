#pragma once

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// Texts in one block of memory, by number. A text that does not fit where its predecessor stood goes to the end of the
// block; the block is packed or doubled when it is full, so that setting a text costs amortised constant time a byte
// and leaves the others alone.
//
// A text occupies its bytes and a terminating NUL, an empty one nothing. Capacities are what was asked for; the memory
// behind them grows by factors, so that asking for one more again and again is not quadratic.
class CORRADE_VISIBILITY_EXPORT StringArray {
public:
    explicit StringArray() = default;

    // Texts; those that were never set are empty.
    std::size_t size() const { return _places.size(); }
    // Number of texts and bytes, NULs included, that were reserved or are in use.
    std::size_t countCapacity() const { return _countCapacity; }
    std::size_t capacity() const { return _capacity; }
    // Bytes of the capacity that no text occupies.
    std::size_t unusedCapacity() const { return _capacity - _occupied; }

    // Raises the capacities to these; what is there already is kept.
    void reserve(std::size_t count, std::size_t bytes);

    // Adds empty texts at the end, or drops texts from there.
    void setSize(std::size_t size);

    // NUL-terminated, and valid until the next change. Aborts on a number beyond the size.
    Corrade::Containers::StringView operator[](std::size_t i) const;

    // Copies the text, which may be one of the array's own. Capacities grow by just what is missing. Aborts on a number
    // beyond the size.
    void set(std::size_t i, Corrade::Containers::StringView text);

private:
    struct Place {
        std::size_t offset;
        std::size_t size;
    };

    // Memory of a text of this many characters.
    static std::size_t footprint(std::size_t size) { return size ? size + 1 : 0; }
    // Takes a new block of memory with the texts packed at its start; all but the skipped one.
    Corrade::Containers::Array<char> repack(std::size_t bytes, std::size_t skipped);

    Corrade::Containers::Array<Place> _places;
    Corrade::Containers::Array<char> _text;
    std::size_t _countCapacity = 0;
    std::size_t _capacity = 0;
    std::size_t _occupied = 0;
    // End of the last place in the block.
    std::size_t _end = 0;
};

}
