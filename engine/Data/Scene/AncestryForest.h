#pragma once

#include <Corrade/Containers/Array.h>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// Answers whether one node is above another in a tree that changes all the time, in amortised logarithmic time: a chain
// of thousands costs no more than a bush. Link-cut trees, from D. D. Sleator and R. E. Tarjan, "A Data Structure for
// Dynamic Trees", 1983, with splay trees.
//
// The tree's paths are split into pieces; each piece is a search tree ordered by depth, and knows the node above it.
class AncestryForest {
public:
    // Nodes; the new ones stand alone.
    void resize(std::size_t nodes);

    // Puts a tree, given by its root, under a node of another tree.
    void link(Id root, Id parent);
    // Takes the node, with all that is below it, from its parent.
    void cut(Id node);
    // Makes the node stand alone. Expects that it, and all that was linked with it, is cut from what stays.
    void reset(Id node) { _nodes[node] = {}; }

    // Whether the node is the other one or above it. Expects that both are in one tree.
    bool isAboveOrSame(Id above, Id node);

private:
    struct Node {
        // In the piece, or, of the topmost one there, the node above the piece.
        Id parent = NoObject;
        // Less deep, deeper.
        Id children[2]{NoObject, NoObject};
    };

    bool isTopOfPiece(Id node) const;
    void rotate(Id node);
    void splay(Id node);
    // Makes the path from the tree's root to the node one piece with the node on top, and nothing deeper in it.
    void expose(Id node);

    Corrade::Containers::Array<Node> _nodes;
};

}
