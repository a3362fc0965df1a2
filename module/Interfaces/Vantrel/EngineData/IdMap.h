#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <Corrade/Containers/StringView.h>

namespace VantrelEngine {

// What is known of each thing that the document names by an id string. A node keeps its address for as long as it is in
// the map, and knows its id. Looking one up and adding one takes constant time, and memory only where it is added.
template<class Node> class IdMap {
public:
    IdMap() = default;
    IdMap(const IdMap&) = delete;
    IdMap& operator=(const IdMap&) = delete;

    std::size_t size() const { return _nodes.size(); }

    // The node of an id; made by Node(std::string id) the first time that the id is named.
    Node& operator[](Corrade::Containers::StringView id) {
        if(Node* const known = find(id)) return *known;
        auto node = std::make_unique<Node>(std::string{id.data(), id.size()});
        Node& added = *node;
        _nodes.emplace(std::string_view{added.id}, std::move(node));
        return added;
    }

    // Null where the id was never named.
    Node* find(Corrade::Containers::StringView id) const {
        const auto found = _nodes.find(key(id));
        return found == _nodes.end() ? nullptr : found->second.get();
    }

    void erase(Corrade::Containers::StringView id) {
        const auto found = _nodes.find(key(id));
        if(found == _nodes.end()) return;
        // The key is the node's own text: the node outlives its entry.
        const std::unique_ptr<Node> node = std::move(found->second);
        _nodes.erase(found);
    }

    void clear() { _nodes.clear(); }
    void reserve(std::size_t count) { _nodes.reserve(count); }

    // In no particular order.
    template<class Function> void forEach(Function&& function) const {
        for(const auto& entry: _nodes) function(*entry.second);
    }

private:
    static std::string_view key(Corrade::Containers::StringView id) { return {id.data(), id.size()}; }

    std::unordered_map<std::string_view, std::unique_ptr<Node>> _nodes;
};

} // namespace VantrelEngine
