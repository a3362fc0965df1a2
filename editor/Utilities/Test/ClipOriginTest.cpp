#include <functional>

#include "SelectionFixture.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Copies from one project, and pastes into others.
class ClipOriginTest: public VantrelTest::SelectionFixture {
protected:
    // "wire" stands at 1, 2, 3 below a lamp at 1, 2, 3 that is turned by 90 degrees about Y and twice as large.
    ClipOriginTest() {
        record("/objects/bulb/translation", "[0, 0, 0]");
        record("/objects/lamp/rotation", "[0, 0.70710678, 0, 0.70710678]");
        record("/objects/lamp/scaling", "[2, 2, 2]");
        session.update();
    }

    // Another project, which has an object, a mesh and a material of the same ids.
    void startOther() {
        session.startNew();
        add("bulb", "Bulb of another scene");
        record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}");
        record("/materials/paint", "{'name': 'Paint', 'pipeline': 'other'}");
        session.update();
    }

    double number(const std::string& pointer) {
        const JsonValue* const value = session.data().project().valueByPointer(pointer.data());
        return value && value->IsNumber() ? value->GetDouble() : -1000.0;
    }
    void expectNumbers(const std::string& pointer, std::initializer_list<double> wanted) {
        std::size_t i = 0;
        for(const double value: wanted)
            EXPECT_NEAR(number(pointer + '/' + std::to_string(i++)), value, 1e-5) << pointer;
    }
    std::string copiedWire() {
        select({"wire"});
        return copied();
    }
};

TEST_F(ClipOriginTest, OfAnotherProjectItGoesToTheRootAndStandsWhereItStood) {
    const std::string text = copiedWire();
    startOther();
    EXPECT_THAT(pasted(text), ElementsAre("wire"));
    EXPECT_EQ(parentIn("wire"), "\"\"");
    // 1, 2, 3 twice as far, turned to 3, 2, -1, from 1, 2, 3.
    expectNumbers("/objects/wire/translation", {7, 6, 1});
    expectNumbers("/objects/wire/rotation", {0, 0.70710678, 0, 0.70710678});
    expectNumbers("/objects/wire/scaling", {2, 2, 2});
}

TEST_F(ClipOriginTest, BelowASelectedObjectItKeepsItsOwnPlace) {
    const std::string text = copiedWire();
    startOther();
    select({"bulb"});
    EXPECT_THAT(pastedBelow(text), ElementsAre("wire"));
    EXPECT_EQ(parentIn("wire"), "\"bulb\"");
    expectNumbers("/objects/wire/translation", {1, 2, 3});
    expectNumbers("/objects/wire/scaling", {1, 1, 1});
}

TEST_F(ClipOriginTest, WhatIsBelowACopyStaysBelowIt) {
    select({"bulb"});
    const std::string text = copiedTrees();
    startOther();
    EXPECT_THAT(pasted(text), ElementsAre("bulb-2", "wire"));
    EXPECT_EQ(parentIn("bulb-2"), "\"\"");
    EXPECT_EQ(parentIn("wire"), "\"bulb-2\"");
    expectNumbers("/objects/bulb-2/translation", {1, 2, 3});
    expectNumbers("/objects/wire/translation", {1, 2, 3});
}

TEST_F(ClipOriginTest, APlaceIsThatOfTheDocument) {
    // What a simulation moves is not.
    scene.localTransformation(objectOf("lamp")) = Magnum::DualQuaternion::translation({0.0f, 100.0f, 0.0f});
    const std::string text = copiedWire();
    startOther();
    pasted(text);
    expectNumbers("/objects/wire/translation", {7, 6, 1});
}

TEST_F(ClipOriginTest, AProjectIsTheSameUnderAnotherName) {
    const std::string text = copiedWire();
    ASSERT_EQ(session.save(folder.path("first.json")), "");
    EXPECT_THAT(pasted(text), ElementsAre("wire-2"));
    EXPECT_EQ(parentIn("wire-2"), "\"bulb\"");
    const std::string saved = copiedWire();
    ASSERT_EQ(session.save(folder.path("second.json")), "");
    pasted(saved);
    EXPECT_EQ(parentIn("wire-3"), "\"bulb\"");
}

TEST_F(ClipOriginTest, AFileIsTheSameProjectInAnotherEditor) {
    ASSERT_EQ(session.save(folder.path("scene.json")), "");
    const std::string text = copiedWire();
    ProjectSession other;
    ASSERT_EQ(other.open(folder.path("scene.json")).error, "");
    EXPECT_THAT(list(paste(other.editor(), text.data())), ElementsAre("wire-2"));
    EXPECT_STREQ(other.data().project().valueByPointer("/objects/wire-2/parent")->GetString(), "bulb");
    // And a copy of that file is another one.
    ASSERT_EQ(session.save(folder.path("copy.json")), "");
    ASSERT_EQ(other.open(folder.path("copy.json")).error, "");
    EXPECT_THAT(list(paste(other.editor(), text.data())), ElementsAre("wire-2"));
    EXPECT_STREQ(other.data().project().valueByPointer("/objects/wire-2/parent")->GetString(), "");
}

TEST_F(ClipOriginTest, TwoNewProjectsAreTwo) {
    const std::string text = copiedWire();
    ProjectSession other;
    printed([&] { paste(other.editor(), R"({"type": "vantrel-objects", "version": 1, "objects": {"bulb": {}}})"); });
    EXPECT_THAT(list(paste(other.editor(), text.data())), ElementsAre("wire"));
    EXPECT_STREQ(other.data().project().valueByPointer("/objects/wire/parent")->GetString(), "");
}

TEST_F(ClipOriginTest, ATextThatDoesNotSayItIsOfAnotherProject) {
    EXPECT_THAT(
        pasted(R"({"type": "vantrel-objects", "version": 1, "objects": {"a": {"parent": "desk"}}})"), ElementsAre("a"));
    EXPECT_EQ(parentIn("a"), "\"\"");
}

class ClipResourcesTest: public ClipOriginTest {
protected:
    ClipResourcesTest() {
        record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}");
        record("/materials/paint", "{'name': 'Paint', 'pipeline': 'lit'}");
        add("box", "Box", "", ",'components': [{'type': 'mesh', 'mesh': {'mesh': 'cube', 'material': 'paint'}}]");
        select({"box"});
    }
    std::string boxUses(const char* what) { return at(std::string{"/objects/box/components/0/mesh/"} + what); }
};

TEST_F(ClipResourcesTest, ThoseThatTheOtherProjectHasJustSoStay) {
    const std::string text = copied();
    startOther();
    EXPECT_EQ(printed([&] { pasted(text); }),
        "What was pasted names materials/paint, which is of another project and left out\n");
    EXPECT_EQ(boxUses("mesh"), "\"cube\"");
    EXPECT_EQ(boxUses("material"), "\"\"");
    // In one step with the object.
    changes().undoLast();
    EXPECT_EQ(at("/objects/box"), "nothing");
    // Below an object it is no other.
    select({"bulb"});
    EXPECT_THAT(printed([&] { pastedBelow(text); }), HasSubstr("materials/paint"));
}

TEST_F(ClipResourcesTest, WhatAResourceIsMadeOfCountsToo) {
    record("/pipelines/lit", "{'name': 'Lit', 'shader': 'lit'}");
    record("/shaders/lit",
        "{'name': 'Lit', 'stage': 'mesh', 'vertex': 'A.vert', 'fragment': 'A.frag', 'parameters': [{'name': 'map', "
        "'type': "
        "'texture'}]}");
    record("/materials/paint", "{'name': 'Paint', 'pipeline': 'lit', 'Lit': {'map': 'wood'}}");
    record("/textures/wood", "{'name': 'Wood', 'image': 'wood'}");
    record("/images/wood", "{'name': 'Wood', 'file': 'imported/a.png'}");
    const std::string text = copied(), all = document();
    const auto expectPasted = [&](const char* edited, const char* value, const char* material) {
        session.startNew();
        JsonDocument origin;
        origin.Parse(all.data());
        for(const char* const section: {"meshes", "materials", "pipelines", "shaders", "textures", "images"})
            for(const auto& resource: origin[section].GetObject())
                changes().recordWithParents(
                    (std::string{"/"} + section + '/' + resource.name.GetString()).data(), resource.value, false);
        if(value) record(edited, value);
        printed([&] { pasted(text); });
        EXPECT_EQ(boxUses("material"), material) << edited;
    };
    expectPasted("nothing", nullptr, "\"paint\"");
    expectPasted("/images/wood/file", "'imported/b.png'", "\"\"");
    expectPasted("/shaders/lit/fragment", "'B.frag'", "\"\"");
    expectPasted("/pipelines/lit/shader", "'other'", "\"\"");
    // The same in other words.
    expectPasted("/shaders/lit",
        "{'parameters': [{'type': 'texture', 'name': 'map'}], 'vertex': 'A.vert', 'fragment': 'A.frag', 'stage': "
        "'mesh', "
        "'name': 'Lit'}",
        "\"paint\"");
}

TEST_F(ClipResourcesTest, AFileOfAnotherProjectIsNotThisOnes) {
    record("/meshes/cube", "{'name': 'Cube', 'file': 'meshes/cube.glb'}");
    const std::string text = copied();
    session.startNew();
    record("/meshes/cube", "{'name': 'Cube', 'file': 'meshes/cube.glb'}");
    EXPECT_THAT(printed([&] { pasted(text); }), HasSubstr("names meshes/cube, which is of another project"));
    EXPECT_EQ(boxUses("mesh"), "\"\"");
}

TEST_F(ClipResourcesTest, SkinsComeWithTheirJointsAlone) {
    record("/skins/body", "{'name': 'Body', 'file': 'imported/body.glb', 'joints': ['bulb', 'desk']}");
    record("/skins/own", "{'name': 'Own', 'file': 'models/own.glb', 'joints': ['bulb']}");
    record("/objects/bulb/skin", "'body'");
    record("/objects/wire/skin", "'own'");
    record("/objects/shade/skin", "'body'");
    select({"bulb", "wire"});
    const std::string text = copied();
    select({"shade"});
    const std::string shade = copied();
    startOther();
    add("desk", "Desk of another scene");
    record("/skins/body", "{'name': 'Body', 'file': 'imported/body.glb', 'joints': ['bulb', 'desk']}");
    const std::string lines = printed([&] { EXPECT_THAT(pasted(text), ElementsAre("bulb-2", "wire")); });
    EXPECT_EQ(lines,
        "What was pasted names objects/desk, which is of another project and left out\n"
        "What was pasted names skins/own, which is of another project and left out\n");
    EXPECT_EQ(at("/skins/body-2/joints"), "[\"bulb-2\",\"\"]");
    EXPECT_EQ(at("/objects/bulb-2/skin"), "\"body-2\"");
    EXPECT_EQ(at("/objects/wire/skin"), "\"\"");
    // A skin that reads the same is another one: its joints are.
    EXPECT_THAT(printed([&] { pasted(shade); }), HasSubstr("names skins/body, which is of another project"));
    EXPECT_EQ(at("/objects/shade/skin"), "\"\"");
}

TEST_F(ClipOriginTest, WhatIsNoOriginIsRefused) {
    const std::string text = copiedWire();
    const auto refused = [&](const char* key, const std::string& value) {
        JsonDocument clip, other;
        clip.Parse(text.data());
        other.Parse(value.data());
        clip[key].CopyFrom(other, clip.GetAllocator());
        return errorOf([&] { EXPECT_THAT(pasted(VantrelTest::jsonText(clip)), IsEmpty()) << value; });
    };
    const std::string before = document(), line = "Cannot paste what is in the clipboard: ";
    for(const char* const names: {"{}", "[1]", "\"a\""})
        EXPECT_EQ(refused("project", names), line + "project: not a list of texts\n");
    EXPECT_EQ(refused("places", "[]"), line + "places: not an object\n");
    EXPECT_EQ(refused("resources", "7"), line + "resources: not an object\n");
    EXPECT_EQ(refused("resources", R"({"meshes/a": 7})"), line + "resources/meshes/a: cannot be used\n");
    const std::string numbers = R"("rotation": [0, 0, 0, 1], "scaling": [1, 1, 1])";
    for(const std::string& place:
        {std::string{"1"}, std::string{"{}"}, "{" + numbers + "}", R"({"translation": [0, 0], )" + numbers + "}",
            R"({"translation": [0, 0, "0"], )" + numbers + "}", R"({"translation": [0, 0, 1e200], )" + numbers + "}",
            R"({"translation": [0, 0, 0], "name": 7, )" + numbers + "}"})
        EXPECT_EQ(refused("places", "{\"wire\": " + place + "}"), line + "places/wire: cannot be used\n") << place;
    EXPECT_EQ(document(), before);
}

} // namespace

} // namespace VantrelEngine
