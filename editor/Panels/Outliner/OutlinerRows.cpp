#include "Panels/Outliner/OutlinerRows.h"

#include <algorithm>

#include <Vantrel/EngineData/Scene.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

// More than this part of all objects at once, and more than a few, is cheaper to be made anew.
constexpr std::size_t RebuiltPart = 16;
constexpr std::size_t Few = 16;

char lowerCase(char letter) { return letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter; }

// The text is in lower case.
bool holds(Containers::StringView name, const std::string& text) {
    return std::search(name.begin(), name.end(), text.begin(), text.end(),
               [](char inName, char inText) { return lowerCase(inName) == inText; }) != name.end();
}

std::string documentId(const Scene& scene, Id object) {
    const Containers::StringView id = scene.objectIds.nameOf(object);
    return {id.data(), id.size()};
}

} // namespace

Containers::StringView shownName(const Scene& scene, Id object) {
    const Containers::StringView name = scene.objectNames.nameOf(object);
    return name.isEmpty() ? scene.objectIds.nameOf(object) : name;
}

void OutlinerRows::update(Scene& scene, const std::string& search) {
    const bool isTreeOther = !_isBuilt || scene.isAnyRearranged();
    if(isTreeOther) {
        if(!_isBuilt || scene.rearranged().countSet() > scene.size() / RebuiltPart + Few)
            build(scene);
        else
            follow(scene);
        foldAgain(scene);
        scene.resetRearranged();
    }

    const unsigned names = scene.objectNames.revision() + scene.objectIds.revision();
    const bool isSearchOther = isTreeOther || search != _search || names != _namesSeen;
    _isSearch = !search.empty();
    _search = search;
    _namesSeen = names;
    if(_isSearch && isSearchOther) find(scene, search);
    if(!_isSearch) _found.clear();
}

void OutlinerRows::build(const Scene& scene) {
    for(std::size_t i = scene.rearranged().findFirstSet(); i != scene.rearranged().size();
        i = scene.rearranged().findFirstSet(i + 1))
        if(!scene.isValid(Id(i)) && _tree.isKnown(Id(i))) _tree.forget(Id(i));
    _tree.beginBuild(scene.size());
    Id object = RootObject;
    _tree.enter(object);
    for(;;) {
        Id next = scene.firstChild(object);
        while(next == NoObject && object != RootObject) {
            _tree.leave(object);
            next = scene.nextSibling(object);
            object = scene.parent(object);
        }
        if(next == NoObject) break;
        object = next;
        _tree.enter(object);
    }
    _tree.leave(RootObject);
    _tree.endBuild();
    _isBuilt = true;
}

void OutlinerRows::follow(const Scene& scene) {
    const BitSetView changed = scene.rearranged();
    _isWaiting.resize(changed.size());
    for(std::size_t i = changed.findFirstSet(); i != changed.size(); i = changed.findFirstSet(i + 1)) {
        if(_tree.isKnown(Id(i))) _tree.cut(Id(i));
        _isWaiting[i] = scene.isValid(Id(i));
    }
    for(std::size_t i = changed.findFirstSet(); i != changed.size(); i = changed.findFirstSet(i + 1)) {
        if(!scene.isValid(Id(i)) && _tree.isKnown(Id(i))) _tree.forget(Id(i));
        if(_isWaiting[i]) place(scene, Id(i));
    }
}

// What was folded when it was deleted, and is there again; and not what has come to the place of one that was folded.
void OutlinerRows::foldAgain(const Scene& scene) {
    const BitSetView changed = scene.rearranged();
    for(std::size_t i = changed.findFirstSet(); i != changed.size(); i = changed.findFirstSet(i + 1)) {
        if(!scene.isValid(Id(i))) continue;
        if(_foldedIds.empty() && !_tree.isFolded(Id(i))) continue;
        const std::string id = documentId(scene, Id(i));
        const bool isFolded = _foldedIds.count(id);
        if(!id.empty() && isFolded != _tree.isFolded(Id(i))) _tree.setFolded(Id(i), isFolded);
    }
}

// After its parent and the sibling in front of it.
void OutlinerRows::place(const Scene& scene, Id object) {
    _stack.assign(1, object);
    while(!_stack.empty()) {
        const Id top = _stack.back(), parent = scene.parent(top), previous = scene.previousSibling(top);
        if(_isWaiting[parent])
            _stack.push_back(parent);
        else if(previous != NoObject && _isWaiting[previous])
            _stack.push_back(previous);
        else {
            _tree.insert(top, parent, previous);
            _isWaiting[top] = false;
            _stack.pop_back();
        }
    }
}

// In index order ancestors come first.
void OutlinerRows::find(const Scene& scene, const std::string& search) {
    std::string text = search;
    std::transform(text.begin(), text.end(), text.begin(), lowerCase);
    enum : char { NotFound, Above, Match };
    std::vector<char> found(MaxObjects + 1, NotFound);
    for(std::size_t i = 1; i != scene.size(); ++i) {
        const Id object = scene.toId(i);
        if(!holds(shownName(scene, object), text)) continue;
        found[object] = Match;
        for(Id above = scene.parent(object); above != RootObject && found[above] == NotFound;
            above = scene.parent(above))
            found[above] = Above;
    }
    _found.clear();
    // Of the last row and its ancestors.
    std::vector<Id> path;
    for(std::size_t i = 1; i != scene.size(); ++i) {
        const Id object = scene.toId(i);
        if(found[object] == NotFound) continue;
        while(!path.empty() && path.back() != scene.parent(object)) path.pop_back();
        _found.push_back({object, path.size(), found[object] == Match});
        path.push_back(object);
    }
}

OutlinerRow OutlinerRows::row(std::size_t index) const {
    if(_isSearch) return _found[index];
    const Id object = _tree.objectOf(index);
    return {object, _tree.depthOf(object), true};
}

std::optional<std::size_t> OutlinerRows::rowOf(Id object) const {
    if(!_isSearch) return _tree.rowOf(object);
    const auto found =
        std::find_if(_found.begin(), _found.end(), [object](const OutlinerRow& row) { return row.object == object; });
    if(found == _found.end()) return {};
    return std::size_t(found - _found.begin());
}

void OutlinerRows::setFolded(const Scene& scene, Id object, bool isFolded) {
    _tree.setFolded(object, isFolded);
    const std::string id = documentId(scene, object);
    if(!isFolded)
        _foldedIds.erase(id);
    else if(!id.empty())
        _foldedIds.insert(id);
}

void OutlinerRows::setAllFolded(const Scene& scene, bool areFolded) {
    _foldedIds.clear();
    for(std::size_t i = 1; i != scene.size(); ++i) {
        const Id object = scene.toId(i);
        setFolded(scene, object, areFolded && scene.firstChild(object) != NoObject);
    }
}

void OutlinerRows::reveal(const Scene& scene, Id object) {
    for(Id above = scene.parent(object); above != RootObject; above = scene.parent(above))
        if(_tree.isFolded(above)) setFolded(scene, above, false);
}

void OutlinerRows::forget() {
    _tree.clear();
    _isBuilt = false;
    _foldedIds.clear();
}

} // namespace VantrelEngine
