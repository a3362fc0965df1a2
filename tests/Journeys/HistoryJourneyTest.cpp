#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::HasSubstr;

// The tab of the history, and its first row, in a window of 1440 x 900.
constexpr const char* OpenHistory = "mouse 513 696\npress left\nrelease left\nwait 2\n";
std::string clickOnRow(int row) {
    return "mouse 400 " + std::to_string(741 + 19 * row) + "\npress left\nrelease left\n";
}

class HistoryJourneyTest: public JourneyTest {
protected:
    void playHistory(const std::string& script) { playWith("--module " + Recorder + " --size 1440x900", script); }
    // With the view itself, the middle of whose picture is (410, 180).
    void playView(const std::string& script) { playWith("--size 860x520", script); }
    void playWith(const std::string& arguments, const std::string& script) {
        const JourneyResult result = play(script, arguments + " --frames 1 " + Courtyard);
        EXPECT_EQ(result.status, 0) << result.output;
    }
    // As JSON values: what was removed comes back behind the others.
    bool isSame(const std::string& a, const std::string& b) const {
        rapidjson::Document first, second;
        first.Parse(read(a).data());
        second.Parse(read(b).data());
        EXPECT_TRUE(first.IsObject() && second.IsObject());
        return first == second;
    }
};

std::string number(int i) { return std::to_string(i); }

std::string dumps(const std::string& name) {
    return "dump document {}/" + name + ".json\ndump selection {}/" + name + ".txt\n";
}

// Of all kinds, each with a selection of its own.
const std::vector<std::string> Steps{"select ball\nrecord /objects/ball/translation [1, 2, 3]\n",
    "select ball crates\nrecord /objects/ball/name \"Marble\"\n",
    "select\nrecord /settings/rendering/bloom/intensity 2\n",
    "select well lantern\nrecord /objects/new {\"name\": \"Chair\", \"parent\": \"\"}\nselect new\n",
    "select lanternGlass\nremove /objects/lanternGlass\n", "record /materials/slate {\"name\": \"Slate\"}\n"};

const std::string Names =
    "Move Ball\nRename Ball to Marble\nSet bloom intensity\nAdd Chair\nDelete Glass\nAdd material Slate\n";

// Without what stands in front of the names.
std::string namesIn(const std::string& history) {
    std::string names;
    for(std::size_t begin = 0; begin != history.size();) {
        const std::size_t end = history.find('\n', begin) + 1;
        names += history.substr(begin + 5, end - begin - 5);
        begin = end;
    }
    return names;
}

TEST_F(HistoryJourneyTest, AllIsUndoneAndRedoneStepByStepWithItsSelection) {
    std::string script = dumps("at0");
    const int count = int(Steps.size());
    for(int i = 0; i != count; ++i) script += Steps[std::size_t(i)] + dumps("at" + number(i + 1));
    script += "dump history {}/history\nselect\n";
    for(int i = count; i-- != 0;) script += "undo\n" + dumps("undone" + number(i));
    script += "undo\nselect\n";
    for(int i = 1; i <= count; ++i) script += "redo\n" + dumps("redone" + number(i));
    play(script + "redo\n");

    EXPECT_EQ(namesIn(read("history")), Names);
    const char* const selectedBefore[]{"ball\n", "crates\nball\n", "", "well\nlantern\n", "lanternGlass\n", ""};
    const char* const selectedAfter[]{"ball\n", "crates\nball\n", "", "well\nlantern\n", "", ""};
    for(int i = 0; i != count; ++i) {
        EXPECT_TRUE(isSame("undone" + number(i) + ".json", "at" + number(i) + ".json")) << i;
        EXPECT_TRUE(isSame("redone" + number(i + 1) + ".json", "at" + number(i + 1) + ".json")) << i;
        EXPECT_EQ(read("undone" + number(i) + ".txt"), selectedBefore[i]) << i;
        EXPECT_EQ(read("redone" + number(i + 1) + ".txt"), selectedAfter[i]) << i;
    }
    EXPECT_FALSE(isSame("at0.json", "at" + number(count) + ".json"));
}

TEST_F(HistoryJourneyTest, AClickGoesToAStep) {
    std::string script;
    for(const std::string& step: Steps) script += step;
    script += "save {}/saved.json\ndump document {}/end.json\n";
    script += OpenHistory + clickOnRow(2) + "dump history {}/second\n" + clickOnRow(0) + "dump history {}/start\n";
    playHistory(script + R"(
key End
keyup End
dump history {}/end
dump document {}/again.json
key Up
keyup Up
dump history {}/up
)");
    EXPECT_THAT(read("second"), HasSubstr("\n>  1 Rename Ball"));
    EXPECT_THAT(read("start"), testing::Not(HasSubstr(">")));
    EXPECT_THAT(read("end"), HasSubstr("\n>* 1 Add material Slate"));
    EXPECT_TRUE(isSame("again.json", "end.json"));
    EXPECT_THAT(read("up"), HasSubstr("\n>  1 Delete Glass"));
}

TEST_F(HistoryJourneyTest, WhatIsUndoneIsGoneWithTheNextStep) {
    play("record /objects/ball/name \"A\"\nrecord /objects/ball/name \"B\"\nsave {}/saved.json\nundo\n"
         "dump history {}/undone\nrecord /objects/ball/translation [1, 2, 3]\ndump history {}/new\nredo\n"
         "dump history {}/redone\n");
    EXPECT_EQ(read("undone"), ">  1 Rename Ball to A\n * 1 Rename A to B\n");
    EXPECT_EQ(read("new"), "   1 Rename Ball to A\n>  1 Move A\n");
    EXPECT_EQ(read("redone"), read("new"));
}

TEST_F(HistoryJourneyTest, ImportsAreCalledAfterTheirFiles) {
    folder.write("lamp.glb", "scene lamp 2");
    folder.write("bad.glb", "crash");
    folder.write("crate.glb", "scene crate 2");
    setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
    const JourneyResult result = play("import {}/lamp.glb\nimport {}/bad.glb\nimport {}/crate.glb\nwait import\n"
                                      "wait 2\ndump history {}/history\n",
        "--module " + Recorder + " --converter " FAKE_CONVERTER " --size 860x520 --frames 1");
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(namesIn(read("history")), "Import lamp.glb\nImport crate.glb\n") << result.output;
}

TEST_F(HistoryJourneyTest, ManyAreGoneThroughAtOnce) {
    std::string script = "dump document {}/start.json\n";
    for(int i = 0; i != 40; ++i) script += "record /objects/ball/translation [" + number(i) + ", 0, 0]\n";
    script += "dump document {}/end.json\n";
    script += OpenHistory + clickOnRow(2);
    playHistory(script +
        "key Home\nkeyup Home\ndump document {}/back.json\nkey End\nkeyup End\n"
        "dump document {}/again.json\ndump history {}/history\n");
    EXPECT_TRUE(isSame("back.json", "start.json"));
    EXPECT_TRUE(isSame("again.json", "end.json"));
    EXPECT_FALSE(isSame("start.json", "end.json"));
}

const std::string Undo = "key LeftCtrl\nkey Z\nkeyup Z\nkeyup LeftCtrl\n";
const std::string Redo = "key LeftCtrl\nkey Y\nkeyup Y\nkeyup LeftCtrl\n";

// The ball in the middle of the picture, with something to be undone and something to be redone.
const std::string BallInMiddle = "record /objects/ball/name \"A\"\nrecord /objects/ball/name \"B\"\nselect ball\n"
                                 "mouse 410 180\nkey F\nkeyup F\nwait 3\nundo\nselect ball\nwait 2\n";

TEST_F(HistoryJourneyTest, NothingIsUndoneWhileSomethingIsDragged) {
    playView(BallInMiddle + "dump document {}/start.json\npress left\nwait 2\nundo\n" + Undo +
        "dump history {}/held\n" + "move 30 0\nmove 10 0\n" + Undo + Redo +
        "undo\ndump history {}/dragged\ndump document {}/dragged.json\n" +
        "release left\nwait 2\ndump history {}/over\ndump document {}/over.json\n" + Undo +
        "dump history {}/undone\ndump document {}/undone.json\n");
    EXPECT_EQ(read("held"), ">  1 Rename Ball to A\n   1 Rename A to B\n") << "held, not moved yet";
    EXPECT_FALSE(isSame("dragged.json", "start.json"));
    EXPECT_TRUE(isSame("over.json", "dragged.json"));
    EXPECT_EQ(read("over"), "   1 Rename Ball to A\n>  3 Move A\n");
    EXPECT_EQ(read("undone"), ">  1 Rename Ball to A\n   3 Move A\n");
    EXPECT_TRUE(isSame("undone.json", "start.json"));
}

TEST_F(HistoryJourneyTest, NoOtherProjectComesInPlaceWhileSomethingIsDragged) {
    const JourneyResult result = play(
        BallInMiddle + "press left\nwait 2\nmove 30 0\nmove 10 0\ndrop /other.json 410 180\nwait 2\nmove 10 0\nnew\n",
        "--size 860x520 --frames 1 " + Courtyard);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, HasSubstr("/other.json: not while something is dragged"));
    EXPECT_THAT(result.output, HasSubstr("A new project: not while something is dragged"));
}

TEST_F(HistoryJourneyTest, ACancelledDragLeavesWhatCanBeRedone) {
    playView(BallInMiddle +
        "press left\nwait 2\nmove 30 0\nmove 10 0\ndump undo {}/dragged\nkey Escape\nkeyup Escape\n"
        "release left\nwait 2\ndump history {}/over\n" +
        Redo + "dump history {}/redone\n");
    EXPECT_THAT(read("dragged"), HasSubstr("/objects/ball/translation"));
    EXPECT_EQ(read("over"), ">  1 Rename Ball to A\n   1 Rename A to B\n");
    EXPECT_EQ(read("redone"), "   1 Rename Ball to A\n>  1 Rename A to B\n");
}

TEST_F(HistoryJourneyTest, UndoEndsAPreviewAndNothingMore) {
    playView(BallInMiddle +
        "dump document {}/start.json\nmouse 700 12\ndrag materials glow\nmouse 404 172\nwait 2\n"
        "dump document {}/preview.json\n" +
        Undo + "mouse 700 12\nwait 2\nrelease left\ndump document {}/over.json\ndump history {}/over\n" + Redo +
        "dump history {}/redone\n");
    EXPECT_FALSE(isSame("preview.json", "start.json"));
    EXPECT_TRUE(isSame("over.json", "start.json"));
    EXPECT_EQ(read("over"), ">  1 Rename Ball to A\n   1 Rename A to B\n");
    EXPECT_EQ(read("redone"), "   1 Rename Ball to A\n>  1 Rename A to B\n");
}

} // namespace

} // namespace VantrelTest
