#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Corrade/Containers/StringView.h>

namespace VantrelEngine {

// What is known of each thing that the document names by an id string. A node keeps its address for as long as it is in
// the map, and knows its id. Looking one up and adding one takes constant time, and memory only where it is added.
//
// A hash table with linear probing, at most two thirds full; its size is a power of two.
template<class Node> class IdMap {
public:
    IdMap() = default;
    IdMap(const IdMap&) = delete;
    IdMap& operator=(const IdMap&) = delete;

    std::size_t size() const { return _size; }

    // The node of an id; made by Node(std::string id) the first time that the id is named.
    Node& operator[](Corrade::Containers::StringView id) {
        if(Node* const known = find(id)) return *known;
        reserve(_size + 1);
        std::unique_ptr<Node>& node = _table[placeOf(key(id))];
        node = std::make_unique<Node>(std::string{id.data(), id.size()});
        ++_size;
        return *node;
    }

    // Null where the id was never named.
    Node* find(Corrade::Containers::StringView id) const {
        return _table.empty() ? nullptr : _table[placeOf(key(id))].get();
    }

    void erase(Corrade::Containers::StringView id) {
        if(!find(id)) return;
        std::size_t hole = placeOf(key(id));
        // The id may be the node's own text: the node outlives its entry.
        const std::unique_ptr<Node> node = std::move(_table[hole]);
        --_size;
        // What was pushed on by the node, or by one that was, moves up.
        for(std::size_t place = next(hole); _table[place]; place = next(place))
            if(distance(home(_table[place]->id), place) >= distance(hole, place)) {
                _table[hole] = std::move(_table[place]);
                hole = place;
            }
    }

    void clear() {
        _table.clear();
        _size = 0;
    }

    // Makes room for so many nodes.
    void reserve(std::size_t count) {
        std::size_t size = std::max<std::size_t>(_table.size(), 16);
        while(2 * size < 3 * count) size *= 2;
        if(size == _table.size()) return;
        std::vector<std::unique_ptr<Node>> old(size);
        old.swap(_table);
        for(std::unique_ptr<Node>& node: old) {
            if(!node) continue;
            const std::size_t place = placeOf(node->id);
            _table[place] = std::move(node);
        }
    }

    // In no particular order.
    template<class Function> void forEach(Function&& function) const {
        for(const std::unique_ptr<Node>& node: _table)
            if(node) function(*node);
    }

private:
    static std::string_view key(Corrade::Containers::StringView id) { return {id.data(), id.size()}; }

    std::size_t home(std::string_view id) const { return std::hash<std::string_view>{}(id) & (_table.size() - 1); }
    std::size_t next(std::size_t place) const { return (place + 1) & (_table.size() - 1); }
    std::size_t distance(std::size_t from, std::size_t to) const { return (to - from) & (_table.size() - 1); }

    // Where the node of the id stands, or would.
    std::size_t placeOf(std::string_view id) const {
        std::size_t place = home(id);
        while(_table[place] && _table[place]->id != id) place = next(place);
        return place;
    }

    std::vector<std::unique_ptr<Node>> _table;
    std::size_t _size = 0;
};

} // namespace VantrelEngine
