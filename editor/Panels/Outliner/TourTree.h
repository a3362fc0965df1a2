#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// The rows of a tree of objects that can be folded, by number: the objects in depth-first order without those below a
// folded one. Every operation takes logarithmic time, however many objects are below the ones that it moves or folds, and
// however deep they are; a build takes linear time.
//
// Each object opens and closes a bracket, its descendants stand between the two. The brackets are kept in a treap, with the
// number of folded ancestors of each (a range of brackets changes by one when an object is folded): a row is what has none.
class TourTree {
public:
    // The root alone, which is no row.
    TourTree() { clear(); }
    void clear();

    // Appends to what is being built: objects are entered and left in depth-first order, after beginBuild(), which forgets
    // everything but what is folded, and before endBuild(). The root is entered first and left last.
    void beginBuild(std::size_t objects);
    void enter(Id object);
    void leave(Id object);
    void endBuild();

    // Whether the object is somewhere in the tree, or in a piece that was cut out of it.
    bool isKnown(Id object) const { return object < _isKnown.size() && _isKnown[object]; }
    // Takes the object with all below it out, as a piece of its own. It is still folded as it was.
    void cut(Id object);
    // Puts a piece, or an object that is new, below a parent: behind one of its children, or in front of them where that is
    // NoObject.
    void insert(Id object, Id parent, Id previous);
    // Forgets a piece; nothing is left below the object.
    void forget(Id object);

    bool isFolded(Id object) const { return object < _isFolded.size() && _isFolded[object]; }
    void setFolded(Id object, bool isFolded);

    std::size_t rowCount() const { return rowsOf(_root, 0); }
    // Expects a row.
    Id objectOf(std::size_t row) const;
    // None below a folded object.
    std::optional<std::size_t> rowOf(Id object) const;
    // Ancestors besides the root.
    std::size_t depthOf(Id object) const;

private:
    using Index = std::uint32_t;
    static constexpr Index None = ~Index{};

    // A bracket: 2 * object opens, 2 * object + 1 closes.
    struct Node {
        Index left = None, right = None, parent = None;
        std::uint32_t size = 1;
        // Folded objects around it, without what is still to be added to it above.
        std::int32_t folds = 0;
        // To be added to the nodes below.
        std::int32_t pending = 0;
        // Among the rows below and the node itself: the least number of folds, and how many have it.
        std::int32_t leastFolds = 0;
        std::uint32_t leastCount = 0;
        // Brackets opened minus those closed.
        std::int32_t depth = 0;
    };
    struct Halves {
        Index left, right;
    };

    static Index opening(Id object) { return 2 * Index{object}; }
    static Index closing(Id object) { return 2 * Index{object} + 1; }
    static bool isRow(Index node) { return node % 2 == 0 && node != 0; }
    static std::uint32_t priority(Index node);

    void reserve(Id object);
    void resetNode(Index node);
    void add(Index node, std::int32_t folds);
    void push(Index node);
    void update(Index node);
    Index merge(Index left, Index right);
    // The first so many nodes, and the others.
    Halves split(Index tree, std::size_t count);
    Index rootOf(Index node) const;
    std::size_t positionOf(Index node) const;
    std::int32_t foldsOf(Index node) const;
    std::size_t sizeOf(Index node) const { return node == None ? 0 : _nodes[node].size; }
    // Below a node and with it, where so many folds are to be added.
    std::size_t rowsOf(Index node, std::int32_t added) const;
    void append(Index node);
    void finish(Index node, Index right);

    std::vector<Node> _nodes;
    std::vector<char> _isKnown, _isFolded;
    Index _root = None;
    // The right edge of what is being built, and the folded objects around its end.
    std::vector<Index> _edge;
    std::int32_t _foldsAtEnd = 0;
};

} // namespace VantrelEngine
