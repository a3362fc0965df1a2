#include "Panels/Outliner/TourTree.h"

#include <algorithm>
#include <map>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

// The same, walked from the root for each answer.
struct NaiveTree {
    std::map<Id, std::vector<Id>> children{{RootObject, {}}};
    std::map<Id, Id> parents;
    std::map<Id, bool> folded;

    struct Row {
        Id object;
        std::size_t depth;
        bool operator==(const Row& other) const { return object == other.object && depth == other.depth; }
    };

    void addRows(Id parent, std::size_t depth, std::vector<Row>& rows) const {
        for(const Id child: children.at(parent)) {
            rows.push_back({child, depth});
            const auto found = folded.find(child);
            if(found == folded.end() || !found->second) addRows(child, depth + 1, rows);
        }
    }
    std::vector<Row> rows() const {
        std::vector<Row> rows;
        addRows(RootObject, 0, rows);
        return rows;
    }
    bool isAbove(Id above, Id object) const {
        for(; object != RootObject; object = parents.at(object))
            if(object == above) return true;
        return above == RootObject;
    }
    void remove(Id object) {
        std::vector<Id>& siblings = children[parents[object]];
        siblings.erase(std::find(siblings.begin(), siblings.end(), object));
    }
    // Behind a sibling, which it returns.
    Id insert(Id object, Id parent, std::size_t position) {
        std::vector<Id>& siblings = children[parent];
        position = std::min(position, siblings.size());
        const Id previous = position ? siblings[position - 1] : Id(NoObject);
        siblings.insert(siblings.begin() + std::ptrdiff_t(position), object);
        children[object];
        parents[object] = parent;
        return previous;
    }
};

void expectSame(const TourTree& tree, const NaiveTree& naive) {
    const std::vector<NaiveTree::Row> rows = naive.rows();
    ASSERT_EQ(tree.rowCount(), rows.size());
    for(std::size_t i = 0; i != rows.size(); ++i) {
        ASSERT_EQ(tree.objectOf(i), rows[i].object) << i;
        ASSERT_EQ(tree.depthOf(rows[i].object), rows[i].depth) << i;
        ASSERT_EQ(tree.rowOf(rows[i].object), i);
    }
    for(const auto& object: naive.parents) {
        const bool isRow =
            std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.object == object.first; });
        ASSERT_EQ(bool(tree.rowOf(object.first)), isRow);
    }
}

void enterAll(TourTree& tree, const NaiveTree& naive, Id object) {
    tree.enter(object);
    for(const Id child: naive.children.at(object)) enterAll(tree, naive, child);
    tree.leave(object);
}

TEST(TourTreeTest, AnEmptyOneHasNoRows) {
    const TourTree tree;
    EXPECT_EQ(tree.rowCount(), 0u);
    EXPECT_FALSE(tree.rowOf(RootObject));
    EXPECT_FALSE(tree.rowOf(5));
}

TEST(TourTreeTest, FoldsAreCountedWhenPiecesMove) {
    TourTree tree;
    tree.insert(1, RootObject, NoObject);
    tree.insert(2, 1, NoObject);
    tree.insert(3, 2, NoObject);
    tree.setFolded(1, true);
    tree.setFolded(2, true);
    EXPECT_EQ(tree.rowCount(), 1u);
    tree.cut(2);
    tree.insert(2, RootObject, 1);
    EXPECT_EQ(tree.rowCount(), 2u);
    EXPECT_EQ(tree.objectOf(1), 2);
    EXPECT_EQ(tree.depthOf(3), 1u);
    tree.setFolded(2, false);
    EXPECT_EQ(tree.rowOf(3), 2u);
    tree.cut(2);
    tree.insert(2, 1, NoObject);
    EXPECT_EQ(tree.rowCount(), 1u);
    tree.setFolded(1, false);
    EXPECT_EQ(tree.rowCount(), 3u);
}

TEST(TourTreeTest, RandomEditsAreThoseOfANaiveTree) {
    std::mt19937 random{7};
    TourTree tree;
    NaiveTree naive;
    std::vector<Id> objects;
    const auto any = [&](std::size_t count) { return std::size_t(random() % count); };
    const auto anyParent = [&] {
        return objects.empty() || any(5) == 0 ? Id(RootObject) : objects[any(objects.size())];
    };
    Id next = 1;
    for(int i = 0; i != 3000; ++i) {
        switch(any(6)) {
        case 0:
        case 1: {
            const Id parent = anyParent();
            tree.insert(next, parent, naive.insert(next, parent, any(4)));
            objects.push_back(next++);
            break;
        }
        case 2:
        case 3: {
            if(objects.empty()) break;
            const Id object = objects[any(objects.size())];
            naive.folded[object] = !naive.folded[object];
            tree.setFolded(object, naive.folded[object]);
            EXPECT_EQ(tree.isFolded(object), naive.folded[object]);
            break;
        }
        case 4: {
            if(objects.empty()) break;
            const Id object = objects[any(objects.size())], parent = anyParent();
            if(naive.isAbove(object, parent)) break;
            naive.remove(object);
            tree.cut(object);
            tree.insert(object, parent, naive.insert(object, parent, any(4)));
            break;
        }
        case 5: {
            // One without children goes.
            if(objects.size() < 40) break;
            const std::size_t which = any(objects.size());
            const Id object = objects[which];
            if(!naive.children[object].empty()) break;
            naive.remove(object);
            naive.parents.erase(object);
            naive.folded.erase(object);
            tree.cut(object);
            tree.forget(object);
            objects.erase(objects.begin() + std::ptrdiff_t(which));
            break;
        }
        }
        if(i % 20 == 0) expectSame(tree, naive);
    }
    expectSame(tree, naive);
    EXPECT_GT(naive.rows().size(), 10u) << "the test would look at nothing";

    // Built at once.
    tree.beginBuild(next);
    enterAll(tree, naive, RootObject);
    tree.endBuild();
    expectSame(tree, naive);
}

} // namespace

} // namespace VantrelEngine
