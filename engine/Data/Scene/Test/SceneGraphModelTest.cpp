#include <algorithm>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include <Magnum/Math/Functions.h>

#include "SceneTestSupport.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTest;

// The scene as one would write it down: a tree of nodes, walked by recursion, in double precision.
struct Node {
    Id parent;
    std::vector<Id> children;
    Math::Quaternion<Double> rotation;
    Vector3d translation;
    Vector3d scaling{1.0};
    bool dirty = true;
};

class Model {
public:
    Model() { nodes[RootObject] = Node{NoObject, {}, {}, {}}; }

    void add(Id id, Id parent) {
        nodes[id] = Node{parent, {}, {}, {}};
        nodes[parent].children.push_back(id);
    }

    void remove(Id id) {
        const std::vector<Id> children = nodes[id].children;
        for(const Id child: children) remove(child);
        detach(id);
        nodes.erase(id);
    }

    bool isAboveOrSame(Id above, Id id) const {
        return id != NoObject && (id == above || isAboveOrSame(above, nodes.at(id).parent));
    }

    bool reparent(Id id, Id parent) {
        if(nodes[id].parent == parent) return true;
        if(isAboveOrSame(id, parent)) return false;
        detach(id);
        nodes[id].parent = parent;
        nodes[parent].children.push_back(id);
        nodes[id].dirty = true;
        return true;
    }

    void walk(Id id, std::vector<Id>& out) const {
        out.push_back(id);
        for(const Id child: nodes.at(id).children) walk(child, out);
    }

    // Objects that are dirty or below one that is.
    std::size_t countDirty(Id id = RootObject, bool below = false) const {
        below |= nodes.at(id).dirty;
        std::size_t count = below;
        for(const Id child: nodes.at(id).children) count += countDirty(child, below);
        return count;
    }

    Vector3d absoluteScaling(Id id) const {
        const Node& node = nodes.at(id);
        return node.parent == NoObject ? node.scaling : absoluteScaling(node.parent) * node.scaling;
    }

    Math::Quaternion<Double> absoluteRotation(Id id) const {
        const Node& node = nodes.at(id);
        return node.parent == NoObject ? node.rotation : absoluteRotation(node.parent) * node.rotation;
    }

    Vector3d absoluteTranslation(Id id) const {
        const Node& node = nodes.at(id);
        if(node.parent == NoObject) return node.translation;
        return absoluteTranslation(node.parent) +
            absoluteRotation(node.parent).transformVector(absoluteScaling(node.parent) * node.translation);
    }

    std::map<Id, Node> nodes;

private:
    void detach(Id id) {
        std::vector<Id>& siblings = nodes[nodes[id].parent].children;
        siblings.erase(std::find(siblings.begin(), siblings.end(), id));
    }
};

struct Weights {
    const char* name;
    // How likely an addition, a deletion, a reparenting, a transformation, a look is; of 100.
    unsigned add, remove, reparent, transform, look;
    // Parents are taken from this many of the youngest objects; 0 for the root only, large for all.
    std::size_t reach;
};

class SceneGraphModelTest: public testing::TestWithParam<Weights> {};

void expectEqual(const DynamicSceneGraph& graph, const Model& model, bool withTransformations) {
    std::vector<Id> order;
    model.walk(RootObject, order);
    ASSERT_EQ(graph.size(), order.size());
    for(std::size_t i = 0; i != order.size(); ++i) {
        const Id id = order[i];
        ASSERT_EQ(graph.toId(i), id);
        const ObjectData data = graph.objectData(id);
        std::vector<Id> subtree;
        model.walk(id, subtree);
        ASSERT_EQ(data.index, i);
        ASSERT_EQ(data.descendants, subtree.size() - 1);
        ASSERT_EQ(data.parent, model.nodes.at(id).parent);
        ASSERT_EQ(graph.parent(id), data.parent);
        if(!withTransformations) continue;

        const Vector3d scaling = model.absoluteScaling(id), translation = model.absoluteTranslation(id);
        const DualQuaternion absolute = graph.absoluteTransformation(id);
        ASSERT_TRUE(absolute.isNormalized());
        ASSERT_LT((Vector3d{graph.absoluteScaling(id)} - scaling).length(), 1.0e-4 * (1.0 + scaling.length()));
        ASSERT_LT((Vector3d{absolute.translation()} - translation).length(), 1.0e-3 * (1.0 + translation.length()));
        ASSERT_GT(std::abs(Math::dot(Math::Quaternion<Double>{absolute.rotation()}, model.absoluteRotation(id))),
            1.0 - 1.0e-4);
    }
    for(std::size_t id = 0; id < 65536; id += id < 2000 ? 1 : 997)
        ASSERT_EQ(graph.isValid(Id(id)), model.nodes.count(Id(id)) != 0);
}

TEST_P(SceneGraphModelTest, agrees) {
    const Weights& weights = GetParam();
    for(unsigned seed = 0; seed != 3; ++seed) {
        std::mt19937 random{seed};
        std::uniform_real_distribution<Double> number{-1.0, 1.0};
        DynamicSceneGraph graph{1, 0, 0};
        Model model;
        // By age, the youngest last.
        std::vector<Id> ids;
        std::vector<Id> freed;
        for(int step = 0; step != 3000; ++step) {
            const std::size_t reach = std::min(weights.reach, ids.size());
            const Id parent = reach ? ids[ids.size() - 1 - random() % reach] : RootObject;
            const Id id = ids.empty() ? RootObject : ids[random() % ids.size()];
            unsigned what = random() % 100;
            if(ids.empty() || (what < weights.add && ids.size() < 300)) {
                const Id added = graph.addObject(parent);
                ASSERT_FALSE(model.nodes.count(added));
                // The one that was freed first, else a fresh one.
                ASSERT_EQ(added, freed.empty() ? model.nodes.size() : freed.front());
                if(!freed.empty()) freed.erase(freed.begin());
                model.add(added, parent);
                ids.push_back(added);
                continue;
            }
            what -= std::min(what, weights.add);
            if(what < weights.remove) {
                model.walk(id, freed);
                model.remove(id);
                graph.deleteObjects(id);
                ids.erase(
                    std::remove_if(ids.begin(), ids.end(), [&](Id i) { return !model.nodes.count(i); }), ids.end());
            } else if(what < weights.remove + weights.reparent) {
                bool done = false;
                const std::string errors = errorsOf([&] { done = graph.reparent(id, parent); });
                ASSERT_EQ(done, model.reparent(id, parent));
                ASSERT_EQ(errors.empty(), done);
            } else if(what < weights.remove + weights.reparent + weights.transform) {
                Node& node = model.nodes[id];
                node.rotation =
                    Math::Quaternion<Double>{{number(random), number(random), number(random)}, number(random) + 2.0}
                        .normalized();
                node.translation = {number(random), number(random), number(random)};
                node.scaling = {1.0 + number(random) * 0.3, 1.0 + number(random) * 0.3, 1.0 + number(random) * 0.3};
                node.dirty = true;
                graph.localTransformation(id) =
                    DualQuaternion::from(Quaternion{node.rotation}, Vector3{node.translation});
                graph.localScaling(id) = Vector3{node.scaling};
                graph.setDirty(id);
            } else if(random() % 4 == 0) {
                const Vector3d translation = model.absoluteTranslation(id);
                ASSERT_LT((Vector3d{graph.absoluteTransformationSafe(id).translation()} - translation).length(),
                    1.0e-3 * (1.0 + translation.length()));
                graph.computeAbsoluteTransformations();
                for(auto& node: model.nodes) node.second.dirty = false;
            } else {
                if(random() % 2) expectEqual(graph, model, false);
                const std::size_t expected = model.countDirty();
                ASSERT_EQ(graph.computeAbsoluteTransformations(), expected);
                for(auto& node: model.nodes) node.second.dirty = false;
                expectEqual(graph, model, true);
            }
            if(testing::Test::HasFatalFailure()) return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, SceneGraphModelTest,
    testing::Values(Weights{"flat", 40, 10, 5, 30, 5, 0}, Weights{"chain", 45, 5, 15, 25, 5, 1},
        Weights{"bush", 40, 5, 20, 25, 5, 1000}, Weights{"deep", 40, 4, 25, 25, 4, 3},
        Weights{"moving", 20, 2, 60, 10, 4, 1000}, Weights{"dying", 45, 25, 10, 15, 3, 20}),
    [](const testing::TestParamInfo<Weights>& info) { return std::string{info.param.name}; });

}
