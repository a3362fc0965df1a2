#include "AssetCompiler/Test/CompilerFixture.h"

namespace {

using namespace VantrelEngine;

class PendingTest: public VantrelTest::CompilerFixture {
protected:
    const std::string light = ", 'components': [{'type': 'light', 'light': {'color': [1, 1, 1], 'intensity': 1,"
                              "'type': 'sun', 'outerAngle': 0, 'innerAngle': 0, 'shadows': false, 'shadowRange': 0,"
                              "'shadowBias': 0, 'shadowNormalBias': 0, 'shadowTexelSize': 0}}]";
};

TEST_F(PendingTest, eachObjectIsCompiledOnceAndComponentsOnlyWhereTheyChanged) {
    setObjects(object("a") + "," + object("b"));
    compiler.compileAll(true);
    setObjects(object("a", "", light) + "," + object("b", "", light));
    compiler.setPending("a", false);
    compiler.setPending("b", false);
    compiler.setPending("b", true);
    compiler.setPending("b", false);
    EXPECT_TRUE(compiler.isPending());
    EXPECT_TRUE(data.scene().isAssetTypeDirty());
    EXPECT_TRUE(compiler.compilePending());
    EXPECT_FALSE(compiler.isPending());
    EXPECT_FALSE(data.scene().isAssetTypeDirty());
    EXPECT_EQ(compiler.compiledObjectCount(), 4u);
    EXPECT_EQ(compiler.compiledComponentsCount(), 3u);
    EXPECT_EQ(componentsOf("a").size(), 0u);
    EXPECT_EQ(componentsOf("b").size(), 1u);
    // Nothing is left to do.
    const std::uint32_t revision = data.scene().revisions().revision();
    compiler.compilePending();
    EXPECT_EQ(compiler.compiledObjectCount(), 4u);
    EXPECT_EQ(data.scene().revisions().revision(), revision);
}

TEST_F(PendingTest, compilingAnObjectTakesItOut) {
    setObjects(object("a") + "," + object("b") + "," + object("c"));
    compiler.compileAll(true);
    compiler.setPending("a", true);
    compiler.setPending("b", false);
    compiler.setPending("c", true);
    compile({"a"}, true);
    compile({"b", "c"}, false);
    EXPECT_EQ(compiler.compiledObjectCount(), 6u);
    // The components of c were not compiled.
    EXPECT_TRUE(compiler.isPending());
    compiler.compilePending();
    EXPECT_EQ(compiler.compiledObjectCount(), 7u);
    EXPECT_EQ(compiler.compiledComponentsCount(), 5u);
}

TEST_F(PendingTest, whatWasWrittenAlreadyIsNotWrittenAgain) {
    setObjects(object("a") + "," + object("b"));
    compiler.compileAll(true);
    compiler.setPending("a", false);
    compiler.setPending("b", true);
    compiler.setWritten("a");
    compiler.setWritten("b");
    compiler.setWritten("unknown");
    compiler.compilePending();
    EXPECT_EQ(compiler.compiledObjectCount(), 3u);
    EXPECT_EQ(compiler.compiledComponentsCount(), 3u);
    // It may come back in the next frame.
    compiler.setPending("a", false);
    compiler.compilePending();
    EXPECT_EQ(compiler.compiledObjectCount(), 4u);
}

TEST_F(PendingTest, anObjectThatIsNewGetsItsComponents) {
    setObjects(object("a", "", light));
    compiler.setPending("a", false);
    compiler.compilePending();
    EXPECT_EQ(componentsOf("a").size(), 1u);
}

TEST_F(PendingTest, aChildThatLeftItsParentSurvivesIt) {
    setObjects(object("parent") + "," + object("child", "parent") + "," + object("grandchild", "child"));
    compiler.compileAll(true);
    const Id child = objectOf("child"), grandchild = objectOf("grandchild");
    setObjects(object("child") + "," + object("grandchild", "child"));
    compiler.setPending("parent", true);
    compiler.setPending("child", false);
    compiler.compilePending();
    EXPECT_EQ(scene.size(), 3u);
    EXPECT_EQ(objectOf("child"), child);
    EXPECT_EQ(objectOf("grandchild"), grandchild);
    EXPECT_EQ(parentOf("child"), "");
}

TEST_F(PendingTest, aChildThatStaysInTheDocumentGoesToTheRoot) {
    setObjects(object("parent") + "," + object("child", "parent", light) + "," + object("grandchild", "child"));
    compiler.compileAll(true);
    const Id child = objectOf("child");
    data.selectObject(child, true);
    setObjects(object("child", "parent", light) + "," + object("grandchild", "child"));
    compiler.setPending("parent", true);
    compiler.compilePending();
    EXPECT_EQ(scene.size(), 3u);
    EXPECT_EQ(objectOf("child"), child);
    EXPECT_TRUE(data.isSelected(child));
    EXPECT_EQ(parentOf("child"), "");
    EXPECT_EQ(parentOf("grandchild"), "child");
    EXPECT_EQ(componentsOf("child").size(), 1u);
}

TEST_F(PendingTest, anObjectMovesBelowOneThatIsNew) {
    setObjects(object("old"));
    compiler.compileAll(true);
    const Id old = objectOf("old");
    setObjects(object("old", "new") + "," + object("new", "", light));
    compiler.setPending("old", false);
    compiler.setPending("new", true);
    compiler.compilePending();
    EXPECT_EQ(objectOf("old"), old);
    EXPECT_EQ(parentOf("old"), "new");
    EXPECT_EQ(componentsOf("new").size(), 1u);
    EXPECT_EQ(compiler.compiledObjectCount(), 3u);
}

TEST_F(PendingTest, anObjectMovesBelowItsDescendantThatLeavesWithAnother) {
    for(const auto& order: {std::vector<const char*>{"a", "b"}, std::vector<const char*>{"b", "a"}}) {
        setObjects(object("a") + "," + object("b", "a") + "," + object("c", "b") + "," + object("d", "c"));
        compiler.compileAll(true);
        const Id a = objectOf("a");
        setObjects(object("a", "d") + "," + object("b") + "," + object("c", "b") + "," + object("d", "c"));
        for(const char* const id: order) compiler.setPending(id, false);
        EXPECT_EQ(printed<Corrade::Utility::Error>([this] { compiler.compilePending(); }), "");
        EXPECT_EQ(objectOf("a"), a);
        EXPECT_EQ(parentOf("a"), "d");
        EXPECT_EQ(parentOf("d"), "c");
        EXPECT_EQ(parentOf("b"), "");
        EXPECT_EQ(compiler.compiledObjectCount() % 6, 0u);
    }
}

TEST_F(PendingTest, ancestorsAndDescendantsChangePlaces) {
    // What is above in the end is below as long as one in between, or one that is gone, has not moved.
    for(const auto& order:
        {std::vector<const char*>{"a", "b", "c"}, {"a", "c", "b"}, {"b", "a", "c"}, {"c", "a", "b"}}) {
        setObjects(object("a") + "," + object("b", "a") + "," + object("c", "b") + "," + object("d", "c"));
        compiler.compileAll(true);
        const Id a = objectOf("a"), d = objectOf("d");
        setObjects(object("a", "d") + "," + object("b") + "," + object("d"));
        for(const char* const id: order) compiler.setPending(id, false);
        compiler.setPending("d", false);
        compiler.compilePending();
        EXPECT_EQ(parentOf("a"), "d");
        EXPECT_EQ(parentOf("b"), "");
        EXPECT_EQ(parentOf("d"), "");
        EXPECT_EQ(objectOf("a"), a);
        EXPECT_EQ(objectOf("d"), d);
        setObjects("");
        for(const char* const id: {"a", "b", "c", "d"}) compiler.setPending(id, true);
        compiler.compilePending();
        ASSERT_EQ(scene.size(), 1u);
    }
}

TEST_F(PendingTest, aSceneIsReplacedWholeWithoutRoomForBoth) {
    const auto objects = [](const char* prefix) {
        std::string text;
        for(std::size_t i = 0; i != MaxObjects; ++i) text += (i ? "," : "") + object(prefix + std::to_string(i));
        return text;
    };
    setObjects(objects("a"));
    compiler.compileAll(true);
    setObjects(objects("b"));
    for(std::size_t i = 0; i != MaxObjects; ++i) {
        compiler.setPending(("a" + std::to_string(i)).c_str(), true);
        compiler.setPending(("b" + std::to_string(i)).c_str(), true);
    }
    compiler.compilePending();
    EXPECT_EQ(scene.size(), MaxObjects + 1);
    EXPECT_EQ(compiler.objectIds().size(), MaxObjects);
    EXPECT_NE(objectOf("b65533"), RootObject);
    EXPECT_TRUE(compiler.problems().empty());
}

TEST_F(PendingTest, inAFullSceneANewParentTakesThePlaceOfWhatIsDeleted) {
    std::string rest;
    for(std::size_t i = 0; i != MaxObjects - 2; ++i) rest += "," + object(std::to_string(i));
    setObjects(object("x") + "," + object("y") + rest);
    compiler.compileAll(true);
    const Id y = objectOf("y");
    ASSERT_EQ(scene.size(), MaxObjects + 1);
    setObjects(object("new") + "," + object("y", "new") + rest);
    for(const char* const id: {"y", "new", "x"}) compiler.setPending(id, true);
    EXPECT_EQ(printed<Corrade::Utility::Error>([this] { compiler.compilePending(); }), "");
    EXPECT_EQ(scene.size(), MaxObjects + 1);
    EXPECT_EQ(objectOf("y"), y);
    EXPECT_EQ(parentOf("y"), "new");
    EXPECT_FALSE(compiler.isPending());
    EXPECT_TRUE(compiler.problems().empty());

    // One that finds no place is not tried again before it is noted again.
    setObjects(object("new") + "," + object("y", "new") + "," + object("more") + rest);
    compiler.setPending("more", true);
    printed<Corrade::Utility::Error>([this] { compiler.compilePending(); });
    EXPECT_EQ(problem("more", -1), "the scene is full");
    EXPECT_FALSE(compiler.isPending());
}

TEST_F(PendingTest, anIdThatCameAndWentLeavesNothingBehind) {
    setObjects("");
    compiler.setPending("a", true);
    compiler.compilePending();
    EXPECT_EQ(compiler.objectIds().size(), 0u);
    // Deleted by other means while it was noted.
    setObjects(object("a"));
    compiler.compileAll(true);
    compiler.setPending("a", true);
    setObjects("");
    compile({"a"});
    compiler.compilePending();
    EXPECT_EQ(compiler.objectIds().size(), 0u);
}

TEST_F(PendingTest, theRevisionMovesAndAspectsOnlyWhereTheyChanged) {
    SceneRevisions& revisions = data.scene().revisions();
    const auto before = [&] {
        revisions.acknowledge();
        return revisions.revision();
    };
    setObjects(object("a") + "," + object("b"));
    compiler.compileAll(true);
    std::uint32_t seen = before();
    compile({"a"});
    EXPECT_GT(revisions.revision(), seen);
    EXPECT_EQ(revisions.counter(Aspect::Draws), seen);
    EXPECT_EQ(revisions.counter(Aspect::Lights), seen);

    seen = before();
    setObjects(object("a", "", light) + "," + object("b"));
    compile({"a"});
    EXPECT_GT(revisions.counter(Aspect::Lights), seen);
    EXPECT_EQ(revisions.counter(Aspect::Draws), seen);

    seen = before();
    setObjects(object("b"));
    compile({"a"});
    EXPECT_GT(revisions.counter(Aspect::Lights), seen);
}

} // namespace
