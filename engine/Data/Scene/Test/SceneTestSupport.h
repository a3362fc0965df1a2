#pragma once

#include <string>
#include <vector>

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <gtest/gtest.h>

#include <Vantrel/EngineData/ComponentManager.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>

namespace VantrelTest {

// What a function prints on the error output, the redirectable one.
template<class Function> std::string errorsOf(Function&& function) {
    Corrade::Containers::String out;
    {
        Corrade::Utility::Error redirected{&out};
        function();
    }
    return {out.data(), out.size()};
}

// The index order holds every object once, ancestors first, descendants contiguous, and the ids map back.
inline void expectSoundOrder(const VantrelEngine::DynamicSceneGraph& graph) {
    using VantrelEngine::Id;
    std::vector<std::size_t> ends{graph.size()};
    std::vector<Id> path{VantrelEngine::NoObject};
    for(std::size_t i = 0; i != graph.size(); ++i) {
        const Id id = graph.toId(i);
        const VantrelEngine::ObjectData data = graph.objectData(id);
        ASSERT_TRUE(graph.isValid(id));
        ASSERT_EQ(data.index, i);
        ASSERT_EQ(data.parent, graph.parent(id));
        while(ends.size() > 1 && ends.back() == i) {
            ends.pop_back();
            path.pop_back();
        }
        ASSERT_EQ(data.parent, path.back());
        ASSERT_LE(i + 1 + data.descendants, ends.back());
        ends.push_back(i + 1 + data.descendants);
        path.push_back(id);
    }
    for(const std::size_t end: ends) ASSERT_EQ(end, graph.size());
}

// Components with a number each, in groups.
class NumberManager final: public VantrelEngine::ComponentManager {
public:
    using Id = VantrelEngine::Id;

    explicit NumberManager(const char* name = "number", std::size_t capacity = 0, std::size_t groups = 1):
        ComponentManager{name, capacity, groups, [](ComponentManager& manager, Id component) {
                             static_cast<NumberManager&>(manager).forgotten.push_back(component);
                         }} {}

    int& number(Id component) { return _number[slot(component)]; }
    Corrade::Containers::ArrayView<const int> numbers() const { return settled(_number); }
    Corrade::Containers::ArrayView<const double> doubles() const { return settled(_double); }
    double& doubleOf(Id component) { return _double[slot(component)]; }

    using ComponentManager::addGroup;
    using ComponentManager::groupCount;
    using ComponentManager::groupOf;
    using ComponentManager::groupRange;
    using ComponentManager::setGroupOf;

    std::vector<Id> forgotten;

private:
    Field<int> _number{*this, -1};
    Field<double> _double{*this, 0.5};
};

template<class T> std::vector<T> list(Corrade::Containers::ArrayView<const T> view) {
    return {view.begin(), view.end()};
}

}
