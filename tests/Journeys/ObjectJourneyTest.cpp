#include <algorithm>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// What the keys and the menu do to objects, in the courtyard: "table" with things on it, "ball" and others.
class ObjectJourneyTest: public JourneyTest {
protected:
    std::string playView(const std::string& script) {
        const JourneyResult result = play(script, "--size 800x500 --frames 1 " + Courtyard);
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }

    rapidjson::Document document(const std::string& name) const {
        rapidjson::Document document;
        document.Parse(read(name).data());
        EXPECT_FALSE(document.HasParseError()) << name;
        return document;
    }
    // As values: members may stand in another order.
    bool isSame(const std::string& a, const std::string& b) const { return document(a) == document(b); }
    std::size_t objectCount(const std::string& name) const { return document(name)["objects"].MemberCount(); }
};

std::string held(const std::string& modifiers, const std::string& key) {
    std::string down, up;
    for(const char* const modifier: {"LeftCtrl", "LeftShift", "LeftAlt"})
        if(modifiers.find(modifier[4]) != std::string::npos) {
            down += std::string{"key "} + modifier + '\n';
            up += std::string{"keyup "} + modifier + '\n';
        }
    return down + "key " + key + "\nkeyup " + key + '\n' + up;
}

std::string dump(const std::string& name) { return "dump document {}/" + name + "\n"; }

std::size_t steps(const std::string& undo) {
    // Groups, by their numbers.
    std::size_t count = 0;
    std::string last;
    for(std::size_t place = 0; place < undo.size(); place = undo.find('\n', place) + 1) {
        const std::string group = undo.substr(place + 2, undo.find(' ', place + 2) - place - 2);
        count += group != last;
        last = group;
    }
    return count;
}

constexpr char View[] = "mouse 450 200\n";

TEST_F(ObjectJourneyTest, CopiedAndPasted) {
    playView(View + dump("before") + "select ball crates\n" + held("C", "C") + "dump clipboard {}/text\n" +
        dump("copied") + "select\n" + held("C", "V") + "dump selection {}/selection\n" + dump("pasted") +
        "dump undo {}/undo\nundo\n" + dump("undone") + "redo\n" + dump("redone") + "save {}/saved.json\nopen " +
        "{}/saved.json\n" + dump("opened"));
    EXPECT_THAT(read("text"), HasSubstr("\"vantrel-objects\""));
    EXPECT_EQ(read("copied"), read("before"));
    EXPECT_EQ(objectCount("pasted"), objectCount("before") + 2);
    EXPECT_EQ(read("selection"), "crates-2\nball-2\n");
    EXPECT_EQ(steps(read("undo")), 1u) << read("undo");
    EXPECT_TRUE(isSame("undone", "before"));
    EXPECT_EQ(read("redone"), read("pasted"));
    EXPECT_EQ(read("opened"), read("pasted"));
    EXPECT_STREQ(document("pasted")["objects"]["ball-2"]["name"].GetString(), "Ball 2");
}

TEST_F(ObjectJourneyTest, DuplicatedAloneAndWithWhatIsBelow) {
    // In the frame of the key already.
    playView(View + std::string{"record /objects/ball/parent \"crates\"\nselect crates\nidimage {}/before.png\n"} +
        dump("before") + held("C", "D") + dump("alone") + "undo\nselect crates\n" + held("CS", "D") + dump("trees") +
        "dump selection {}/selection\nundo\n" + dump("undone"));
    EXPECT_EQ(objectCount("alone"), objectCount("before") + 1);
    EXPECT_GE(objectCount("trees"), objectCount("before") + 2);
    EXPECT_THAT(read("selection"), HasSubstr("crates-2\n"));
    EXPECT_STREQ(document("trees")["objects"]["ball-2"]["parent"].GetString(), "crates-2");
    EXPECT_TRUE(isSame("undone", "before"));
}

TEST_F(ObjectJourneyTest, PastedBelow) {
    playView(View + std::string{"select ball\n"} + held("C", "C") + "select ground crates\n" + held("CS", "V") +
        dump("pasted"));
    const rapidjson::Document pasted = document("pasted");
    EXPECT_STREQ(pasted["objects"]["ball-2"]["parent"].GetString(), "ground");
    EXPECT_TRUE(pasted["objects"]["ball-2"]["translation"] == pasted["objects"]["ball"]["translation"]);
    EXPECT_STREQ(pasted["objects"]["ball-2"]["name"].GetString(), "Ball");
}

// The other one has crates, too, and they stand elsewhere.
TEST_F(ObjectJourneyTest, PastedIntoAnotherProject) {
    playView(View +
        std::string{"record /objects/crates/translation [9, 9, 9]\nsave {}/other.json\nundo\nrecord "
                    "/objects/crates/translation [1, 2, 3]\nrecord /objects/ball/parent \"crates\"\nrecord "
                    "/objects/ball/translation [4, 4, 4]\nsave {}/one.json\nselect ball\n"} +
        held("C", "C") + "open {}/other.json\nwait 2\n" + held("C", "V") + dump("other") +
        "open {}/one.json\nwait 2\n" + held("C", "V") + dump("one"));
    const rapidjson::Document other = document("other"), one = document("one");
    EXPECT_STREQ(other["objects"]["ball-2"]["parent"].GetString(), "");
    EXPECT_EQ(other["objects"]["ball-2"]["translation"][1].GetDouble(), 6.0);
    EXPECT_STREQ(one["objects"]["ball-2"]["parent"].GetString(), "crates");
    EXPECT_EQ(one["objects"]["ball-2"]["translation"][1].GetDouble(), 4.0);
}

TEST_F(ObjectJourneyTest, DeletedAndBroughtBack) {
    playView(View + dump("before") +
        "idimage {}/before.png\nselect crates ball\nkey Delete\nkey Delete repeat\nkeyup "
        "Delete\n" +
        dump("deleted") + "wait 1\nidimage {}/deleted.png\ndump undo {}/undo\nundo\nwait 2\n" + dump("undone") +
        "idimage {}/undone.png\nredo\nundo\nundo\n" + dump("again"));
    EXPECT_LT(objectCount("deleted"), objectCount("before"));
    EXPECT_FALSE(document("deleted")["objects"].HasMember("ball"));
    EXPECT_EQ(steps(read("undo")), 1u);
    EXPECT_TRUE(isSame("undone", "before"));
    EXPECT_TRUE(isSame("again", "before"));
    EXPECT_NE(picture("deleted.png").pixels, picture("before.png").pixels);
}

TEST_F(ObjectJourneyTest, TheSelectionOfAStepComesBackWithIt) {
    playView(View + std::string{"select ball ground\nwait 1\n"} + held("C", "D") + held("C", "Z") +
        "dump selection {}/undone\n" + held("C", "Y") + "dump selection {}/redone\nkey Delete\nkeyup Delete\n" +
        "dump selection {}/deleted\n" + held("C", "Z") + "dump selection {}/back\n");
    EXPECT_EQ(read("undone"), "ground\nball\n");
    EXPECT_EQ(read("redone"), "ground-2\nball-2\n");
    EXPECT_EQ(read("deleted"), "");
    EXPECT_THAT(read("back"), AnyOf("ground-2\nball-2\n", "ball-2\nground-2\n"));
}

TEST_F(ObjectJourneyTest, EverythingAtOnce) {
    playView(View + dump("before") + held("C", "A") + "dump selection {}/all\n" + held("C", "D") + dump("doubled") +
        held("C", "A") + "key Delete\nkeyup Delete\n" + dump("empty") + held("CS", "A") + "undo\nundo\n" +
        dump("undone"));
    const std::string all = read("all");
    EXPECT_EQ(std::size_t(std::count(all.begin(), all.end(), '\n')), objectCount("before"));
    EXPECT_EQ(objectCount("doubled"), 2 * objectCount("before"));
    EXPECT_EQ(objectCount("empty"), 0u);
    EXPECT_TRUE(isSame("undone", "before"));
}

TEST_F(ObjectJourneyTest, RepeatsAndOtherModifiers) {
    playView(View + dump("before") +
        "select ball\nkey LeftCtrl\nkey D\nkey D repeat\nkey D repeat\nkeyup D\nkey LeftAlt\nkey D\nkeyup D\n"
        "keyup LeftAlt\nkeyup LeftCtrl\n" +
        dump("once") + "clipboard kept\nselect\n" + held("C", "C") + "dump clipboard {}/kept\n");
    EXPECT_EQ(objectCount("once"), objectCount("before") + 1);
    EXPECT_EQ(read("kept"), "kept");
}

TEST_F(ObjectJourneyTest, OtherTextIsRefused) {
    playView(View + dump("before") + "clipboard a text from elsewhere\n" + held("C", "V") + "clipboard\n" +
        held("C", "V") + "dump log {}/log\n" + dump("after") + "dump undo {}/undo\n");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(read("undo"), "");
    EXPECT_THAT(read("log"),
        HasSubstr("Cannot paste what is in the clipboard: it has no objects of a project\n"
                  "Cannot paste what is in the clipboard: it is empty\n"));
}

TEST_F(ObjectJourneyTest, NoKeyActsWhileSomebodyTypes) {
    // In the name of the dialog's field, and with the dialog open.
    playView(View + dump("before") + "select ball\n" + held("CS", "S") + "wait 2\n" + held("C", "D") +
        "key Delete\nkeyup Delete\nkey G\nkeyup G\n" + held("C", "A") + "wait 1\nkey Escape\nkeyup Escape\nwait 2\n" +
        dump("after") + "dump selection {}/selection\n" + held("C", "D") + dump("later"));
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(read("selection"), "ball\n");
    EXPECT_EQ(objectCount("later"), objectCount("before") + 1) << "the keys came back";
}

TEST_F(ObjectJourneyTest, NoKeyActsInTheFieldAboveTheList) {
    playView(dump("before") + "select ball\nmouse 100 70\npress left\nrelease left\ntype b\n" + held("C", "D") +
        held("C", "A") + "key Delete\nkeyup Delete\nkey F\nkeyup F\nwait 2\n" + dump("after") +
        "dump selection {}/selection\n");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(read("selection"), "ball\n");
}

TEST_F(ObjectJourneyTest, TheListHasTheKeysToo) {
    // A click into the list selects its first row.
    playView("mouse 60 96\npress left\nrelease left\n" + dump("before") + held("C", "D") + dump("doubled") +
        "dump selection {}/selection\nkey Delete\nkeyup Delete\n" + dump("after") + "dump undo {}/undo\n");
    EXPECT_EQ(objectCount("doubled"), objectCount("before") + 1);
    EXPECT_EQ(read("selection"), "ground-2\n");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(steps(read("undo")), 2u);
}

TEST_F(ObjectJourneyTest, FramingWantsNoFocus) {
    const std::string away = "mouse 60 480\npress left\nrelease left\nselect ball\nwait 1\nidimage {}/before.png\n";
    playView(View + away + "key F\nkeyup F\nwait 1\nidimage {}/framed.png\n" + dump("before") +
        "key Delete\nkeyup Delete\n" + dump("after"));
    EXPECT_NE(picture("framed.png").pixels, picture("before.png").pixels);
    EXPECT_EQ(read("after"), read("before")) << "deleting does";
}

TEST_F(ObjectJourneyTest, TheSimulationWantsTheSetting) {
    const std::string output = playView(View + held("A", "S") +
        "dump log {}/without\nrecord /settings/physx/enable "
        "true\n" +
        held("A", "S") + "key LeftAlt\nkey S\nkey S repeat\nkeyup S\nkeyup LeftAlt\ndump log {}/with\n");
    EXPECT_THAT(read("without"), Not(HasSubstr("simulating")));
    EXPECT_THAT(read("with"), EndsWith("Started simulating physics\nStopped simulating physics\n"));
}

} // namespace

} // namespace VantrelTest
