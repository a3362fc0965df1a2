#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Quaternion.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "AssetCompiler/Test/CompilerFixture.h"

namespace {

using namespace VantrelEngine;
using Magnum::Vector3;
using testing::HasSubstr;

class HierarchyTest: public VantrelTest::CompilerFixture {};

TEST_F(HierarchyTest, anObjectGetsItsParentNamesAndTransformation) {
    setObjects(object("house") +
        ", 'lamp': {'parent': 'house', 'name': 'Lamp', 'skin': 'bones',"
        "'translation': [1, 2, 3], 'rotation': [0, 0, 2, 0], 'scaling': [4, 5, 6]}");
    EXPECT_TRUE(compiler.compileAll(true));
    ASSERT_EQ(scene.size(), 3u);
    const Id lamp = objectOf("lamp");
    EXPECT_EQ(scene.parent(lamp), objectOf("house"));
    EXPECT_EQ(scene.parent(objectOf("house")), RootObject);
    EXPECT_EQ(nameAt(scene.objectIds, lamp), "lamp");
    EXPECT_EQ(nameAt(scene.objectNames, lamp), "Lamp");
    EXPECT_EQ(nameAt(scene.skinNames, lamp), "bones");
    EXPECT_EQ(nameAt(scene.skinNames, objectOf("house")), "");
    EXPECT_EQ(scene.localTransformation(lamp).translation(), (Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_EQ(scene.localTransformation(lamp).rotation(), (Magnum::Quaternion{{0.0f, 0.0f, 1.0f}, 0.0f}));
    EXPECT_EQ(scene.localScaling(lamp), (Vector3{4.0f, 5.0f, 6.0f}));
    EXPECT_EQ(scene.absoluteTransformationSafe(lamp).translation(), (Vector3{1.0f, 2.0f, 3.0f}));
}

TEST_F(HierarchyTest, withoutDataItAborts) {
    AssetCompiler without;
    EXPECT_EXIT(without.compileAll(true), testing::KilledBySignal(SIGABRT),
        HasSubstr("Assertion _data != nullptr failed at AssetCompiler.h:89"));
}

TEST_F(HierarchyTest, aParentIsCompiledBeforeItsChildAndKeepsItsObject) {
    setObjects(object("child", "parent") + "," + object("parent", "grandparent") + "," + object("grandparent"));
    compile({"child"});
    EXPECT_EQ(parentOf("child"), "parent");
    EXPECT_EQ(parentOf("parent"), "grandparent");
    const Id parent = objectOf("parent");
    // Ids are given in order: the parents came first.
    EXPECT_LT(objectOf("grandparent"), parent);
    EXPECT_LT(parent, objectOf("child"));
    compile({"parent", "grandparent"});
    EXPECT_EQ(objectOf("parent"), parent);
    EXPECT_EQ(parentOf("child"), "parent");
    EXPECT_EQ(scene.size(), 4u);
}

TEST_F(HierarchyTest, anObjectThatIsGoneIsDeletedWithItsNamesAndItsSelection) {
    setObjects(object("a", "", ", 'skin': 'bones'") + "," + object("b", "a") + "," + object("c"));
    compiler.compileAll(true);
    const Id a = objectOf("a"), b = objectOf("b");
    ASSERT_EQ(nameAt(scene.skinNames, a), "bones");
    data.selectObject(a, true);
    data.selectObject(b, true);
    data.selectObject(objectOf("c"), true);
    setObjects(object("c"));
    compile({"a"});
    EXPECT_FALSE(scene.isValid(a));
    EXPECT_FALSE(scene.isValid(b));
    EXPECT_EQ(data.selection().countSet(), 1u);
    EXPECT_EQ(data.firstSelectedObject(), objectOf("c"));
    EXPECT_EQ(nameAt(scene.objectIds, a) + nameAt(scene.objectNames, a) + nameAt(scene.skinNames, a), "");
    EXPECT_EQ(objectOf("a"), RootObject);
    EXPECT_EQ(objectOf("b"), RootObject);
    const std::uint32_t revision = data.scene().revisions().revision();
    compile({"a"});
    EXPECT_EQ(scene.size(), 2u);
    EXPECT_EQ(data.scene().revisions().revision(), revision);
}

TEST_F(HierarchyTest, anotherParentMovesTheObject) {
    setObjects(object("a") + "," + object("b") + "," + object("c", "a"));
    compiler.compileAll(true);
    const Id c = objectOf("c");
    setObjects(object("a") + "," + object("b") + "," + object("c", "b"));
    compile({"c"});
    EXPECT_EQ(objectOf("c"), c);
    EXPECT_EQ(parentOf("c"), "b");
    setObjects(object("a") + "," + object("b") + "," + object("c"));
    compile({"c"});
    EXPECT_EQ(scene.parent(c), RootObject);
    EXPECT_EQ(scene.size(), 4u);
}

TEST_F(HierarchyTest, parentAndChildChangePlacesInWhateverOrderTheyAreListed) {
    for(const auto& order: {std::vector<std::string>{"a", "b"}, std::vector<std::string>{"b", "a"}}) {
        setObjects(object("a") + "," + object("b", "a"));
        compiler.compileAll(true);
        ASSERT_EQ(parentOf("b"), "a");
        setObjects(object("a", "b") + "," + object("b"));
        compile(order);
        EXPECT_EQ(parentOf("a"), "b");
        EXPECT_EQ(parentOf("b"), "");
    }
}

TEST_F(HierarchyTest, aMissingParentMeansTheRoot) {
    setObjects(object("a", "nobody"));
    compiler.compileAll(true);
    EXPECT_EQ(scene.parent(objectOf("a")), RootObject);
    EXPECT_EQ(problem("a", -1), "its parent does not exist; it is at the root");
    setObjects(object("a", "nobody") + "," + object("nobody"));
    compile({"a"});
    EXPECT_EQ(parentOf("a"), "nobody");
    EXPECT_EQ(problem("a", -1), "");
}

TEST_F(HierarchyTest, aParentThatComesLaterGetsItsChildren) {
    setObjects(object("a", "later") + "," + object("b", "later") + "," + object("c", "later"));
    compiler.compileAll(true);
    compiler.compileAll(true);
    const Id a = objectOf("a");
    // One of them does not want it any more.
    setObjects(object("a", "later") + "," + object("b", "later") + "," + object("c") + "," + object("later"));
    compile({"later"});
    EXPECT_EQ(objectOf("a"), a);
    EXPECT_EQ(parentOf("a"), "later");
    EXPECT_EQ(parentOf("b"), "later");
    EXPECT_EQ(parentOf("c"), "");
    EXPECT_TRUE(compiler.problems().empty());
    // It goes and comes once more.
    setObjects(object("a", "later"));
    compiler.setPending("later", true);
    compiler.compilePending();
    EXPECT_EQ(parentOf("a"), "");
    setObjects(object("a", "later") + "," + object("later"));
    compile({"later"});
    EXPECT_EQ(parentOf("a"), "later");
}

TEST_F(HierarchyTest, aCycleIsBrokenAndNothingHangs) {
    setObjects(object("a", "c") + "," + object("b", "a") + "," + object("c", "b") + "," + object("self", "self"));
    const std::string warnings = printed([&] { compiler.compileAll(true); });
    EXPECT_EQ(scene.size(), 5u);
    // The object at which the walk to the parents came back.
    EXPECT_EQ(parentOf("b"), "");
    EXPECT_EQ(parentOf("c"), "b");
    EXPECT_EQ(parentOf("a"), "c");
    EXPECT_EQ(parentOf("self"), "");
    EXPECT_EQ(warnings,
        "objects/b: its parents lead back to itself; it is at the root\n"
        "objects/self: its parents lead back to itself; it is at the root\n");
    EXPECT_EQ(compiler.problems().size(), 2u);
}

TEST_F(HierarchyTest, theLongestChainListedChildFirst) {
    std::string objects;
    for(std::size_t i = MaxObjects; i != 0; --i)
        objects += object(std::to_string(i), i == 1 ? "" : std::to_string(i - 1)) + (i == 1 ? "" : ",");
    setObjects(objects);
    compiler.compileAll(true);
    ASSERT_EQ(scene.size(), MaxObjects + 1);
    for(std::size_t i = 2; i <= MaxObjects; ++i) ASSERT_EQ(parentOf(std::to_string(i).c_str()), std::to_string(i - 1));
    EXPECT_EQ(compiler.compiledObjectCount(), MaxObjects);
}

TEST_F(HierarchyTest, aFullSceneSkipsWhatIsTooMuch) {
    std::string objects;
    for(std::size_t i = 0; i != MaxObjects; ++i) objects += object(std::to_string(i)) + ",";
    setObjects(objects + object("last"));
    const std::string errors = printed<Corrade::Utility::Error>([&] { compiler.compileAll(true); });
    EXPECT_EQ(scene.size(), MaxObjects + 1);
    EXPECT_EQ(objectOf("last"), RootObject);
    EXPECT_EQ(problem("last", -1), "the scene is full");
    EXPECT_THAT(errors, HasSubstr("65534"));
}

TEST_F(HierarchyTest, roomIsReservedForAllNames) {
    setObjects(object("a") + "," + object("b") + "," + object("c"));
    data.objectIdMode = 1;
    compile({"a"});
    EXPECT_EQ(scene.objectNames.size(), 4u);
    EXPECT_EQ(scene.objectIds.size(), 4u);
    EXPECT_EQ(scene.skinNames.size(), 4u);
    EXPECT_EQ(scene.objectNames.textCapacity(), 4u * 16u);
    EXPECT_EQ(scene.objectIds.textCapacity(), 4u * 37u);
    EXPECT_EQ(scene.skinNames.textCapacity(), 4u * 37u);
    data.objectIdMode = 0;
    setObjects(object("a") + "," + object("b") + "," + object("c") + "," + object("d"));
    compile({"d"});
    EXPECT_EQ(scene.objectIds.size(), 5u);
    EXPECT_EQ(scene.objectIds.textCapacity(), 4u * 37u + 4u);
}

TEST_F(HierarchyTest, zeroScalingIsSafeAndARotationIsNormalised) {
    setObjects("'a': {'parent': '', 'name': '', 'translation': [0, 0, 0], 'rotation': [0, 0, 0, 0],"
               "'scaling': [0, -0.0, 2]}");
    const std::string warnings = printed([&] { compiler.compileAll(true); });
    EXPECT_EQ(scene.localScaling(objectOf("a")), (Vector3{SafeScaling, -SafeScaling, 2.0f}));
    EXPECT_EQ(scene.localTransformation(objectOf("a")), Magnum::DualQuaternion{});
    EXPECT_EQ(warnings, "objects/a/rotation: not usable, expected is an array of 4 numbers, not all zero\n");
}

TEST_F(HierarchyTest, missingAndWrongKeysGiveOneWarningEach) {
    setObjects("'a': {'parent': 3, 'translation': [1, 2], 'rotation': [0, 0, 0, 1]}");
    const std::string warnings = printed([&] {
        compiler.compileAll(true);
        compiler.compileAll(true);
    });
    EXPECT_EQ(warnings,
        "objects/a/parent: not usable, expected is a text\n"
        "objects/a/name: missing, expected is a text\n"
        "objects/a/translation: not usable, expected is an array of 3 numbers\n"
        "objects/a/scaling: missing, expected is an array of 3 numbers\n");
    EXPECT_EQ(scene.localScaling(objectOf("a")), Vector3{1.0f});
}

TEST_F(HierarchyTest, anIdThatWasTakenByAnotherObjectCountsAsNone) {
    setObjects(object("a") + "," + object("b", "a"));
    compiler.compileAll(true);
    // Deleted behind the compiler's back; the ids go to others.
    const Id b = objectOf("b");
    scene.deleteObjects(objectOf("a"));
    EXPECT_EQ(objectOf("a"), RootObject);
    setObjects(object("x") + "," + object("y") + "," + object("b"));
    compile({"x", "y"});
    ASSERT_TRUE(scene.isValid(b));
    EXPECT_EQ(objectOf("b"), RootObject);
    compile({"b"});
    EXPECT_EQ(scene.size(), 4u);
    EXPECT_NE(objectOf("b"), b);
    // What is gone from the document does not take another's object with it.
    setObjects(object("x") + "," + object("y"));
    compile({"a", "b"});
    EXPECT_EQ(scene.size(), 3u);
    EXPECT_NE(objectOf("x"), RootObject);
    EXPECT_NE(objectOf("y"), RootObject);
}

TEST_F(HierarchyTest, withoutAnyObjectsThereIsNothingToDo) {
    for(const char* const document: {"{}", "{'objects': {}}", "{'objects': 3}"}) {
        setDocument(document);
        EXPECT_TRUE(compiler.compileAll(true));
        compile({"a"});
        EXPECT_EQ(scene.size(), 1u);
    }
}

} // namespace
