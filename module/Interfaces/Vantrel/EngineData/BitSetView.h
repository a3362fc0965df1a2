#pragma once

#include <cstring>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Utility/Assert.h>
#include <Magnum/Magnum.h>

namespace VantrelEngine {

// A set of small numbers in words that somebody else owns: number i is bit i % 64 of word i / 64. Bits of the last word
// beyond the size are zero and stay so. What walks the set costs a step for every 64 numbers.
class BitSetView {
public:
    // Words for this many bits.
    static constexpr std::size_t wordCount(std::size_t bits) { return (bits + 63) / 64; }

    BitSetView() = default;
    // Expects wordCount(bits) words at least.
    explicit BitSetView(Corrade::Containers::ArrayView<Magnum::UnsignedLong> words, std::size_t bits):
        _words{words.data()}, _size{bits} {
        CORRADE_ASSERT(words.size() >= wordCount(bits),
            "BitSetView:" << words.size() << "words are too few for" << bits << "bits", );
    }

    // Bits.
    std::size_t size() const { return _size; }

    // The words that the set is made of, to be compared with others.
    Corrade::Containers::ArrayView<const Magnum::UnsignedLong> words() const { return {_words, wordCount(_size)}; }

    // Whether the number is in the set; what is beyond the size is not.
    bool isSet(std::size_t i) const { return i < _size && (_words[i / 64] >> i % 64 & 1); }

    // Expects a number below the size.
    void set(std::size_t i, bool value = true) {
        CORRADE_ASSERT(i < _size, "BitSetView::set(): bit" << i << "out of range for" << _size << "bits", );
        const Magnum::UnsignedLong bit = Magnum::UnsignedLong{1} << i % 64;
        _words[i / 64] = value ? _words[i / 64] | bit : _words[i / 64] & ~bit;
    }

    // Empties the set.
    void clear() {
        if(_size) std::memset(_words, 0, wordCount(_size) * sizeof(*_words));
    }

    // Numbers in the set.
    std::size_t countSet() const {
        std::size_t count = 0;
        for(std::size_t i = 0; i != wordCount(_size); ++i) count += __builtin_popcountll(_words[i]);
        return count;
    }

    // The least number of the set that is not below the given one; the size where there is none.
    std::size_t findFirstSet(std::size_t from = 0) const {
        if(from >= _size) return _size;
        std::size_t word = from / 64;
        Magnum::UnsignedLong bits = _words[word] & ~Magnum::UnsignedLong{} << from % 64;
        while(!bits) {
            if(++word == wordCount(_size)) return _size;
            bits = _words[word];
        }
        return word * 64 + __builtin_ctzll(bits);
    }

private:
    Magnum::UnsignedLong* _words = nullptr;
    std::size_t _size = 0;
};

}
