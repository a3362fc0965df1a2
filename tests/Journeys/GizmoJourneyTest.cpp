#include <algorithm>
#include <cmath>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::HasSubstr;
using testing::Not;

// The courtyard at 900 x 640, window points.
constexpr const char* Ball = "342 252";
constexpr const char* Elsewhere = "440 340";
constexpr const char* Toolbar[]{"307 88", "450 78"};

// As values: the order of an object's keys is none.
bool isSame(const std::string& a, const std::string& b) {
    rapidjson::Document first, second;
    first.Parse(a.data());
    second.Parse(b.data());
    return !first.HasParseError() && !second.HasParseError() && first == second;
}

std::string tap(const std::string& key) { return "key " + key + "\nkeyup " + key + "\n"; }

class GizmoJourneyTest: public JourneyTest {
protected:
    void playView(const std::string& script) {
        const JourneyResult result = play(script, "--size 900x640 --frames 1 " + Courtyard);
        ASSERT_EQ(result.status, 0) << result.output;
    }
    // What of the ball's place is another one, by more than the last digits that each step may cost.
    std::string otherThan(const std::string& first, const std::string& second) const {
        rapidjson::Document before, after;
        before.Parse(read(first).data());
        after.Parse(read(second).data());
        std::string other;
        for(const char* const key: {"translation", "rotation", "scaling"}) {
            const auto from = before["objects"]["ball"][key].GetArray(), to = after["objects"]["ball"][key].GetArray();
            const bool isSame = std::equal(from.begin(), from.end(), to.begin(), to.end(),
                [](const auto& a, const auto& b) { return std::abs(a.GetDouble() - b.GetDouble()) < 1e-5; });
            if(!isSame) other += std::string{key} + ' ';
        }
        return other;
    }
    // Lines of the log of changes that are in effect begin with the number of their group.
    std::size_t groups(const std::string& name) const {
        std::set<std::string> found;
        std::istringstream lines{read(name)};
        for(std::string line; std::getline(lines, line);) found.insert(line.substr(2, line.find(' ', 2) - 2));
        return found.size();
    }
};

// The mouse goes to the middle of the ball's gizmo, and with the button held by four steps.
const std::string Grab = std::string{"select ball\nmouse "} + Ball + "\nwait 2\npress left\n";
const std::string Way = "move 12 -6\nmove 13 -7\nmove 20 -4\nmove 15 -3\n";

TEST_F(GizmoJourneyTest, ADragIsUndoneAndRedone) {
    playView("dump document {}/before\n" + Grab + Way +
        "release left\nwait 1\ndump undo {}/undo\n"
        "dump document {}/after\ndump selection {}/selection\nundo\nwait 1\ndump document {}/undone\nredo\nwait 1\n"
        "dump document {}/redone\nsave {}/saved.json\nopen {}/saved.json\nwait 2\ndump document {}/reopened\n");
    EXPECT_TRUE(read("after") != read("before"));
    EXPECT_TRUE(read("undone") == read("before"));
    EXPECT_TRUE(read("redone") == read("after"));
    EXPECT_TRUE(read("reopened") == read("after"));
    EXPECT_EQ(groups("undo"), 1);
    EXPECT_THAT(read("undo"), HasSubstr("/objects/ball/translation"));
    EXPECT_EQ(read("selection"), "ball\n");
}

TEST_F(GizmoJourneyTest, TheBallIsUnderTheMouse) {
    playView("mouse " + std::string{Ball} + "\nwait 1\nidimage {}/before.png\n" + Grab + Way +
        "wait 1\nidimage {}/during.png\nrelease left\n");
    const JourneyPicture before = picture("before.png"), during = picture("during.png");
    // Its middle moves by the mouse's way, but that a ball that is not in the middle of the picture is no circle.
    const auto middle = [](const JourneyPicture& ids, unsigned id) {
        double x = 0.0, y = 0.0, count = 0.0;
        for(int row = 0; row != ids.height; ++row)
            for(int column = 0; column != ids.width; ++column)
                if(ids.pixel(column, row) >> 8 == id) x += column, y += row, ++count;
        EXPECT_GT(count, 100.0);
        return std::pair<double, double>{x / count, y / count};
    };
    // In the left part of the picture it alone moves before the ground.
    const unsigned ball = [&] {
        for(int row = 0; row != before.height; ++row)
            for(int column = 0; column != before.width / 3; ++column)
                if(before.pixel(column, row) != during.pixel(column, row) && before.pixel(column, row) >> 8 != 1)
                    return before.pixel(column, row) >> 8;
        return 0u;
    }();
    const auto from = middle(before, ball), to = middle(during, ball);
    EXPECT_NEAR(to.first - from.first, 60.0, 4.0);
    EXPECT_NEAR(to.second - from.second, -20.0, 4.0);
}

TEST_F(GizmoJourneyTest, CancelledAsIfNothingHadBeen) {
    const std::string rest = std::string{"release left\nrelease right\nmouse "} + Elsewhere + "\nwait 1\n";
    playView("record /objects/ball/name \"Globe\"\nundo\nselect ball\nmouse " + std::string{Elsewhere} +
        "\nwait 1\nidimage {}/before.png\ndump document {}/before\n" + Grab + Way +
        "wait 1\nidimage {}/during.png\ndump document {}/during\n" + tap("Escape") + "move 5 5\n" + rest +
        "dump document {}/escaped\nidimage {}/escaped.png\n" + Grab + Way + "press right\nmove 5 5\n" + rest +
        "dump document {}/pressed\nidimage {}/pressed.png\ndump undo {}/undo\nredo\ndump document {}/redone\n");
    EXPECT_TRUE(read("during") != read("before"));
    EXPECT_TRUE(read("escaped") == read("before"));
    EXPECT_TRUE(read("pressed") == read("before"));
    EXPECT_NE(picture("during.png").pixels, picture("before.png").pixels);
    EXPECT_EQ(picture("escaped.png").pixels, picture("before.png").pixels);
    EXPECT_EQ(picture("pressed.png").pixels, picture("before.png").pixels);
    EXPECT_THAT(read("undo"), Not(HasSubstr("translation")));
    EXPECT_THAT(read("redone"), HasSubstr("Globe"));
}

TEST_F(GizmoJourneyTest, EachOperationByItsKeyIsAStep) {
    const std::string drag = "press left\nmove 20 0\nmove 20 -10\nrelease left\n";
    const std::string back = std::string{"mouse "} + Ball + "\nwait 2\n";
    // The outer ring is grabbed on the right: how large it is is the library's choice, and beside it no handle is.
    const auto turn = [&](int radius) {
        return "select ball\n" + back + "move " + std::to_string(radius) + " 0\nwait 1\n" + drag;
    };
    playView("dump document {}/before\nselect ball\n" + back + tap("S") + drag + "dump document {}/scaled\n" + back +
        tap("G") + drag + "dump document {}/moved\n" + tap("G") + "key LeftCtrl\n" + drag +
        "keyup LeftCtrl\ndump undo {}/three\nmouse " + Ball + "\nundo\nundo\nundo\nwait 1\ndump document {}/undone\n" +
        tap("R") + turn(52) + turn(83) + "dump undo {}/undo\ndump document {}/turned\nundo\ndump document {}/again\n");
    EXPECT_TRUE(read("undone") == read("before"));
    EXPECT_TRUE(read("again") == read("before"));
    EXPECT_EQ(otherThan("before", "scaled"), "scaling ");
    EXPECT_EQ(otherThan("scaled", "moved"), "translation ");
    EXPECT_EQ(otherThan("again", "turned"), "rotation ");
    EXPECT_EQ(groups("three"), 3);
    EXPECT_THAT(read("three"), Not(HasSubstr("/ground/")));
    EXPECT_EQ(groups("undo"), 1);
}

// Undo, deleting and the other shortcuts of a drag's time; the drag ends where something of its own is done.
TEST_F(GizmoJourneyTest, KeysDuringADrag) {
    // There is something that could be undone.
    playView("record /objects/ball/name \"Globe\"\ndump document {}/before\n" + Grab + Way +
        "key LeftCtrl\nkey Z\nkeyup Z\nkeyup LeftCtrl\nwait 1\ndump document {}/dragged\n" + tap("Delete") +
        "wait 1\nmove 3 3\ndump document {}/deleted\nrelease left\nwait 1\nundo\nwait 1\ndump document {}/back\nundo\n"
        "wait 1\ndump document {}/undone\n");
    EXPECT_TRUE(read("dragged") != read("before"));
    EXPECT_THAT(read("deleted"), Not(HasSubstr("\"ball\":")));
    EXPECT_TRUE(isSame(read("back"), read("dragged")));
    EXPECT_TRUE(isSame(read("undone"), read("before")));
}

// Neither picked through, nor a handle grabbed behind it; the window's focus is back over the view.
TEST_F(GizmoJourneyTest, TheToolbarKeepsItsClicks) {
    std::string script = "select ball\n";
    for(const char* const place: Toolbar)
        script += "mouse " + std::string{place} + "\nwait 1\npress left\nrelease left\n";
    playView(script + "dump selection {}/selection\ndump undo {}/undo\nmouse " + Elsewhere +
        "\nwait 1\npress left\nrelease left\ndump selection {}/other\n");
    EXPECT_EQ(read("selection"), "ball\n");
    EXPECT_EQ(read("undo"), "");
    EXPECT_NE(read("other"), "ball\n");
}

// What comes over a handle from elsewhere, with the button held.
TEST_F(GizmoJourneyTest, WhatIsDraggedOverAHandleDoesNotGrabIt) {
    playView("select ball\nmouse " + std::string{Ball} +
        "\nwait 2\ndrag materials wood\nwait 1\nmove 2 1\nwait 1\nmove 2 1\nrelease left\nwait 1\ndump undo {}/undo\n");
    EXPECT_THAT(read("undo"), HasSubstr("material"));
    EXPECT_THAT(read("undo"), Not(HasSubstr("translation")));
    EXPECT_EQ(groups("undo"), 1);
}

TEST_F(GizmoJourneyTest, TheViewIsNotReloadedDuringADrag) {
    playView("dump document {}/before\n" + Grab + Way +
        "reload\nwait 2\ndump document {}/held\nmove 9 9\nwait 1\ndump document {}/moved\nrelease left\nwait 1\n"
        "dump undo {}/undo\ndump log {}/log\nundo\nwait 1\ndump document {}/undone\n");
    EXPECT_THAT(read("log"), HasSubstr("The view is not reloaded while something is dragged\n"));
    EXPECT_EQ(otherThan("held", "moved"), "translation ") << "it goes on";
    EXPECT_EQ(groups("undo"), 1);
    EXPECT_TRUE(read("undone") == read("before"));
}

TEST_F(GizmoJourneyTest, TheFocusLostDuringADrag) {
    playView("dump document {}/before\n" + Grab + Way +
        "focus off\nwait 2\ndump document {}/lost\nmove 30 30\nfocus on\n"
        "wait 1\ndump document {}/after\nundo\nwait 1\ndump document {}/undone\n");
    EXPECT_TRUE(read("lost") != read("before"));
    EXPECT_TRUE(read("after") == read("lost"));
    EXPECT_TRUE(read("undone") == read("before"));
}

}

}
