#include "Panels/Outliner/TourTree.h"

#include <algorithm>
#include <limits>

#include <Corrade/Utility/Assert.h>

namespace VantrelEngine {

namespace {

// Of no rows at all; what is added to it does no harm.
constexpr std::int32_t NoFolds = std::numeric_limits<std::int32_t>::max() / 2;

} // namespace

// Scatters the numbers, so that the tree is balanced whatever comes in which order (the finalizer of MurmurHash3).
std::uint32_t TourTree::priority(Index node) {
    std::uint32_t hash = node + 1;
    hash = (hash ^ hash >> 16) * 0x85ebca6bu;
    hash = (hash ^ hash >> 13) * 0xc2b2ae35u;
    return hash ^ hash >> 16;
}

void TourTree::clear() {
    _isFolded.clear();
    beginBuild(1);
    enter(RootObject);
    leave(RootObject);
    endBuild();
}

void TourTree::reserve(Id object) {
    if(object < _isKnown.size()) return;
    const std::size_t objects = std::max<std::size_t>(object + std::size_t{1}, _isKnown.size() * 2);
    _nodes.resize(2 * objects);
    _isKnown.resize(objects);
    _isFolded.resize(objects);
}

void TourTree::resetNode(Index node) {
    _nodes[node] = {};
    update(node);
}

void TourTree::beginBuild(std::size_t objects) {
    std::fill(_isKnown.begin(), _isKnown.end(), 0);
    reserve(Id(std::max<std::size_t>(objects, 1) - 1));
    _isFolded.resize(_isKnown.size());
    _edge.clear();
    _foldsAtEnd = 0;
}

void TourTree::enter(Id object) {
    reserve(object);
    _isKnown[object] = true;
    append(opening(object));
    _foldsAtEnd += isFolded(object);
}

void TourTree::leave(Id object) {
    _foldsAtEnd -= isFolded(object);
    append(closing(object));
}

// Those of less weight at the right edge go below the new one, which is below the others.
void TourTree::append(Index node) {
    resetNode(node);
    _nodes[node].folds = _foldsAtEnd;
    Index below = None;
    while(!_edge.empty() && priority(_edge.back()) < priority(node)) {
        finish(_edge.back(), below);
        below = _edge.back();
        _edge.pop_back();
    }
    _nodes[node].left = below;
    _edge.push_back(node);
}

void TourTree::finish(Index node, Index right) {
    _nodes[node].right = right;
    update(node);
}

void TourTree::endBuild() {
    Index below = None;
    for(; !_edge.empty(); _edge.pop_back()) {
        finish(_edge.back(), below);
        below = _edge.back();
    }
    _root = below;
    _nodes[_root].parent = None;
}

void TourTree::add(Index node, std::int32_t folds) {
    if(node == None) return;
    _nodes[node].folds += folds;
    _nodes[node].leastFolds += folds;
    _nodes[node].pending += folds;
}

void TourTree::push(Index node) {
    Node& top = _nodes[node];
    if(!top.pending) return;
    add(top.left, top.pending);
    add(top.right, top.pending);
    top.pending = 0;
}

// Expects that nothing is pending at the node.
void TourTree::update(Index node) {
    Node& top = _nodes[node];
    top.size = 1;
    top.leastFolds = isRow(node) ? top.folds : NoFolds;
    top.leastCount = isRow(node);
    top.depth = node % 2 ? -1 : 1;
    for(const Index child: {top.left, top.right}) {
        if(child == None) continue;
        Node& below = _nodes[child];
        below.parent = node;
        top.size += below.size;
        top.depth += below.depth;
        if(!below.leastCount || below.leastFolds > top.leastFolds) continue;
        top.leastCount = below.leastCount + (top.leastCount && below.leastFolds == top.leastFolds ? top.leastCount : 0);
        top.leastFolds = below.leastFolds;
    }
}

TourTree::Index TourTree::merge(Index left, Index right) {
    if(left == None) return right;
    if(right == None) return left;
    if(priority(left) > priority(right)) {
        push(left);
        _nodes[left].right = merge(_nodes[left].right, right);
        update(left);
        return left;
    }
    push(right);
    _nodes[right].left = merge(left, _nodes[right].left);
    update(right);
    return right;
}

TourTree::Halves TourTree::split(Index tree, std::size_t count) {
    if(tree == None) return {None, None};
    push(tree);
    const std::size_t before = sizeOf(_nodes[tree].left);
    Halves halves{};
    if(count <= before) {
        halves = split(_nodes[tree].left, count);
        _nodes[tree].left = halves.right;
        halves.right = tree;
    } else {
        halves = split(_nodes[tree].right, count - before - 1);
        _nodes[tree].right = halves.left;
        halves.left = tree;
    }
    update(tree);
    for(const Index half: {halves.left, halves.right})
        if(half != None) _nodes[half].parent = None;
    return halves;
}

TourTree::Index TourTree::rootOf(Index node) const {
    while(_nodes[node].parent != None) node = _nodes[node].parent;
    return node;
}

std::size_t TourTree::positionOf(Index node) const {
    std::size_t position = sizeOf(_nodes[node].left);
    for(Index parent = _nodes[node].parent; parent != None; node = parent, parent = _nodes[node].parent)
        if(_nodes[parent].right == node) position += sizeOf(_nodes[parent].left) + 1;
    return position;
}

std::int32_t TourTree::foldsOf(Index node) const {
    std::int32_t folds = _nodes[node].folds;
    for(Index parent = _nodes[node].parent; parent != None; parent = _nodes[parent].parent)
        folds += _nodes[parent].pending;
    return folds;
}

void TourTree::cut(Id object) {
    CORRADE_ASSERT(isKnown(object) && object != RootObject, "TourTree::cut(): there is no object" << object, );
    const std::int32_t folds = foldsOf(opening(object));
    const Index tree = rootOf(opening(object));
    const bool isWhole = tree == _root;
    const std::size_t first = positionOf(opening(object)), end = positionOf(closing(object)) + 1;
    const Halves behind = split(tree, end), before = split(behind.left, first);
    add(before.right, -folds);
    const Index rest = merge(before.left, behind.right);
    if(rest != None) _nodes[rest].parent = None;
    if(isWhole) _root = rest;
}

void TourTree::insert(Id object, Id parent, Id previous) {
    if(!isKnown(object)) {
        reserve(object);
        _isKnown[object] = true;
        _isFolded[object] = false;
        resetNode(opening(object));
        resetNode(closing(object));
        merge(opening(object), closing(object));
    }
    const Index piece = rootOf(opening(object));
    add(piece, foldsOf(opening(parent)) + isFolded(parent));
    const Index neighbour = previous == NoObject ? opening(parent) : closing(previous);
    const Index tree = rootOf(neighbour);
    const bool isWhole = tree == _root;
    const Halves halves = split(tree, positionOf(neighbour) + 1);
    const Index merged = merge(merge(halves.left, piece), halves.right);
    _nodes[merged].parent = None;
    if(isWhole) _root = merged;
}

void TourTree::forget(Id object) {
    CORRADE_ASSERT(isKnown(object), "TourTree::forget(): there is no object" << object, );
    _isKnown[object] = false;
    _isFolded[object] = false;
}

void TourTree::setFolded(Id object, bool isFolded) {
    if(this->isFolded(object) == isFolded || !isKnown(object)) return;
    _isFolded[object] = isFolded;
    const Index tree = rootOf(opening(object));
    const bool isWhole = tree == _root;
    const std::size_t first = positionOf(opening(object)) + 1, end = positionOf(closing(object));
    const Halves behind = split(tree, end), before = split(behind.left, first);
    add(before.right, isFolded ? 1 : -1);
    const Index merged = merge(merge(before.left, before.right), behind.right);
    _nodes[merged].parent = None;
    if(isWhole) _root = merged;
}

std::size_t TourTree::rowsOf(Index node, std::int32_t added) const {
    return node != None && _nodes[node].leastFolds + added == 0 ? _nodes[node].leastCount : 0;
}

Id TourTree::objectOf(std::size_t row) const {
    CORRADE_ASSERT(row < rowCount(), "TourTree::objectOf(): there is no row" << row << "among" << rowCount(), NoObject);
    std::int32_t added = 0;
    for(Index node = _root;;) {
        const Node& top = _nodes[node];
        const std::int32_t below = added + top.pending;
        const std::size_t before = rowsOf(top.left, below);
        const bool isOwn = isRow(node) && top.folds + added == 0;
        added = below;
        if(row < before)
            node = top.left;
        else if(isOwn && row == before)
            return Id(node / 2);
        else {
            row -= before + isOwn;
            node = top.right;
        }
    }
}

std::optional<std::size_t> TourTree::rowOf(Id object) const {
    if(!isKnown(object) || object == RootObject || foldsOf(opening(object))) return {};
    // What is pending above each of the nodes on the way up is needed from above.
    Index path[128];
    std::size_t length = 0;
    for(Index node = opening(object); node != None && length != 128; node = _nodes[node].parent) path[length++] = node;
    std::size_t row = 0;
    std::int32_t added = 0;
    while(length-- != 0) {
        const Node& top = _nodes[path[length]];
        const std::int32_t below = added + top.pending;
        if(length == 0 || top.right == path[length - 1]) row += rowsOf(top.left, below);
        if(length != 0 && top.right == path[length - 1]) row += isRow(path[length]) && top.folds + added == 0;
        added = below;
    }
    return row;
}

std::size_t TourTree::depthOf(Id object) const {
    Index node = opening(object);
    std::int32_t depth = _nodes[node].left == None ? 0 : _nodes[_nodes[node].left].depth;
    for(Index parent = _nodes[node].parent; parent != None; node = parent, parent = _nodes[node].parent)
        if(_nodes[parent].right == node) depth += _nodes[parent].depth - _nodes[node].depth;
    // The root's bracket is open around all.
    return std::size_t(depth - 1);
}

} // namespace VantrelEngine
