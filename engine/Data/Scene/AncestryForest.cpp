#include "AncestryForest.h"

#include <Corrade/Containers/GrowableArray.h>

namespace VantrelEngine {

void AncestryForest::resize(std::size_t nodes) { arrayResize(_nodes, Corrade::ValueInit, nodes); }

bool AncestryForest::isTopOfPiece(Id node) const {
    const Id parent = _nodes[node].parent;
    return parent == NoObject || (_nodes[parent].children[0] != node && _nodes[parent].children[1] != node);
}

void AncestryForest::rotate(Id node) {
    const Id parent = _nodes[node].parent;
    const Id grandparent = _nodes[parent].parent;
    const bool isDeeper = _nodes[parent].children[1] == node;
    if(!isTopOfPiece(parent)) _nodes[grandparent].children[_nodes[grandparent].children[1] == parent] = node;
    const Id inner = _nodes[node].children[!isDeeper];
    _nodes[parent].children[isDeeper] = inner;
    if(inner != NoObject) _nodes[inner].parent = parent;
    _nodes[node].children[!isDeeper] = parent;
    _nodes[parent].parent = node;
    _nodes[node].parent = grandparent;
}

void AncestryForest::splay(Id node) {
    while(!isTopOfPiece(node)) {
        const Id parent = _nodes[node].parent;
        if(!isTopOfPiece(parent)) {
            const Id grandparent = _nodes[parent].parent;
            const bool isStraight = (_nodes[grandparent].children[1] == parent) == (_nodes[parent].children[1] == node);
            rotate(isStraight ? parent : node);
        }
        rotate(node);
    }
}

void AncestryForest::expose(Id node) {
    Id below = NoObject;
    for(Id above = node; above != NoObject; above = _nodes[above].parent) {
        splay(above);
        _nodes[above].children[1] = below;
        below = above;
    }
    splay(node);
}

void AncestryForest::link(Id root, Id parent) {
    // The root of a tree is the least deep of its piece: once on top, it has the place above the piece free.
    splay(root);
    _nodes[root].parent = parent;
}

void AncestryForest::cut(Id node) {
    expose(node);
    const Id path = _nodes[node].children[0];
    _nodes[path].parent = NoObject;
    _nodes[node].children[0] = NoObject;
}

bool AncestryForest::isAboveOrSame(Id above, Id node) {
    expose(node);
    // The exposed piece is the one without a node above it.
    splay(above);
    return _nodes[above].parent == NoObject;
}

}
