#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../../../../../editor/Data/Test/SessionFixture.h"
#include "Views/SceneView/Drop/Assignment.h"

namespace {

using namespace Corrade;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* Said = "Cannot set material on object without mesh component!\n";

class AssignmentTest: public VantrelTest::SessionFixture {
protected:
    AssignmentTest() {
        record("/shaders/lit",
            "{'name': 'Lit', 'stage': 'mesh', 'parameters': [{'name': 'color', 'type': 'color'},"
            "{'name': 'baseTexture', 'type': 'texture'}, {'name': 'bumps', 'type': 'texture'}]}");
        record(
            "/shaders/plain", "{'name': 'Plain', 'stage': 'mesh', 'parameters': [{'name': 'color', 'type': 'color'}]}");
        record("/pipelines/lit", "{'name': 'Lit', 'shader': 'lit'}");
        record("/pipelines/plain", "{'name': 'Plain', 'shader': 'plain'}");
        record("/materials/red", "{'name': 'Red', 'pipeline': 'lit', 'Lit': {'color': [1, 0, 0]}}");
        record("/materials/blue", "{'name': 'Blue', 'pipeline': 'lit'}");
        record("/materials/flat", "{'name': 'Flat', 'pipeline': 'plain'}");
        record("/materials/none", "{'name': 'None'}");
    }
    static std::string mesh(const std::string& material) {
        return "{'type': 'mesh', 'mesh': {'mesh': 'cube', 'material': '" + material + "'}}";
    }
    void addObject(const std::string& id, const std::string& components) {
        record("/objects/" + id, object("", ", 'components': [" + components + "]"));
        session.update();
    }
    std::string at(const std::string& pointer) {
        const JsonValue* const value = session.data().project().valueByPointer(pointer.c_str());
        return value ? value->IsString() ? value->GetString() : "another value" : "nothing";
    }
    bool assignMaterial(const char* object, const char* material) {
        bool isAssigned = false;
        EXPECT_EQ(printed<Utility::Error>([&] {
            isAssigned = VantrelEngine::assignMaterial(session.data().project(), changes(), object, material);
        }),
            Said);
        EXPECT_EQ(changes().group(), -1);
        return isAssigned;
    }
    bool assignTexture(const char* object, const char* texture) {
        return VantrelEngine::assignTexture(session.data(), changes(), object, texture);
    }
};

TEST_F(AssignmentTest, componentsAreKnownByTheirType) {
    addObject("a", "{'type': 'light'}, 3, {'type': 'mesh'}");
    addObject("b", "");
    record("/objects/c", "{'components': 'mesh'}");
    const ProjectFile& project = session.data().project();
    EXPECT_TRUE(hasComponent(project, "a", "mesh"));
    EXPECT_FALSE(hasComponent(project, "a", "text"));
    for(const char* const id: {"b", "c", "nobody", ""}) EXPECT_FALSE(hasComponent(project, id, "mesh")) << id;
}

TEST_F(AssignmentTest, aMaterialGoesToEachMeshAsOneStep) {
    addObject("a", mesh("red") + ", {'type': 'light'}, " + mesh("flat"));
    const std::string before = document();
    EXPECT_TRUE(assignMaterial("a", "blue"));
    EXPECT_EQ(at("/objects/a/components/0/mesh/material"), "blue");
    EXPECT_EQ(at("/objects/a/components/1/mesh/material"), "nothing");
    EXPECT_EQ(at("/objects/a/components/2/mesh/material"), "blue");
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(AssignmentTest, aMaterialIsMadeRoomFor) {
    addObject("a", "{'type': 'mesh'}, {'type': 'mesh', 'mesh': 'cube'}");
    const std::string before = document();
    EXPECT_TRUE(assignMaterial("a", "blue"));
    EXPECT_EQ(at("/objects/a/components/0/mesh/material"), "blue");
    EXPECT_EQ(at("/objects/a/components/1/mesh"), "cube");
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(AssignmentTest, withoutAMeshNothingIsRecorded) {
    addObject("a", "{'type': 'light'}");
    const std::int32_t last = changes().lastChange();
    EXPECT_FALSE(assignMaterial("a", "blue"));
    EXPECT_FALSE(assignMaterial("nobody", "blue"));
    EXPECT_EQ(changes().lastChange(), last);
}

TEST_F(AssignmentTest, aTextureBecomesTheFirstOneOfTheMaterial) {
    addObject("a", mesh("red") + ", " + mesh("blue"));
    const std::string before = document();
    EXPECT_THAT(texturePlaces(session.data(), "a"),
        ElementsAre("/materials/red/Lit/baseTexture", "/materials/blue/Lit/baseTexture"));
    EXPECT_TRUE(assignTexture("a", "wood"));
    EXPECT_EQ(at("/materials/red/Lit/baseTexture"), "wood");
    EXPECT_EQ(at("/materials/blue/Lit/baseTexture"), "wood");
    EXPECT_EQ(changes().group(), -1);
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(AssignmentTest, materialsThatTakeNoTextureAreLeftAlone) {
    record("/materials/broken", "{'pipeline': 'nowhere'}");
    record("/materials/odd", "{'pipeline': 'lit', 'Lit': 3}");
    addObject("a",
        mesh("flat") + ',' + mesh("none") + ',' + mesh("broken") + ',' + mesh("odd") + ',' + mesh("nobody") + ',' +
            mesh("") + ",{'type': 'mesh'}");
    const std::string before = document();
    const std::int32_t last = changes().lastChange();
    EXPECT_THAT(texturePlaces(session.data(), "a"), IsEmpty());
    EXPECT_FALSE(assignTexture("a", "wood"));
    EXPECT_EQ(changes().lastChange(), last);
    EXPECT_EQ(document(), before);
}

TEST_F(AssignmentTest, namesMayHaveSlashes) {
    record("/shaders/lit/name", "'Lit/2~'");
    record("/materials/a~1b", "{'pipeline': 'lit'}");
    addObject("o~1p~0", mesh("a/b"));
    EXPECT_TRUE(assignTexture("o/p~", "wood"));
    EXPECT_EQ(at("/materials/a~1b/Lit~12~0/baseTexture"), "wood");
    EXPECT_TRUE(assignMaterial("o/p~", "red"));
    EXPECT_EQ(at("/objects/o~1p~0/components/0/mesh/material"), "red");
}

}
