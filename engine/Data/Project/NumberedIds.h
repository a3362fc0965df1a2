#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace VantrelEngine {

// Different texts, numbered from 0 in the order in which they came. Finding and adding one takes constant time; one
// occupies its bytes and about 20 more.
class NumberedIds {
public:
    using Number = std::uint32_t;
    static constexpr Number None = ~Number{};

    std::size_t size() const { return _ends.size(); }
    // Valid until the next one is added.
    std::string_view operator[](Number number) const;

    // None for one that was not added.
    Number find(std::string_view id) const;
    // Its number, a new one the first time. The text is not one of those that are here.
    Number add(std::string_view id);

private:
    // Where the number stands in the table, or would.
    std::size_t placeOf(std::string_view id) const;
    void growTable();

    // A hash table with linear probing, at most two thirds full; its size is a power of two.
    std::vector<Number> _table;
    // By number, in the text.
    std::vector<std::size_t> _ends;
    std::string _text;
};

} // namespace VantrelEngine
