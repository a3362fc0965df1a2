#include <functional>

#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "Data/Test/SessionFixture.h"

namespace {

using namespace VantrelEngine;
using Magnum::Matrix4;
using Magnum::Vector3;
using testing::ElementsAre;
using testing::IsEmpty;

class ProjectListenerTest: public VantrelTest::SessionFixture {
protected:
    const std::string mesh =
        ", 'components': [{'type': 'mesh', 'mesh': {'mesh': 'box', 'material': 'paint', 'skin': ''}}]";

    void addObjects(std::initializer_list<const char*> ids) {
        for(const char* const id: ids) record(std::string{"/objects/"} + id, object());
        update();
    }
    void addMeshResources() {
        record("/meshes/box", "{'name': 'Box', 'primitive': 'cube'}");
        record("/shaders/glow",
            "{'name': 'Glow', 'stage': 'mesh', 'vertex': '', 'fragment': '', 'parameters':"
            "[{'name': 'color', 'type': 'color'}]}");
        record("/pipelines/p", "{'name': 'P', 'shader': 'glow', 'features': []}");
        record("/materials/paint", "{'name': 'Paint', 'pipeline': 'p', 'Glow': {}}");
        printed([this] { session.update(); });
    }
};

TEST_F(ProjectListenerTest, aChangeIsCompiledOnceBeforeTheNextFrame) {
    addObjects({"a", "b"});
    EXPECT_EQ(update(), (Compiled{0, 0}));
    for(int i = 0; i != 3; ++i) record("/objects/a/translation", "[1, 2, " + std::to_string(i) + "]");
    record("/objects/a/name", "'Other'");
    EXPECT_EQ(scene.localTransformation(objectOf("a")).translation(), Vector3{});
    EXPECT_EQ(update(), (Compiled{1, 0}));
    EXPECT_EQ(scene.localTransformation(objectOf("a")).translation(), (Vector3{1.0f, 2.0f, 2.0f}));
    EXPECT_EQ(update(), (Compiled{0, 0}));
}

TEST_F(ProjectListenerTest, whatConcernsComponentsCompilesThem) {
    addObjects({"a"});
    for(const char* const key: {"translation", "rotation", "scaling"}) {
        record(std::string{"/objects/a/"} + key, key == std::string{"rotation"} ? "[0, 0, 0, 1]" : "[1, 1, 1]");
        EXPECT_EQ(update(), (Compiled{1, 0})) << key;
    }
    for(const char* const key: {"parent", "name", "skin"}) {
        record(std::string{"/objects/a/"} + key, "''");
        EXPECT_EQ(update(), (Compiled{1, 0})) << key;
    }
    record("/objects/a/translation/1", "5");
    EXPECT_EQ(update(), (Compiled{1, 0}));
    record("/objects/a/components", "[{'type': 'input', 'input': {'type': 'mouse'}}]");
    EXPECT_EQ(update(), (Compiled{1, 1}));
    record("/objects/a/components/0/active", "false");
    EXPECT_EQ(update(), (Compiled{1, 1}));
    record("/objects/a", object());
    EXPECT_EQ(update(), (Compiled{1, 1}));
}

TEST_F(ProjectListenerTest, thePositionOfAKeyDecides) {
    const auto whatChanges = [this](const char* path, const char* value) {
        return aspectsChangedBy([&] { record(path, value); });
    };
    // Objects that are called like top-level keys, and a member of the settings that is called like one.
    for(const char* const id: {"settings", "objects", "meshes", "0", "translation"}) {
        const std::string path = std::string{"/objects/"} + id;
        EXPECT_THAT(whatChanges(path.c_str(), object().c_str()), IsEmpty()) << id;
        EXPECT_NE(objectOf(id), RootObject);
        record(path + "/translation", "[7, 0, 0]");
        EXPECT_EQ(update(), (Compiled{1, 0})) << id;
    }
    record("/settings/objects", "{'settings': 1}");
    EXPECT_EQ(update(), (Compiled{0, 0}));
    EXPECT_THAT(whatChanges("/settings/objects/settings", "2"), ElementsAre(Aspect::Settings));
    EXPECT_EQ(objectOf("settings/objects"), RootObject);
    record("/elsewhere", "{'objects': {}}");
    record("/elsewhere/objects/a", object().c_str());
    EXPECT_EQ(update(), (Compiled{0, 0}));
}

TEST_F(ProjectListenerTest, idsThatArePointersInThemselves) {
    const struct {
        const char* token;
        const char* id;
    } rows[]{{"a~1b", "a/b"}, {"a~0b", "a~b"}, {"~01", "~1"}, {"12", "12"}, {"{}", "{}"}, {"50%25", "50%25"}};
    for(const auto& row: rows) {
        const std::string path = std::string{"/objects/"} + row.token;
        record(path, object());
        EXPECT_EQ(update(), (Compiled{1, 1}));
        ASSERT_NE(objectOf(row.id), RootObject) << row.id;
        changes().recordVector3((path + "/translation").c_str(), {1.0f, 2.0f, 3.0f}, false);
        EXPECT_EQ(update(), (Compiled{1, 0}));
        EXPECT_EQ(scene.localTransformation(objectOf(row.id)).translation(), (Vector3{1.0f, 2.0f, 3.0f}));
        remove(path);
        update();
        EXPECT_EQ(objectOf(row.id), RootObject);
    }
    EXPECT_EQ(scene.size(), 1u);
}

TEST_F(ProjectListenerTest, aDragIsCompiledFrameByFrameAndUndoneInOneStep) {
    addObjects({"a", "b", "c"});
    const std::string before = document();
    for(int frame = 1; frame <= 5; ++frame) {
        changes().beginGroup(77, frame > 1);
        for(const char* const id: {"a", "b"})
            changes().recordTransform(
                ("/objects/" + std::string{id}).c_str(), Matrix4::translation({float(frame), 0.0f, 0.0f}), true);
        EXPECT_FALSE(compiler().isPending());
        changes().commit();
        EXPECT_EQ(update(), (Compiled{2, 0}));
        EXPECT_EQ(scene.localTransformation(objectOf("b")).translation().x(), float(frame));
    }
    changes().undoLast();
    EXPECT_EQ(update(), (Compiled{2, 0}));
    EXPECT_EQ(document(), before);
    EXPECT_EQ(scene.localTransformation(objectOf("a")).translation(), Vector3{});
    changes().redoLast();
    EXPECT_EQ(update(), (Compiled{2, 0}));
    EXPECT_EQ(scene.localTransformation(objectOf("a")).translation().x(), 5.0f);
}

TEST_F(ProjectListenerTest, whatADragWroteIsNotWrittenAgain) {
    addObjects({"a", "b"});
    changes().beginGroup(1, false);
    for(const char* const id: {"a", "b"})
        changes().recordTransform(("/objects/" + std::string{id}).c_str(), Matrix4{}, true);
    changes().commit();
    compiler().setWritten("a");
    EXPECT_EQ(update(), (Compiled{1, 0}));
}

TEST_F(ProjectListenerTest, aChildThatIsMovedOutSurvivesItsParent) {
    addObjects({"p"});
    record("/objects/c", object("p"));
    record("/objects/d", object("c"));
    update();
    const Id c = objectOf("c"), d = objectOf("d");
    changes().beginGroup();
    remove("/objects/p");
    record("/objects/c/parent", "''");
    changes().commit();
    update();
    EXPECT_EQ(objectOf("c"), c);
    EXPECT_EQ(objectOf("d"), d);
    EXPECT_EQ(objectOf("p"), RootObject);
    changes().undoLast();
    update();
    EXPECT_EQ(parentOf("c"), "p");
    EXPECT_EQ(objectOf("c"), c);
    EXPECT_EQ(objectOf("d"), d);
}

TEST_F(ProjectListenerTest, undoOfAGroupOfDeletionsBringsTheTreeBack) {
    addObjects({"p"});
    record("/objects/c", object("p", mesh));
    update();
    const std::string before = document();
    changes().beginGroup();
    remove("/objects/p");
    remove("/objects/c");
    changes().commit();
    update();
    EXPECT_EQ(scene.size(), 1u);
    changes().undoLast();
    EXPECT_EQ(update(), (Compiled{2, 2}));
    EXPECT_EQ(parentOf("c"), "p");
    EXPECT_EQ(scene.meshes.size(), 1u);
    EXPECT_EQ(scene.size(), 3u);
}

TEST_F(ProjectListenerTest, aResourceThatComesLaterCompilesJustItsUsers) {
    record("/objects/a", object("", mesh));
    record("/objects/b", object("", mesh));
    record("/objects/c", object());
    update();
    EXPECT_FALSE(scene.meshes.isActive(scene.components(objectOf("a"))[0]));
    EXPECT_EQ(compiler().problems().size(), 2u);
    addMeshResources();
    EXPECT_TRUE(scene.meshes.isActive(scene.components(objectOf("a"))[0]));
    EXPECT_NE(scene.meshes.mesh(scene.components(objectOf("b"))[0]), 0);
    EXPECT_THAT(compiler().problems(), IsEmpty());

    // A colour concerns no object, another pipeline does, and undo of it, too.
    record("/materials/paint/Glow", "{'color': [1, 0, 0, 1]}");
    EXPECT_EQ(update(), (Compiled{0, 0}));
    record("/pipelines/q", "{'name': 'Q', 'shader': 'glow', 'features': []}");
    EXPECT_EQ(update(), (Compiled{0, 0}));
    record("/materials/paint/pipeline", "'q'");
    EXPECT_EQ(update(), (Compiled{2, 2}));
    changes().undoLast();
    EXPECT_EQ(update(), (Compiled{2, 2}));
    remove("/meshes/box");
    EXPECT_EQ(update(), (Compiled{2, 2}));
    EXPECT_EQ(scene.meshes.mesh(scene.components(objectOf("a"))[0]), 0);
}

TEST_F(ProjectListenerTest, anObjectThatLeftAResourceIsNotCompiledForIt) {
    record("/objects/a", object("", mesh));
    addMeshResources();
    record("/objects/a/components/0/mesh/mesh", "''");
    update();
    remove("/meshes/box");
    EXPECT_EQ(update(), (Compiled{0, 0}));
}

TEST_F(ProjectListenerTest, aspectsFollowWhatChanged) {
    addObjects({"a"});
    EXPECT_THAT(aspectsChangedBy([&] { record("/objects/a/translation", "[1, 0, 0]"); }), IsEmpty());
    EXPECT_THAT(
        aspectsChangedBy([&] { record("/settings/rendering", "{'usePreZ': true}"); }), ElementsAre(Aspect::Settings));
    printed([this] { addMeshResources(); });
    EXPECT_THAT(aspectsChangedBy([&] { record("/objects/a", object("", mesh)); }), ElementsAre(Aspect::Draws));
    EXPECT_THAT(aspectsChangedBy([&] { remove("/objects/a"); }), ElementsAre(Aspect::Draws));
    EXPECT_THAT(aspectsChangedBy([&] { record("/materials/paint/Glow", "{'color': [1, 0, 0, 1]}"); }),
        ElementsAre(Aspect::Materials));
}

TEST_F(ProjectListenerTest, allObjectsMayBeReplacedAtOnce) {
    addObjects({"a", "b", "c"});
    const Id b = objectOf("b");
    record("/objects", "{'b': " + object() + ", 'd': " + object("b") + "}");
    update();
    EXPECT_EQ(scene.size(), 3u);
    EXPECT_EQ(objectOf("b"), b);
    EXPECT_EQ(parentOf("d"), "b");
    changes().undoLast();
    update();
    EXPECT_EQ(scene.size(), 4u);
    EXPECT_EQ(objectOf("d"), RootObject);
}

TEST_F(ProjectListenerTest, aZeroScalingStaysZeroThroughADrag) {
    record("/objects/a", object());
    record("/objects/a/scaling", "[2, 0, 3]");
    update();
    EXPECT_EQ(scene.localScaling(objectOf("a")), (Vector3{2.0f, SafeScaling, 3.0f}));
    changes().beginGroup(1, false);
    changes().recordTransform("/objects/a",
        Matrix4::translation({5.0f, 0.0f, 0.0f}) * Matrix4::rotationX(Magnum::Rad{0.3f}) *
            scene.localTransformationAsMatrix(objectOf("a")),
        true);
    changes().commit();
    const JsonValue* const scaling = session.data().project().valueByPointer("/objects/a/scaling");
    EXPECT_NEAR((*scaling)[0].GetDouble(), 2.0, 1e-5);
    EXPECT_EQ((*scaling)[1].GetDouble(), 0.0);
    EXPECT_NEAR((*scaling)[2].GetDouble(), 3.0, 1e-5);
    // A factor that is dragged on purpose is another number.
    changes().recordTransform("/objects/a", Matrix4::scaling({2.0f, 0.5f, 3.0f}), false);
    EXPECT_EQ((*session.data().project().valueByPointer("/objects/a/scaling"))[1].GetDouble(), 0.5);
}

} // namespace
