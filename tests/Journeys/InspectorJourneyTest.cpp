#include <cmath>
#include <cstdlib>
#include <set>
#include <sstream>

#include <Vantrel/EngineData/Json.h>
#include <rapidjson/pointer.h>

#include "Journeys/Journey.h"
#include "Support/JsonText.h"

namespace VantrelTest {

namespace {

using VantrelEngine::JsonDocument;
using VantrelEngine::JsonValue;

constexpr const char* Project = R"({"objects": {
    "lamp": {"name": "Lamp", "translation": [0, 2, 0], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1], "components": [
        {"type": "light", "light": {"type": "point", "color": [1, 1, 1], "intensity": 5, "ownKey": {"deep": [1]}}}]},
    "other": {"name": "Other", "translation": [4, 2, 1], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1], "components": [
        {"type": "view", "view": {"fov": 60, "near": 0.1, "far": 100}},
        {"type": "light", "light": {"type": "spot", "color": [1, 1, 1], "intensity": 7}}]}}})";

constexpr const char* Hostile = R"({"objects": {"bad": {"name": "Bad", "translation": "here", "rotation": [0, 0, 0, 0],
    "scaling": [0, 1, "x"], "skin": 5, "components": [5, null, {"type": 7}, {}, {"type": "light", "active": "yes", "light": 5},
        {"type": "mesh", "mesh": {"mesh": [1], "material": {}}},
        {"type": "physx", "physx": {"shape": "banana", "bounciness": 5, "groups": -1, "mass": -2, "box": 3}},
        {"type": "text", "text": {"text": [], "lineSpacing": "x"}}, {"type": "view", "view": {"fov": 200, "far": null}},
        {"type": "collision", "collision": []}, {"type": "animation", "animation": {"playCount": 1.5}}]},
    "worse": {"components": "none"}},
    "settings": {"rendering": {"clearColor": 5, "bloom": [], "hdr": {"exposure": "x"}}, "own": {"key": 1}},
    "materials": {"m": 5, "n": {"pipeline": []}}})";

constexpr const char* Resources = R"({"objects": {"o": {"name": "O", "translation": [0, 0, 0], "rotation": [0, 0, 0, 1],
    "scaling": [1, 1, 1], "components": [{"type": "mesh", "mesh": {"mesh": "", "material": ""}}]}},
    "shaders": {"lit": {"name": "Lit", "stage": "mesh", "vertex": "Dynamic.vert", "fragment": "Lit.frag", "parameters": [
        {"name": "baseColor", "type": "color", "default": [1, 1, 1, 1]}, {"name": "baseColorTexture", "type": "texture"},
        {"name": "roughness", "type": "float", "default": 0.8}]}},
    "pipelines": {"lit": {"name": "Lit", "shader": "lit"}},
    "materials": {"red": {"name": "Red", "pipeline": "lit", "Lit": {"baseColor": [1, 0, 0, 1]}},
        "b": {"name": "Blue", "pipeline": "lit"}},
    "textures": {"t": {"name": "Tiles", "image": ""}}})";

class InspectorJourneyTest: public JourneyTest {
protected:
    // Plays a script in the project of the test's folder; the document in the end is read from its dump.
    std::string play(const std::string& script) {
        folder.write("project.json", _project);
        const JourneyResult result = JourneyTest::play(script + "\ndump document {}/end.json",
            "--module " + Recorder + " --size 1000x900 --frames 1 " + folder.path("project.json"));
        EXPECT_EQ(result.status, 0) << result.output;
        EXPECT_FALSE(parsed("end.json").HasParseError()) << result.output;
        return result.output;
    }
    void setProject(const char* project) { _project = project; }

    JsonDocument parsed(const std::string& name) const {
        JsonDocument document;
        document.Parse(read(name).data());
        return document;
    }
    // Of a dump, by default that of the end, from "objects" on, or from its root with "../".
    std::string at(const std::string& pointer, const std::string& dump = "end.json") const {
        const JsonDocument document = parsed(dump);
        const JsonValue* const value =
            rapidjson::GenericPointer<JsonValue>{
                (pointer.rfind("../", 0) ? "/objects/" + pointer : pointer.substr(2)).data()}
                .Get(document);
        return value ? jsonText(*value) : "nothing";
    }
    double number(const std::string& pointer, const std::string& dump = "end.json") const {
        return std::strtod(at(pointer, dump).data(), nullptr);
    }
    void expectAsItWas(const std::string& dump = "end.json") const {
        JsonDocument before;
        before.Parse(_project);
        const JsonDocument after = parsed(dump);
        for(const char* const section: {"objects", "settings", "materials"}) {
            ASSERT_EQ(before.HasMember(section), after.HasMember(section)) << section;
            if(!before.HasMember(section)) continue;
            EXPECT_TRUE(before[section] == after[section]) << section;
        }
    }
    // How many steps the records of a dump are: those of a group are undone together.
    static std::size_t steps(const std::string& undo) {
        std::set<std::string> groups;
        std::istringstream lines{undo};
        for(std::string line; std::getline(lines, line);) groups.insert(line.substr(2, line.find(' ', 2) - 2));
        return groups.size();
    }

    static std::string click(const std::string& field) { return "field " + field + "\npress left\nrelease left\n"; }
    static std::string enter(const std::string& field, const std::string& text) {
        return click(field) + "type " + text + "\nkey Enter\nkeyup Enter\n";
    }

private:
    const char* _project = Project;
};

TEST_F(InspectorJourneyTest, ANumberIsTypedAndUndone) {
    play("select lamp\n" + enter("light/intensity", "7.5") + "dump document {}/typed.json\nundo");
    EXPECT_EQ(at("lamp/components/0/light/intensity", "typed.json"), "7.5");
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, ADragIsOneStep) {
    play("select lamp\nfield translation 0\npress left\nmove 10 0\nmove 10 0\nmove 10 0\n"
         "dump document {}/dragged.json\nrelease left\nwait 2\ndump undo {}/undo.txt\nundo");
    EXPECT_EQ(steps(read("undo.txt")), 1u) << read("undo.txt");
    EXPECT_GT(number("lamp/translation/0", "dragged.json"), 0.1) << "while it is dragged, too";
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, EscapeTakesADragBackAndWhatCouldBeRedoneStays) {
    play("select lamp\n" + enter("light/intensity", "9") +
        "undo\nfield scaling 1\npress left\nmove 40 0\nmove 40 0\nkey Escape\nkeyup Escape\nmove 40 0\nrelease left\n"
        "wait 2\ndump document {}/back.json\nredo");
    expectAsItWas("back.json");
    EXPECT_EQ(at("lamp/components/0/light/intensity"), "9.0");
}

TEST_F(InspectorJourneyTest, EscapeGivesUpWhatIsTyped) {
    play("select lamp\n" + click("light/intensity") + "type 9\nkey Escape\nkeyup Escape\n" + click("name") +
        "type x\nkey Escape\nkeyup Escape\nwait 2\ndump undo {}/undo.txt");
    EXPECT_EQ(read("undo.txt"), "");
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, TabGoesToTheNextNumberAndKeepsTheFirst) {
    play("select lamp\n" + click("translation 0") +
        "type 3\nkey Tab\nkeyup Tab\nwait 2\ntype 4\nkey Enter\nkeyup Enter");
    EXPECT_EQ(at("lamp/translation"), "[3.0,4.0,0]");
}

TEST_F(InspectorJourneyTest, WhatIsTypedIsKeptByAClickElsewhere) {
    play("select lamp\n" + click("name") + "type Sun\nfield light\npress left\nrelease left\nwait 2");
    EXPECT_EQ(at("lamp/name"), "\"Sun\"") << "a click selects all of it, which is typed over";
}

TEST_F(InspectorJourneyTest, RefusalsAreToldAndChangeNothing) {
    const std::string output = play("select lamp\n" + enter("scaling 0", "0") + enter("translation 1", "1e39") +
        enter("translation 1", "1e999") + enter("light/shadowRange", "-5") + "dump undo {}/undo.txt");
    EXPECT_EQ(read("undo.txt"), "");
    expectAsItWas();
    EXPECT_NE(output.find("objects/lamp/scaling: a factor of zero leaves nothing to be seen, take a small one"),
        std::string::npos)
        << output;
    EXPECT_NE(output.find("objects/lamp/translation: the number is too large for a float"), std::string::npos);
    EXPECT_NE(output.find("objects/lamp/translation: the number is not finite"), std::string::npos);
    EXPECT_NE(output.find("objects/lamp/components/0/light/shadowRange: -5 is not 0 or more"), std::string::npos);
}

TEST_F(InspectorJourneyTest, AnglesStayAsTheyWereTyped) {
    // Beyond 90 degrees about Y the quaternion alone would say 180, 80, 180; then X alone is turned further.
    play("select lamp\n" + enter("rotation 1", "100") + enter("rotation 0", "10") + "field rotation 1\nwait 1");
    const double half = 3.14159265358979 / 360.0;
    EXPECT_NEAR(number("lamp/rotation/1"), std::cos(10 * half) * std::sin(100 * half), 1e-9);
    EXPECT_NEAR(number("lamp/rotation/3"), std::cos(10 * half) * std::cos(100 * half), 1e-9);
}

TEST_F(InspectorJourneyTest, SeveralObjectsAreEditedAtOnce) {
    play("select lamp other\n" + enter("translation 1", "8") + enter("light/intensity", "3") + click("light/active") +
        "field translation 0\npress left\nmove 20 0\nmove 20 0\nrelease left\nwait 2\ndump undo {}/undo.txt");
    EXPECT_EQ(at("lamp/components/0/light/intensity"), "3.0");
    EXPECT_EQ(at("other/components/1/light/intensity"), "3.0");
    EXPECT_EQ(at("lamp/components/0/active"), "false");
    EXPECT_EQ(at("other/components/1/active"), "false");
    EXPECT_EQ(number("lamp/translation/1"), 8.0);
    EXPECT_EQ(number("other/translation/1"), 8.0);
    EXPECT_GT(number("lamp/translation/0"), 0.1);
    EXPECT_NEAR(number("other/translation/0") - number("lamp/translation/0"), 4.0, 1e-9)
        << "where they differ, each moves from its own";
    EXPECT_EQ(at("other/translation/2"), "1");
}

TEST_F(InspectorJourneyTest, SeveralObjectsGoBackInAsManySteps) {
    play("select lamp other\n" + enter("translation 1", "8") + click("light/remove") + click("add") +
        "wait 2\ntype anim\nkey Enter\nkeyup Enter\nwait 2\ndump document {}/edited.json\nundo\nundo\nundo");
    EXPECT_EQ(at("lamp/components/0/type", "edited.json"), "\"animation\"");
    EXPECT_EQ(at("other/components/1/type", "edited.json"), "\"animation\"");
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, ComponentsAreAddedAndTakenAway) {
    play(
        "select lamp\n" + click("add") + "wait 2\ntype phys\nkey Enter\nkeyup Enter\nwait 2\n" + click("light/remove"));
    EXPECT_EQ(at("lamp/components/0/type"), "\"physx\"");
    EXPECT_EQ(at("lamp/components/1"), "nothing");
}

TEST_F(InspectorJourneyTest, AKeyThatIsNotKnownIsEditedAsJson) {
    const std::string output =
        play("select lamp\n" + enter("light/ownKey", "{\"deep\": [1, 2]}") + enter("light/ownKey", "{oops") + "wait 2");
    EXPECT_EQ(at("lamp/components/0/light/ownKey"), R"({"deep":[1,2]})");
}

TEST_F(InspectorJourneyTest, HostileDocumentsAreShownAndRepaired) {
    setProject(Hostile);
    play("select bad worse\nwait 3\nselect worse\nwait 3\nselect bad\nwait 3\nscroll -20\nwait 3\n" +
        enter("translation", "[1, 2, 3]") + enter("translation 1", "5") + enter("scaling", "[1, 1, 1]") +
        enter("rotation 1", "90") + enter("light/intensity", "3") + enter("physx/bounciness", "0.5") +
        enter("physx/shape", "\"sphere\"") + enter("physx/sphere/radius", "2") + enter("view/fov", "70") +
        enter("text/lineSpacing", "2") + "wait 3\nselect worse\n" + enter("components", "[]"));
    EXPECT_EQ(at("bad/translation"), "[1,5.0,3]");
    EXPECT_EQ(at("bad/scaling"), "[1,1,1]");
    EXPECT_EQ(at("bad/components/4/light"), R"({"intensity":3.0})");
    EXPECT_EQ(at("bad/components/6/physx/bounciness"), "0.5");
    EXPECT_EQ(at("bad/components/6/physx/shape"), "\"sphere\"");
    EXPECT_EQ(at("bad/components/6/physx/sphere"), R"({"radius":2.0})");
    EXPECT_EQ(at("bad/components/8/view/fov"), "70.0");
    EXPECT_EQ(at("bad/components/7/text/lineSpacing"), "2") << "what cannot be used is typed as JSON";
    EXPECT_EQ(at("bad/components/0"), "5") << "what nobody touched stays";
    EXPECT_EQ(at("worse/components"), "[]");
}

TEST_F(InspectorJourneyTest, SettingsAreSetAndGoBackToTheirDefaults) {
    // The second tab.
    const std::string tab = "mouse 850 42\npress left\nrelease left\nwait 2\n";
    play(tab + enter("rendering/bloom/passes", "6") + click("rendering/bloom/enabled") +
        "dump document {}/set.json\nundo\nundo");
    EXPECT_EQ(at("../settings", "set.json"), R"({"rendering":{"bloom":{"passes":6,"enabled":true}}})");
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, HostileSettingsAreShownAndRepaired) {
    setProject(Hostile);
    play("mouse 850 42\npress left\nrelease left\nwait 2\n" + enter("rendering/clearColor", "[0, 0, 0, 1]") +
        enter("rendering/bloom/passes", "6") + enter("rendering/hdr/exposure", "2") + enter("own", "7"));
    EXPECT_EQ(at("../settings"),
        R"({"rendering":{"clearColor":[0,0,0,1],"bloom":{"passes":6},"hdr":{"exposure":2}},"own":7})");
}

TEST_F(InspectorJourneyTest, ReferencesAreChosenFromAListAndDropped) {
    setProject(Resources);
    play("select o\nwait 2\n" + click("mesh/material") +
        "wait 2\ntype blu\nwait 2\nkey Enter\nkeyup Enter\nwait 2\n"
        "dump document {}/chosen.json\ndrag materials red\nfield mesh/material\nwait 2\nrelease left\nwait 2\n"
        "dump document {}/dropped.json\ndrag textures t\nfield mesh/material\nwait 2\nrelease left\nwait 2");
    EXPECT_EQ(at("o/components/0/mesh/material", "chosen.json"), "\"b\"") << "by its name";
    EXPECT_EQ(at("o/components/0/mesh/material", "dropped.json"), "\"red\"");
    EXPECT_EQ(at("o/components/0/mesh/material"), "\"red\"") << "a texture is no material";
}

TEST_F(InspectorJourneyTest, AMaterialIsShownAndEdited) {
    setProject(Resources);
    // The tab of the resources, and the first of them, a material.
    play("mouse 420 696\npress left\nrelease left\nwait 3\nmouse 420 776\npress left\nrelease left\nwait 3\n" +
        enter("Lit/baseColor 1", "0.5") + enter("Lit/roughness", "0.25") +
        "drag textures t\nfield Lit/baseColorTexture\nwait 2\nrelease left\nwait 2\ndump document {}/edited.json\n"
        "undo\nundo\nundo");
    EXPECT_EQ(at("../materials/red/Lit", "edited.json"),
        R"({"baseColor":[1,0.5,0,1],"roughness":0.25,"baseColorTexture":"t"})");
    expectAsItWas();
}

// The menu of a component opens at the mouse, its items below each other.
constexpr const char* OpenMenu = "press right\nrelease right\nwait 2\n";
constexpr const char* FirstItem = "move 20 14\npress left\nrelease left\nwait 2\n";
constexpr const char* SecondItem = "move 20 34\npress left\nrelease left\nwait 2\n";

TEST_F(InspectorJourneyTest, TheValuesOfAComponentAreCopiedToOthersOfItsType) {
    play(std::string{"select lamp\nwait 2\nfield light\n"} + OpenMenu + FirstItem +
        "dump clipboard {}/copied.txt\nselect other\nwait 2\nfield view\n" + OpenMenu + SecondItem +
        "key Escape\nkeyup Escape\nwait 2\ndump document {}/view.json\nfield light\n" + OpenMenu + SecondItem +
        "dump document {}/pasted.json\ndump undo {}/undo.txt\nundo");
    EXPECT_NE(read("copied.txt").find("\"type\":\"light\""), std::string::npos) << read("copied.txt");
    expectAsItWas("view.json");
    EXPECT_EQ(at("other/components/1/light", "pasted.json"), at("lamp/components/0/light", "pasted.json"));
    EXPECT_NE(at("other/components/1/light", "pasted.json"), at("other/components/1/light"));
    EXPECT_EQ(steps(read("undo.txt")), 1u);
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, WhatIsInTheClipboardOfOthersIsNotPastedIntoAComponent) {
    std::string script = "select lamp\nwait 2\n";
    const auto paste = [&script](const std::string& text) {
        script +=
            "clipboard " + text + "\nfield light\n" + OpenMenu + SecondItem + "key Escape\nkeyup Escape\nwait 2\n";
    };
    for(const char* const text: {"{", "[1]", R"({"mark": "vantrel-component", "type": "light"})",
            R"({"mark": "vantrel-component", "type": 5, "values": {"intensity": 2}})",
            R"({"type": "light", "values": {"intensity": 2}})",
            R"({"mark": "other", "type": "light", "values": {"intensity": 2}})"})
        paste(text);
    script += "dump undo {}/undo.txt\n";
    paste(R"({"mark": "vantrel-component", "type": "light", "values": {"intensity": 2}})");
    play(script);
    EXPECT_EQ(read("undo.txt"), "");
    EXPECT_EQ(at("lamp/components/0/light"), R"({"intensity":2})") << "one that is good is taken";
}

TEST_F(InspectorJourneyTest, ADragInTheColourWheelIsOneStepThatEscapeTakesBack) {
    // The wheel opens at the mouse; its middle is some way to the lower right.
    const std::string drag = "select lamp\nwait 2\nfield light/color 4\npress left\nrelease left\nwait 3\nmove 80 85\n"
                             "press left\nmove 4 0\nmove 4 6\n";
    play(drag +
        "dump document {}/dragged.json\nkey Escape\nkeyup Escape\nrelease left\nwait 2\n"
        "dump document {}/back.json\ndump undo {}/none.txt");
    EXPECT_NE(at("lamp/components/0/light/color", "dragged.json"), "[1,1,1]");
    EXPECT_EQ(at("lamp/components/0/light/color", "back.json"), "[1,1,1]");
    EXPECT_EQ(read("none.txt"), "");
    play(drag + "release left\nwait 2\ndump document {}/kept.json\ndump undo {}/undo.txt\nundo");
    EXPECT_EQ(at("lamp/components/0/light/color", "kept.json"), at("lamp/components/0/light/color", "dragged.json"));
    EXPECT_EQ(steps(read("undo.txt")), 1u);
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, AFieldTakesTheObjectThatIsPointedAtInTheView) {
    // "well" is selected; the ground is what is seen at the lower edge of the view.
    const std::string pick = "select well\nwait 2\nfield parent/pick\npress left\nrelease left\nwait 2\n";
    const std::string ground = "mouse 420 245\npress left\nrelease left\nwait 3\n";
    const JourneyResult result = JourneyTest::play(pick + ground +
            "dump selection {}/selection.txt\ndump undo {}/undo.txt\ndump document {}/picked.json\nundo\n" + pick +
            "key Escape\nkeyup Escape\nwait 2\n" + ground +
            "dump undo {}/escaped.txt\ndump selection {}/selected.txt\n",
        "--size 800x500 --frames 1 " + Courtyard);
    ASSERT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(read("selection.txt"), "well\n") << "that is no selection";
    EXPECT_EQ(steps(read("undo.txt")), 1u) << read("undo.txt");
    EXPECT_EQ(at("well/parent", "picked.json"), "\"ground\"");
    EXPECT_EQ(read("escaped.txt").find('>'), std::string::npos) << read("escaped.txt");
    EXPECT_EQ(read("selected.txt"), "ground\n") << "it selects again";
}

TEST_F(InspectorJourneyTest, AFieldTakesTheObjectThatIsClickedInTheList) {
    const std::string pick = "select lamp\nwait 2\nfield parent/pick\npress left\nrelease left\nwait 2\n";
    const std::string second = "mouse 100 116\npress left\nrelease left\nwait 2\n";
    // What went and came back is the last one: it is refused as its own parent. A field that is away asks no more.
    const std::string output =
        play(pick + second + "dump document {}/picked.json\ndump selection {}/selection.txt\nundo\n" + pick + second +
            "dump document {}/refused.json\n" + pick + "select other\nwait 2\n" + second +
            "dump selection {}/selected.txt");
    EXPECT_EQ(at("lamp/parent", "picked.json"), "\"other\"");
    EXPECT_EQ(read("selection.txt"), "lamp\n");
    EXPECT_EQ(at("lamp/parent", "refused.json"), "nothing");
    EXPECT_NE(output.find("objects/lamp/parent: the object would become its own ancestor"), std::string::npos)
        << output;
    EXPECT_EQ(read("selected.txt"), "lamp\n");
    expectAsItWas();
}

TEST_F(InspectorJourneyTest, ALightIsNotTurnedIntoItsOpposite) {
    const std::string output =
        play("select lamp\n" + enter("light/intensity", "-3") + "dump undo {}/undo.txt\nwait 60\n" +
            "field light/intensity\npress left\nmove -400 0\nmove -400 0\nrelease left\nwait 2");
    EXPECT_EQ(read("undo.txt"), "");
    EXPECT_NE(output.find("objects/lamp/components/0/light/intensity: -3 is not 0 or more"), std::string::npos);
    EXPECT_EQ(number("lamp/components/0/light/intensity"), 0.0) << "a drag stops there";
}

} // namespace

} // namespace VantrelTest
