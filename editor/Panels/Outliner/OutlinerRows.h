#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include <Corrade/Containers/StringView.h>

#include "Panels/Outliner/TourTree.h"

namespace VantrelEngine {

struct Scene;

struct OutlinerRow {
    Id object;
    // Ancestors.
    std::size_t depth;
    // False for an ancestor of what is searched for.
    bool isMatch;
};

// What an object is called: its name, or else its id. Valid until the next change of either.
Corrade::Containers::StringView shownName(const Scene& scene, Id object);

// The rows of the outliner. Without a search they are all objects but those below folded ones, and follow what comes, goes
// or moves in logarithmic time each; a large part of all at once is taken over in linear time. With one they are the objects
// whose shown name holds the text, upper and lower case alike, with their ancestors, found anew in linear time when the
// text, a name or the tree changed.
class OutlinerRows {
public:
    // Takes over what changed in the scene, which it alone reads (DynamicSceneGraph::rearranged()).
    void update(Scene& scene, const std::string& search);

    std::size_t count() const { return _isSearch ? _found.size() : _tree.rowCount(); }
    // Expects a row.
    OutlinerRow row(std::size_t index) const;
    // None below a folded object, or where it is not found. Linear in the rows of a search.
    std::optional<std::size_t> rowOf(Id object) const;

    bool isFolded(Id object) const { return !_isSearch && _tree.isFolded(object); }
    void setFolded(const Scene& scene, Id object, bool isFolded);
    // Of all that have something below them. Linear.
    void setAllFolded(const Scene& scene, bool areFolded);
    // Unfolds the ancestors.
    void reveal(const Scene& scene, Id object);
    // Another project: everything is unfolded.
    void forget();

private:
    void build(const Scene& scene);
    void follow(const Scene& scene);
    void place(const Scene& scene, Id object);
    void foldAgain(const Scene& scene);
    void find(const Scene& scene, const std::string& search);

    TourTree _tree;
    bool _isBuilt = false;
    // By their ids in the document, which undo brings back, and in another place of the scene.
    std::unordered_set<std::string> _foldedIds;
    // Of those that are put in their places, by object: whether it waits still.
    std::vector<char> _isWaiting;
    std::vector<Id> _stack;

    bool _isSearch = false;
    std::string _search;
    unsigned _namesSeen = 0;
    std::vector<OutlinerRow> _found;
};

} // namespace VantrelEngine
