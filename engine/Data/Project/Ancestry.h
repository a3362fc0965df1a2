#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace VantrelEngine {

class ProjectFile;

// Answers, edit after edit, whether an object of the document would become its own ancestor.
//
// Remembers what it has seen, so that neither pasting a chain of k objects nor moving k objects below one deep parent
// walks up k times. Objects that were seen to be above or below each other are in one set (a disjoint-set forest, with
// path halving); sets only grow, as links are cut behind its back. An object in another set is no ancestor; within a
// set the ancestors of the last parent that was asked for are kept.
class Ancestry {
public:
    explicit Ancestry() = default;

    // Whether the object, which may be yet to come, stands above the parent in the document or is the parent. Parents
    // that do not exist count.
    bool isAncestor(const ProjectFile& file, std::string_view object, std::string_view parent);

    // The object gets this parent ("" for the root) or goes; call before each such edit.
    void parentChanges(std::string_view object, std::string_view parent);

    // The document was changed by other means.
    void forget();

private:
    using Node = std::uint32_t;

    Node nodeOf(std::string_view id);
    Node setOf(Node node);
    void unite(Node a, Node b) { _links[setOf(a)] = setOf(b); }
    // Unites everything from the object upwards with it.
    void trace(const ProjectFile& file, std::string_view id);
    void collectAncestors(const ProjectFile& file, std::string_view parent);

    std::unordered_map<std::string, Node> _nodes;
    std::vector<Node> _links;
    // By node: whether its parent in the document is in its set.
    std::vector<bool> _isTraced;

    // The object itself and all above it; empty for none.
    std::unordered_set<std::string> _ancestors;
    std::string _ancestorsOf;
};

} // namespace VantrelEngine
