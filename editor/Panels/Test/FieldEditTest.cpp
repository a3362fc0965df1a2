#include <cmath>

#include "Data/Test/SessionFixture.h"
#include "Panels/Inspector/EditGesture.h"
#include "Panels/Inspector/FieldEdit.h"
#include "Panels/Inspector/InspectedGroups.h"
#include "Panels/Inspector/JsonPlace.h"

namespace VantrelEngine {

namespace {

constexpr unsigned Holder = 7;

class FieldEditTest: public VantrelTest::SessionFixture {
protected:
    TypedAngles angles;
    EditGesture gesture;

    const ProjectFile& file() { return session.data().project(); }

    std::vector<InspectedGroup> groups(std::initializer_list<const char*> ids) {
        session.update();
        session.data().selection().clear();
        for(const char* const id: ids) session.data().selectObject(objectOf(id), true);
        return selectionGroups(session.data());
    }
    static std::size_t rowOf(const InspectedGroup& group, const std::string& key) {
        for(std::size_t i = 0; i != group.rows.size(); ++i)
            if(key == group.rows[i].key) return i;
        ADD_FAILURE() << key;
        return 0;
    }
    const CommonValue& common(const InspectedGroup& group, const std::string& key) {
        return group.common(rowOf(group, key), angles);
    }
    std::string edit(const InspectedGroup& group, const std::string& key, const FieldInput& input) {
        const Edit edit = fieldEdit(file(), group, rowOf(group, key), input, angles);
        gesture.apply(changes(), file(), edit, Holder);
        for(const Edit::Angles& typed: edit.angles) angles.remember(typed.place, typed.degrees, typed.quaternion);
        return edit.reason;
    }
    static FieldInput part(int index, double number, bool isHeld = false) {
        FieldInput input;
        input.part = index;
        input.number = number;
        input.isHeld = isHeld;
        return input;
    }
    static FieldInput whole(const char* json) {
        static JsonAllocator allocator;
        JsonDocument value;
        EXPECT_EQ(parseJson(json, value), "");
        FieldInput input;
        input.value = JsonValue{value, allocator};
        return input;
    }
    static FieldInput reset() {
        FieldInput input;
        input.isReset = true;
        return input;
    }
    std::string at(const std::string& pointer) {
        const JsonValue* const value = file().valueByPointer({pointer.data(), pointer.size()});
        return value ? jsonText(*value) : "nothing";
    }
};

TEST_F(FieldEditTest, OneValueWhereAllHaveItAndMixedWhereTheyDiffer) {
    record("/objects/a", "{'name': 'A', 'translation': [1, 2, 3], 'scaling': [1, 1, 1]}");
    record("/objects/b", "{'name': 'B', 'translation': [1, 5, 3]}");
    const std::vector<InspectedGroup> found = groups({"a", "b"});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].title, "2 objects");
    EXPECT_TRUE(common(found[0], "name").isMixed);
    EXPECT_EQ(common(found[0], "translation").mixedParts, 2u);
    const CommonValue& scaling = common(found[0], "scaling");
    EXPECT_FALSE(scaling.isMixed) << "a missing one counts as its initial value";
    EXPECT_FALSE(scaling.isMissing);
    EXPECT_TRUE(scaling.isSomewhereMissing);
    EXPECT_TRUE(common(found[0], "skin").isMissing);
}

TEST_F(FieldEditTest, AnAxisIsSetAndTheOthersStay) {
    record("/objects/a", "{'name': '', 'translation': [1, 2, 3]}");
    record("/objects/b", "{'name': '', 'translation': [4, 5, 6]}");
    EXPECT_EQ(edit(groups({"a", "b"})[0], "translation", part(1, 9)), "");
    EXPECT_EQ(at("/objects/a/translation"), "[1,9.0,3]");
    EXPECT_EQ(at("/objects/b/translation"), "[4,9.0,6]");
    changes().undoLast();
    EXPECT_EQ(at("/objects/a/translation"), "[1,2,3]");
    EXPECT_EQ(at("/objects/b/translation"), "[4,5,6]");
}

TEST_F(FieldEditTest, AnOffsetMovesEachFromWhereItIs) {
    record("/objects/a", "{'name': '', 'translation': [1, 2, 3]}");
    record("/objects/b", "{'name': '', 'translation': [4, 5, 6]}");
    FieldInput input = part(0, 0.5);
    input.isOffset = true;
    edit(groups({"a", "b"})[0], "translation", input);
    EXPECT_EQ(at("/objects/a/translation"), "[1.5,2,3]");
    EXPECT_EQ(at("/objects/b/translation"), "[4.5,5,6]");
}

TEST_F(FieldEditTest, ARefusalKeepsAllAsItWas) {
    record("/objects/a", "{'name': '', 'scaling': [1, 2, 3]}");
    const std::string before = document();
    EXPECT_NE(edit(groups({"a"})[0], "scaling", part(0, 0)), "");
    EXPECT_NE(edit(groups({"a"})[0], "scaling", part(0, INFINITY)), "");
    EXPECT_NE(edit(groups({"a"})[0], "scaling", part(0, 1e39)), "");
    EXPECT_NE(edit(groups({"a"})[0], "rotation", part(0, INFINITY)), "");
    EXPECT_NE(edit(groups({"a"})[0], "name", whole("5")), "");
    EXPECT_EQ(document(), before);
}

TEST_F(FieldEditTest, AnObjectDoesNotBecomeItsOwnAncestor) {
    record("/objects/a", "{'name': ''}");
    record("/objects/b", "{'name': '', 'parent': 'a'}");
    EXPECT_EQ(edit(groups({"a"})[0], "parent", whole("\"b\"")), "the object would become its own ancestor");
    EXPECT_EQ(at("/objects/a/parent"), "nothing");
}

TEST_F(FieldEditTest, ARotationIsTypedAsAnglesAndStored) {
    record("/objects/a", "{'name': '', 'rotation': [0, 0, 0, 1]}");
    EXPECT_EQ(edit(groups({"a"})[0], "rotation", part(1, 100)), "");
    const QuaternionNumbers q = quaternionNumbers(file().valueByPointer("/objects/a/rotation"));
    EXPECT_EQ(q, quaternionFromAngles({0, 100, 0}));
    EXPECT_EQ(numbersOf(common(groups({"a"})[0], "rotation").value, 3), (std::vector<double>{0, 100, 0}));
    changes().undoLast();
    EXPECT_EQ(numbersOf(common(groups({"a"})[0], "rotation").value, 3), (std::vector<double>{0, 0, 0}));
}

TEST_F(FieldEditTest, BitsOfEachStayButTheOne) {
    record("/objects/a", "{'name': '', 'components': [{'type': 'physx', 'physx': {'groups': 1}}]}");
    record("/objects/b", "{'name': '', 'components': [{'type': 'physx', 'physx': {'groups': 258}}]}");
    EXPECT_EQ(common(groups({"a", "b"})[1], "physx/groups").mixedParts & 255u, 3u);
    edit(groups({"a", "b"})[1], "physx/groups", part(2, 1));
    EXPECT_EQ(at("/objects/a/components/0/physx/groups"), "5");
    EXPECT_EQ(at("/objects/b/components/0/physx/groups"), "262");
}

TEST_F(FieldEditTest, ComponentsOfATypeBelongTogetherWhereverTheyStand) {
    record(
        "/objects/a", "{'name': '', 'components': [{'type': 'light', 'light': {'intensity': 1}}, {'type': 'view'}]}");
    record(
        "/objects/b", "{'name': '', 'components': [{'type': 'mesh'}, {'type': 'light', 'light': {'intensity': 2}}]}");
    const std::vector<InspectedGroup> found = groups({"a", "b"});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[1].title, "Light");
    edit(found[1], "light/intensity", part(0, 3));
    EXPECT_EQ(at("/objects/a/components/0/light/intensity"), "3.0");
    EXPECT_EQ(at("/objects/b/components/1/light/intensity"), "3.0");
    EXPECT_EQ(componentsOfSome(found), (std::vector<std::string>{"View: 1 of 2 objects", "Mesh: 1 of 2 objects"}));
}

TEST_F(FieldEditTest, WhatStandsInTheWayIsShownAndGivesWay) {
    record("/objects/a", "{'name': '', 'components': [{'type': 'light', 'light': 5, 'more/keys': [1]}]}");
    const std::vector<InspectedGroup> found = groups({"a"});
    EXPECT_EQ(jsonText(common(found[1], "light").value), "5");
    EXPECT_EQ(jsonText(common(found[1], "more~1keys").value), "[1]");
    EXPECT_EQ(edit(found[1], "light/intensity", part(0, 3)), "");
    EXPECT_EQ(at("/objects/a/components/0"), R"({"type":"light","light":{"intensity":3.0},"more/keys":[1]})");
    changes().undoLast();
    EXPECT_EQ(at("/objects/a/components/0/light"), "5");
}

TEST_F(FieldEditTest, AValueOfAnotherTypeIsReplaced) {
    record("/objects/a", "{'name': '', 'translation': 'here', 'scaling': [0, 1, 'x']}");
    EXPECT_STREQ(common(groups({"a"})[0], "translation").whyNotShown, "expected are 3 numbers");
    EXPECT_EQ(edit(groups({"a"})[0], "translation", whole("[1, 2, 3]")), "");
    EXPECT_EQ(at("/objects/a/translation"), "[1,2,3]");
    EXPECT_EQ(edit(groups({"a"})[0], "scaling", reset()), "");
    EXPECT_EQ(at("/objects/a/scaling"), "nothing");
}

TEST_F(FieldEditTest, TheLastComponentDoesNotTakeItsObjectAlong) {
    record("/objects/a", "{'components': [{'type': 'view'}]}");
    const std::string before = document();
    gesture.apply(changes(), file(), removeEdit(groups({"a"})[1].bases), 0);
    EXPECT_EQ(at("/objects/a"), R"({"components":[]})");
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(FieldEditTest, AResetOfTheOnlyKeyKeepsTheResource) {
    record("/textures/t", "{'filter': 'nearest'}");
    const std::vector<InspectedGroup> found = resourceGroups(file(), {"textures", "t"});
    EXPECT_EQ(edit(found[0], "filter", reset()), "");
    EXPECT_EQ(at("/textures/t"), "{}");
}

TEST_F(FieldEditTest, ComponentsAreAddedToAllAndTakenFromAllInOneStep) {
    record("/objects/a", "{'name': ''}");
    record("/objects/b", "{'name': '', 'components': [{'type': 'view'}]}");
    const std::string before = document();
    JsonDocument initial;
    initial.Parse(R"({"intensity": 2})");
    const std::vector<InspectedGroup> found = groups({"a", "b"});
    gesture.apply(changes(), file(), addComponentEdit(found[0].bases, found[0].values, "light", initial), 0);
    EXPECT_EQ(at("/objects/a/components"), R"([{"type":"light","light":{"intensity":2}}])");
    EXPECT_EQ(at("/objects/b/components/1"), R"({"type":"light","light":{"intensity":2}})");
    gesture.apply(changes(), file(), removeEdit(groups({"a", "b"})[1].bases), 0);
    EXPECT_EQ(document(), before);
    changes().undoLast();
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(FieldEditTest, WhatIsHeldIsOneStepAndEscapeTakesItBack) {
    record("/objects/a", "{'name': '', 'components': [{'type': 'light', 'light': {'intensity': 1}}]}");
    const std::string before = document();
    for(const double number: {2.0, 3.0, 4.0}) {
        edit(groups({"a"})[1], "light/intensity", part(0, number, true));
        gesture.endFrame(changes(), Holder, false);
    }
    EXPECT_EQ(changes().trial(), Trial::Gesture);
    gesture.endFrame(changes(), 0, false);
    EXPECT_EQ(changes().trial(), Trial::None);
    EXPECT_EQ(at("/objects/a/components/0/light/intensity"), "4.0");
    changes().undoLast();
    EXPECT_EQ(document(), before);
    EXPECT_TRUE(changes().canRedo());

    edit(groups({"a"})[1], "light/intensity", part(0, 9, true));
    gesture.endFrame(changes(), Holder, true);
    EXPECT_EQ(document(), before);
    EXPECT_TRUE(changes().canRedo()) << "what was given up never was";
    EXPECT_EQ(changes().trial(), Trial::None);
}

TEST_F(FieldEditTest, NothingIsEditedWhileSomethingElseIsUnderWay) {
    record("/objects/a", "{'name': '', 'components': [{'type': 'light', 'light': {'intensity': 1}}]}");
    const std::string before = document();
    changes().beginTrial(Trial::Gesture);
    edit(groups({"a"})[1], "light/intensity", part(0, 2));
    edit(groups({"a"})[1], "light/intensity", part(0, 2, true));
    gesture.endFrame(changes(), 0, true);
    EXPECT_EQ(changes().trial(), Trial::Gesture);
    changes().keepTrial();
    EXPECT_EQ(document(), before);
}

TEST_F(FieldEditTest, TheSettingsThatAreMissingShowTheirDefaults) {
    const std::vector<InspectedGroup> found = settingsGroups(file());
    const InspectedGroup& bloom = found[1];
    EXPECT_TRUE(common(bloom, "rendering/bloom/passes").isMissing);
    EXPECT_EQ(edit(bloom, "rendering/bloom/passes", part(0, 6)), "");
    EXPECT_EQ(at("/settings"), R"({"rendering":{"bloom":{"passes":6}}})");
    EXPECT_EQ(edit(settingsGroups(file())[1], "rendering/bloom/passes", reset()), "");
    EXPECT_EQ(common(settingsGroups(file())[1], "rendering/bloom/passes").isMissing, true);
}

TEST_F(FieldEditTest, KeysThatNobodyKnowsAreThoseOfAllThatAreSelected) {
    record("/objects/a", object("", ",'components': [{'type': 'light', 'light': {'intensity': 1}}]"));
    record("/objects/b",
        object("", ",'own': 1, 'components': [{'type': 'light', 'light': {'intensity': 2, 'glow': [1], 'a/b': 2}}]"));
    record("/objects/c", object("", ",'other': 2, 'own': 3, 'components': [{'type': 'light', 'light': 5}]"));
    const std::vector<InspectedGroup> shown = groups({"a", "b", "c"});
    const auto unknownOf = [](const InspectedGroup& group) {
        std::string keys;
        for(const SchemaKey& row: group.rows)
            if(row.kind == KeyKind::Raw) keys += std::string{row.key} + ' ';
        return keys;
    };
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(unknownOf(shown[0]), "own other ");
    EXPECT_EQ(unknownOf(shown[1]), "light/glow light/a~1b light ");
    EXPECT_TRUE(common(shown[0], "own").isMixed);
    EXPECT_TRUE(common(shown[0], "own").isSomewhereMissing);
    EXPECT_EQ(edit(shown[0], "own", whole("7")), "");
    for(const char* const id: {"/objects/a/own", "/objects/b/own", "/objects/c/own"}) EXPECT_EQ(at(id), "7") << id;
}

TEST_F(FieldEditTest, ComponentsThatNotAllHaveAreCountedOverAllThatAreSelected) {
    record("/objects/a", object("", ",'components': [{'type': 'mesh'}]"));
    record("/objects/b", object("", ",'components': [{'type': 'mesh'}, {'type': 'light'}, {'type': 'own'}, 5]"));
    record("/objects/c", object("", ",'components': [{'type': 'light'}, {'type': 'mesh'}, {'type': 'mesh'}]"));
    record("/objects/d", object());
    const auto counted = [&](std::initializer_list<const char*> ids) {
        std::string text;
        for(const std::string& title: componentsOfSome(groups(ids))) text += title + "; ";
        return text;
    };
    EXPECT_EQ(counted({"a", "b", "c"}), "Light: 2 of 3 objects; own: 1 of 3 objects; Mesh 2: 1 of 3 objects; ");
    EXPECT_EQ(counted({"d", "a"}), "Mesh: 1 of 2 objects; ");
    EXPECT_EQ(counted({"b"}), "");
    EXPECT_EQ(counted({}), "");
}

} // namespace

} // namespace VantrelEngine
