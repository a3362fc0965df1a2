#include <algorithm>
#include <map>
#include <random>

#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>

#include "Data/Test/SessionFixture.h"

namespace {

using namespace VantrelEngine;
using Corrade::Containers::StringView;

std::string textOf(StringView view) { return {view.data(), view.size()}; }

// Everything of the compiled scene that the document decides, by object; resources by their ids.
std::map<std::string, std::string> stateOf(ProjectSession& session) {
    Scene& scene = session.data().scene().main();
    const SceneResources& resources = session.data().scene().resources();
    std::map<std::string, std::string> state;
    for(std::size_t i = 1; i < scene.size(); ++i) {
        const Id object = scene.toId(i);
        std::string text = textOf(scene.objectIds.nameOf(scene.parent(object))) + "|" +
            textOf(scene.objectNames.nameOf(object)) + "|" + textOf(scene.skinNames.nameOf(object));
        const auto& transformation = scene.localTransformation(object);
        const Magnum::Vector3 translation = transformation.translation();
        for(const float value: translation.data()) text += " " + std::to_string(value);
        for(const float value: scene.localScaling(object).data()) text += " " + std::to_string(value);
        std::vector<std::string> components;
        for(std::size_t j = 0; j != scene.components(object).size(); ++j) {
            const Id component = scene.components(object)[j];
            const auto manager = scene.componentTypes(object)[j];
            std::string line = textOf(scene.componentManager(manager)->name());
            line += scene.componentManager(manager)->isActive(component) ? "+" : "-";
            if(manager == Scene::Mesh && scene.meshes.isActive(component)) {
                line += resources.meshes[scene.meshes.mesh(component)].id + "," +
                    resources.materials[scene.meshes.material(component)].id + "," +
                    resources.pipelines[scene.meshes.groupPipeline(scene.meshes.groupOf(component))].id;
            }
            if(manager == Scene::Input) line += std::to_string(scene.inputs.inputType(component));
            components.push_back(line);
        }
        std::sort(components.begin(), components.end());
        for(const std::string& component: components) text += "\n  " + component;
        state[textOf(scene.objectIds.nameOf(object))] = text;
    }
    EXPECT_EQ(state.size() + 1, scene.size());
    return state;
}

class SessionModelTest: public VantrelTest::SessionFixture, public testing::WithParamInterface<unsigned> {
protected:
    std::mt19937 random{GetParam()};
    unsigned below(unsigned n) { return unsigned(random() % n); }
    std::string someId() { return std::string(1, char('a' + below(12))); }
    std::string someParent() { return below(3) ? someId() : ""; }
    std::string someComponents() {
        static const char* const kinds[]{"{'type': 'input', 'input': {'type': 'mouse'}}",
            "{'type': 'input', 'active': false, 'input': {'type': 'touch'}}",
            "{'type': 'mesh', 'mesh': {'mesh': 'm0', 'material': 'p0', 'skin': ''}}",
            "{'type': 'mesh', 'mesh': {'mesh': 'm1', 'material': 'p1'}}",
            "{'type': 'mesh', 'mesh': {'mesh': 'm1', 'material': 'p0'}}", "{'type': 'script'}"};
        std::string list;
        for(unsigned i = below(4); i != 0; --i) list += (list.empty() ? "" : ",") + std::string{kinds[below(6)]};
        return "[" + list + "]";
    }
    bool has(const std::string& pointer) { return session.data().project().valueByPointer(pointer.c_str()); }

    void editObject() {
        const std::string id = someId(), path = "/objects/" + id;
        if(!has(path)) return record(path, object(someParent(), ", 'components': " + someComponents()));
        switch(below(6)) {
        case 0: return remove(path);
        case 1: return record(path + "/parent", "'" + someParent() + "'");
        case 2: return record(path + "/components", someComponents());
        case 3:
            return changes().recordTransform(path.c_str(),
                Magnum::Matrix4::translation({float(below(9)), 0.0f, 1.0f}) *
                    Magnum::Matrix4::scaling(Magnum::Vector3{float(1 + below(4))}),
                false);
        case 4: return record(path + "/name", "'" + someId() + someId() + "'");
        case 5: return record(path + "/translation/1", std::to_string(below(100)));
        }
    }
    void editResource() {
        const std::string number = std::to_string(below(2));
        switch(below(5)) {
        case 0:
            if(has("/meshes/m" + number)) return remove("/meshes/m" + number);
            return record("/meshes/m" + number, "{'name': 'M', 'primitive': 'cube'}");
        case 1:
            if(has("/materials/p" + number)) return remove("/materials/p" + number);
            return record("/materials/p" + number, "{'name': 'P', 'pipeline': 'l" + number + "'}");
        case 2:
            if(has("/materials/p" + number))
                record("/materials/p" + number + "/pipeline", "'l" + std::to_string(below(3)) + "'");
            return;
        case 3:
            if(has("/pipelines/l" + number)) return remove("/pipelines/l" + number);
            return record("/pipelines/l" + number, "{'name': 'L', 'shader': 'flat', 'features': []}");
        case 4: return record("/settings/rendering/bloom/passes", std::to_string(below(5)));
        }
    }
    void step() {
        switch(below(8)) {
        case 0: return changes().undoLast();
        case 1: return changes().redoLast();
        case 2: {
            changes().beginGroup();
            for(unsigned i = below(5); i != 0; --i) editObject();
            return changes().commit();
        }
        case 3: return editResource();
        default: return editObject();
        }
    }
};

TEST_P(SessionModelTest, isTrueToTheDocumentAfterWhateverSequence) {
    for(int i = 0; i != 400; ++i) {
        printed<Corrade::Utility::Error>([&] {
            printed([&] {
                for(unsigned steps = below(4); steps != 0; --steps) step();
                session.update();
            });
        });
        // A scene that is compiled from the same document anew.
        ProjectSession fresh;
        JsonDocument copy;
        copy.CopyFrom(session.data().project().projectFile(), copy.GetAllocator());
        fresh.data().project().projectFile().Swap(copy);
        fresh.data().project().membersChanged();
        printed([&] {
            fresh.compileResources();
            fresh.compileObjects();
        });
        ASSERT_EQ(stateOf(session), stateOf(fresh)) << "step " << i << "\n" << document();
        ASSERT_EQ(compiler().problems(), fresh.compiler().problems()) << "step " << i << "\n" << document();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SessionModelTest, testing::Range(1u, 17u));

} // namespace
