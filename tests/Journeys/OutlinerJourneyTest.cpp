#include <cstdlib>

#include <gmock/gmock.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// The rows of the courtyard in a window of 1000 x 700.
constexpr int FirstRow = 96, RowHeight = 19;
enum Row { Ground, Columns, Column1, Shaft1, Well = 20, Rim, Roof, Crates, Crate1, Crate2, Crate3, Ball };
constexpr int Names = 70, Eyes = 230, Locks = 249;

std::string at(int x, Row row) { return std::to_string(x) + ' ' + std::to_string(FirstRow + RowHeight * int(row)); }

std::string click(const std::string& place) { return "mouse " + place + "\npress left\nrelease left\n"; }

std::string drag(Row from, const std::string& to) {
    return "mouse " + at(Names, from) + "\npress left\nmove 3 3\nmove 3 3\nmouse " + to + "\nwait 2\nrelease left\n";
}

std::string key(const std::string& name) { return "key " + name + "\nkeyup " + name + "\n"; }

class OutlinerJourneyTest: public JourneyTest {
protected:
    // With the scene view, which draws.
    std::string playView(const std::string& script) {
        const JourneyResult result = play(script, "--size 1000x700 --frames 1 " + Courtyard);
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }

    // How many pixels of the object ids are others, and show an object.
    int differingIds(const std::string& one, const std::string& other) const {
        const JourneyPicture a = picture(one), b = picture(other);
        EXPECT_EQ(a.pixels.size(), b.pixels.size());
        int differing = 0, shown = 0;
        for(int y = 0; y != a.height; ++y)
            for(int x = 0; x != a.width; ++x) {
                differing += a.pixel(x, y) != b.pixel(x, y);
                shown += a.pixel(x, y) >> 8 != 0xffff;
            }
        EXPECT_GT(shown, 1000) << "there is nothing to be compared";
        return differing;
    }

    std::string parentOf(const std::string& document, const std::string& id) const {
        const std::string text = read(document);
        const std::size_t object = text.find("    \"" + id + "\": {"), key = text.find("\"parent\": \"", object);
        return text.substr(key + 11, text.find('"', key + 11) - key - 11);
    }
};

TEST_F(OutlinerJourneyTest, ADragReparentsInOneStep) {
    // Below a parent that is turned and scaled it stays where it is.
    playView("record /objects/crates/rotation [0, 0.6, 0, 0.8]\nrecord /objects/crates/scaling [2, 0.5, -1]\nwait 2\n"
             "dump document {}/before\nidimage {}/before.png\n" +
        drag(Ball, at(Names, Crates)) +
        "wait 2\ndump document {}/after\nidimage {}/after.png\nundo\nwait 1\ndump document {}/undone\nredo\nwait 1\n"
        "dump document {}/redone\n");
    EXPECT_EQ(parentOf("before", "ball"), "");
    EXPECT_EQ(parentOf("after", "ball"), "crates");
    EXPECT_LT(differingIds("before.png", "after.png"), 20);
    EXPECT_EQ(read("undone"), read("before"));
    EXPECT_EQ(read("redone"), read("after"));
}

TEST_F(OutlinerJourneyTest, SeveralAreDraggedAtOnce) {
    play("dump document {}/before\nselect ball crate1 crate2\n" + drag(Crate1, at(Names, Well)) +
        "wait 1\ndump document {}/after\nundo\nwait 1\ndump document {}/undone\n");
    for(const char* const id: {"ball", "crate1", "crate2"}) EXPECT_EQ(parentOf("after", id), "well") << id;
    EXPECT_EQ(parentOf("after", "crate3"), "crates");
    EXPECT_EQ(read("undone"), read("before"));
}

TEST_F(OutlinerJourneyTest, BetweenRowsItBecomesASiblingAndBelowThemItGoesToTheRoot) {
    const std::string upperEdge = std::to_string(Names) + ' ' + std::to_string(FirstRow + RowHeight * Rim - 8);
    play(drag(Crate1, upperEdge) + "wait 1\ndump document {}/sibling\nresize 1000 1000\nwait 2\n" +
        drag(Column1, std::to_string(Names) + " 900") + "wait 1\ndump document {}/root\n");
    EXPECT_EQ(parentOf("sibling", "crate1"), "well");
    EXPECT_EQ(parentOf("root", "column1"), "");
}

TEST_F(OutlinerJourneyTest, NothingIsDraggedBelowItself) {
    play("dump document {}/before\ndump undo {}/log\n" + drag(Crates, at(Names, Crate2)) +
        "wait 1\ndump document {}/after\ndump undo {}/logAfter\n");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(read("logAfter"), read("log"));
}

TEST_F(OutlinerJourneyTest, EscapeGivesUpADragOfRows) {
    play("dump document {}/before\nmouse " + at(Names, Ball) + "\npress left\nmove 3 3\nmove 3 3\nmouse " +
        at(Names, Crates) + "\nwait 2\n" + key("Escape") + "move 2 0\nmove 2 0\nrelease left\nwait 1\n" +
        "dump document {}/after\ndump undo {}/log\n" + drag(Ball, at(Names, Crates)) + "dump document {}/dragged\n");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(read("log"), "");
    EXPECT_EQ(parentOf("dragged", "ball"), "crates") << "the next one counts";
}

TEST_F(OutlinerJourneyTest, ANameIsEditedInItsRow) {
    play("dump document {}/before\n" + click(at(Names, Ball)) + key("F2") + "type Marble\n" + key("Enter") +
        "wait 1\ndump document {}/renamed\n" + click(at(Names, Well)) + key("F2") + "type Nothing\n" + key("Escape") +
        "wait 1\ndump document {}/escaped\nundo\nwait 1\ndump document {}/undone\n");
    EXPECT_THAT(read("renamed"), HasSubstr("\"name\": \"Marble\""));
    EXPECT_EQ(read("escaped"), read("renamed"));
    EXPECT_EQ(read("undone"), read("before"));
}

TEST_F(OutlinerJourneyTest, ASearchLeavesMatchesAndTheirAncestors) {
    play(click("100 70") + "type CAPITAL\nwait 1\n" + click(at(Names, Shaft1)) + "dump selection {}/third\n" +
        click(at(Names, Ground)) + "dump selection {}/first\n");
    // Columns, Column 1, Capital, Column 2, ...
    EXPECT_EQ(read("first"), "columns\n");
    EXPECT_EQ(read("third"), "column2\n");
}

TEST_F(OutlinerJourneyTest, KeysGoThroughTheRowsAndDelete) {
    play("dump document {}/before\n" + click(at(Names, Ground)) + key("Down") + key("Down") +
        "dump selection {}/two\n" + key("Left") + key("Down") + "dump selection {}/folded\nkey LeftShift\n" +
        key("Up") + "keyup LeftShift\ndump selection {}/range\n" + key("End") + key("Home") + key("Delete") +
        "wait 1\ndump document {}/deleted\nundo\nwait 1\ndump document {}/undone\n");
    EXPECT_EQ(read("two"), "column1\n");
    EXPECT_EQ(read("folded"), "column2\n");
    EXPECT_EQ(read("range"), "column1\ncolumn2\n");
    EXPECT_THAT(read("deleted"), Not(HasSubstr("\"ground\": {")));
    // It comes back behind the others.
    EXPECT_THAT(read("undone"), HasSubstr("\"ground\": {"));
    EXPECT_EQ(read("undone").size(), read("before").size());
}

TEST_F(OutlinerJourneyTest, WhatIsHiddenIsNotSeenOrPicked) {
    playView("idimage {}/before.png\n" + click(at(Eyes, Ball)) +
        "wait 2\nidimage {}/hidden.png\ndump marks {}/marks\ndump undo {}/log\n" + click(at(Eyes, Ball)) +
        "wait 2\nidimage {}/shown.png\nhide crates\nwait 2\nidimage {}/crates.png\nshow crates\nwait 2\n"
        "idimage {}/again.png\ndump marks {}/none\n");
    EXPECT_GT(differingIds("before.png", "hidden.png"), 300);
    EXPECT_EQ(differingIds("before.png", "shown.png"), 0);
    EXPECT_GT(differingIds("before.png", "crates.png"), 300);
    EXPECT_EQ(differingIds("before.png", "again.png"), 0);
    EXPECT_EQ(read("marks"), "hidden ball\n");
    EXPECT_EQ(read("none"), "");
    EXPECT_EQ(read("log"), "") << "it is no edit of the project";
}

TEST_F(OutlinerJourneyTest, WhatIsLockedIsNotSelected) {
    // The view knows in the second frame that no row is under the mouse any more.
    const std::string clickInTheView = "mouse 362 287\nwait 2\npress left\nrelease left\n";
    const std::string refusal = "Ball is locked and cannot be selected\n";
    playView(clickInTheView + "dump selection {}/picked\n" + click(at(Locks, Ball)) +
        "dump selection {}/locked\ndump log {}/quiet\n" + clickInTheView +
        "dump selection {}/refused\ndump log {}/told\n" + click(at(Names, Ball)) + "dump selection {}/inTheList\n" +
        click(at(Locks, Ball)) + clickInTheView + "dump selection {}/free\n");
    EXPECT_EQ(read("picked"), "ball\n");
    EXPECT_EQ(read("locked"), "");
    EXPECT_THAT(read("quiet"), Not(HasSubstr(refusal)));
    EXPECT_EQ(read("refused"), "");
    EXPECT_THAT(read("told"), EndsWith(refusal));
    EXPECT_EQ(read("inTheList"), "");
    EXPECT_EQ(read("free"), "ball\n");
}

TEST_F(OutlinerJourneyTest, WhatIsSelectedElsewhereIsBroughtIntoSight) {
    // Its row is unfolded, too.
    play(click(std::to_string(14) + ' ' + std::to_string(FirstRow + RowHeight * Columns)) +
        "screenshot {}/folded.png\nselect column6Capital\nwait 2\nscreenshot {}/selected.png\nselect\nwait 2\n" +
        click(at(Names, Column1)) + "dump selection {}/row\n");
    EXPECT_NE(picture("folded.png").pixels, picture("selected.png").pixels);
    EXPECT_EQ(read("row"), "column1\n");
}

TEST_F(OutlinerJourneyTest, ARunWithoutAWindowLeavesNothingInTheUsersFolders) {
    setenv("XDG_DATA_HOME", folder.path("home").data(), 1);
    play("hide ball\nlock well\nwait 2\n");
    unsetenv("XDG_DATA_HOME");
    EXPECT_FALSE(std::filesystem::exists(folder.path("home") + "/vantrel/marks"));
}

TEST_F(OutlinerJourneyTest, MistakesOfScriptsAreTold) {
    const JourneyResult result = play("hide nobody\n", "--size 320x240 --frames 1 " + Courtyard);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.output, HasSubstr("\"hide nobody\": there is no object \"nobody\""));
}

}

}
