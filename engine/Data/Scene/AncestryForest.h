#pragma once

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/GrowableArray.h>

namespace VantrelEngine {

// Answers whether one node is above another in trees that change all the time, in amortised logarithmic time: a chain
// of thousands costs no more than a bush. Link-cut trees, from D. D. Sleator and R. E. Tarjan, "A Data Structure for
// Dynamic Trees", 1983, with splay trees.
//
// The trees' paths are split into pieces; each piece is a search tree ordered by depth, and knows the node above it.
//
// Nodes are numbers of an unsigned type, the largest of which is none; three of them are kept for each node.
template<class Number> class AncestryForest {
public:
    // Nodes; the new ones stand alone.
    void resize(std::size_t nodes) { Corrade::Containers::arrayResize(_nodes, Corrade::ValueInit, nodes); }
    std::size_t size() const { return _nodes.size(); }

    // Puts a tree, given by its root, under a node of another tree. Constant time where the root has been given no
    // parent yet and was not asked for.
    void link(Number root, Number parent);
    // Takes the node, with all that is below it, from its parent. Expects that it has one.
    void cut(Number node);
    // Makes the node stand alone. Expects that it, and all that was linked with it, is cut from what stays.
    void reset(Number node) { _nodes[node] = {}; }

    // Whether the node is the other one or above it.
    bool isAboveOrSame(Number above, Number node);

private:
    static constexpr Number None = Number(~Number{});

    struct Node {
        // In the piece, or, of the topmost one there, the node above the piece.
        Number parent = None;
        // Less deep, deeper.
        Number children[2]{None, None};
    };

    bool isTopOfPiece(Number node) const;
    void rotate(Number node);
    void splay(Number node);
    // Makes the path from the tree's root to the node one piece with the node on top, and nothing deeper in it.
    void expose(Number node);

    Corrade::Containers::Array<Node> _nodes;
};

template<class Number> bool AncestryForest<Number>::isTopOfPiece(Number node) const {
    const Number parent = _nodes[node].parent;
    return parent == None || (_nodes[parent].children[0] != node && _nodes[parent].children[1] != node);
}

template<class Number> void AncestryForest<Number>::rotate(Number node) {
    const Number parent = _nodes[node].parent;
    const Number grandparent = _nodes[parent].parent;
    const bool isDeeper = _nodes[parent].children[1] == node;
    if(!isTopOfPiece(parent)) _nodes[grandparent].children[_nodes[grandparent].children[1] == parent] = node;
    const Number inner = _nodes[node].children[!isDeeper];
    _nodes[parent].children[isDeeper] = inner;
    if(inner != None) _nodes[inner].parent = parent;
    _nodes[node].children[!isDeeper] = parent;
    _nodes[parent].parent = node;
    _nodes[node].parent = grandparent;
}

template<class Number> void AncestryForest<Number>::splay(Number node) {
    while(!isTopOfPiece(node)) {
        const Number parent = _nodes[node].parent;
        if(!isTopOfPiece(parent)) {
            const Number grandparent = _nodes[parent].parent;
            const bool isStraight = (_nodes[grandparent].children[1] == parent) == (_nodes[parent].children[1] == node);
            rotate(isStraight ? parent : node);
        }
        rotate(node);
    }
}

template<class Number> void AncestryForest<Number>::expose(Number node) {
    Number below = None;
    for(Number above = node; above != None; above = _nodes[above].parent) {
        splay(above);
        _nodes[above].children[1] = below;
        below = above;
    }
    splay(node);
}

template<class Number> void AncestryForest<Number>::link(Number root, Number parent) {
    // The root of a tree is the least deep of its piece: once on top, it has the place above the piece free.
    splay(root);
    _nodes[root].parent = parent;
}

template<class Number> void AncestryForest<Number>::cut(Number node) {
    expose(node);
    const Number path = _nodes[node].children[0];
    _nodes[path].parent = None;
    _nodes[node].children[0] = None;
}

template<class Number> bool AncestryForest<Number>::isAboveOrSame(Number above, Number node) {
    // On top of its tree now, and it stays there unless the other one is in its piece.
    expose(node);
    splay(above);
    return above == node || _nodes[node].parent != None;
}

} // namespace VantrelEngine
