#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// The courtyard at 900 x 640: what stands where, in window points.
constexpr const char* Ball = "342 252";
constexpr const char* Rim = "430 270";
constexpr const char* Roof = "430 205";
constexpr const char* Ground = "350 340";
constexpr const char* Sky = "300 185";
// Below the mouse nothing is named there.
constexpr const char* Outside = "100 625";

std::string clickAt(const std::string& place, const std::string& modifiers = "") {
    return "mouse " + place + "\npress left " + modifiers + "\nrelease left " + modifiers + "\n";
}

// The view's menu "Debug" and an item of it, from the top.
std::string chooseDebug(int item) { return clickAt("417 58") + clickAt("430 " + std::to_string(84 + 20 * item)); }

bool isOutline(unsigned color) { return color >> 16 > 180 && (color >> 8 & 0xff) < 60 && (color & 0xff) > 90; }

class PickingJourneyTest: public JourneyTest {
protected:
    std::string playView(const std::string& script) {
        const JourneyResult result = play(script, "--size 900x640 --frames 1 " + Courtyard);
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }
    rapidjson::Document ball(const std::string& dump) const {
        rapidjson::Document document, ball;
        document.Parse(read(dump).data());
        ball.CopyFrom(document["objects"]["ball"], ball.GetAllocator());
        return ball;
    }
    std::string selectedAfter(const std::string& script) {
        playView(script + "dump selection {}/selection\n");
        return read("selection");
    }
};

TEST_F(PickingJourneyTest, AClickSelectsWhatIsSeen) {
    playView(clickAt(Ball) + "dump selection {}/ball\n" + clickAt(Rim) + "dump selection {}/rim\n" + clickAt(Sky) +
        "dump selection {}/nothing\n");
    EXPECT_EQ(read("ball"), "ball\n");
    EXPECT_EQ(read("rim"), "wellRim\n");
    EXPECT_EQ(read("nothing"), "");
}

TEST_F(PickingJourneyTest, ShiftAndAClickAddOrTakeOut) {
    playView(clickAt(Ball) + clickAt(Ground, "shift") + "dump selection {}/both\n" + clickAt(Sky, "shift") +
        "dump selection {}/kept\n" + clickAt(Ground, "shift") + "dump selection {}/ball\n");
    EXPECT_EQ(read("both"), "ground\nball\n");
    EXPECT_EQ(read("kept"), "ground\nball\n");
    EXPECT_EQ(read("ball"), "ball\n");
}

// In the frame of the click already: "release" is the next one.
TEST_F(PickingJourneyTest, TheNextFrameShowsTheSelection) {
    playView("mouse " + std::string{Ball} + "\nidimage {}/ids.png\nscreenshot {}/before.png\npress left\n" +
        "screenshot {}/pressed.png\nrelease left\nmouse " + Outside + "\nwait 2\nscreenshot {}/selected.png\n");
    const JourneyPicture before = picture("before.png"), pressed = picture("pressed.png");
    // Above the ball, where its outline is.
    std::size_t outlined = 0;
    for(int y = 230; y != 250; ++y) outlined += isOutline(pressed.pixel(342, y)) && !isOutline(before.pixel(342, y));
    EXPECT_GT(outlined, 1);
}

TEST_F(PickingJourneyTest, PlacementIsOneStep) {
    playView(clickAt(Ball) + "dump document {}/before\ndump undo {}/steps\n" + clickAt(Rim, "ctrl shift") +
        "wait 2\nscreenshot {}/placed.png\ndump document {}/after\ndump undo {}/placed\ndump history {}/history\n"
        "dump selection {}/selection\n"
        "undo\nwait 1\ndump document {}/undone\nredo\nwait 1\ndump document {}/redone\n");
    EXPECT_TRUE(read("after") != read("before"));
    EXPECT_TRUE(read("undone") == read("before"));
    EXPECT_TRUE(read("redone") == read("after"));
    EXPECT_EQ(read("selection"), "ball\n");
    EXPECT_EQ(read("steps"), "");
    EXPECT_THAT(read("placed"), HasSubstr("/objects/ball/translation"));
    EXPECT_THAT(read("placed"), EndsWith("> 1 /objects/ball/scaling\n"));
    EXPECT_THAT(read("history"), EndsWith(" Place Ball\n"));
    // It keeps its own scaling, but for what the last digit loses on the way, at the place of the rim.
    for(unsigned axis = 0; axis != 3; ++axis) {
        const auto scaling = [&](const char* name) { return ball(name)["scaling"][axis].GetDouble(); };
        EXPECT_NEAR(scaling("after"), scaling("before"), 1e-6);
    }
    EXPECT_NE(ball("after")["translation"], ball("before")["translation"]);
}

TEST_F(PickingJourneyTest, NothingIsPlacedOnNothing) {
    playView(clickAt(Ball) + clickAt(Sky, "ctrl shift") + "dump selection {}/selection\nselect\n" +
        clickAt(Rim, "ctrl shift") + "dump undo {}/steps\n");
    EXPECT_EQ(read("selection"), "ball\n");
    EXPECT_EQ(read("steps"), "");
}

// The view would end the process.
TEST_F(PickingJourneyTest, NothingIsPlacedBelowAScaledParent) {
    playView("record /objects/well/scaling [2,2,2]\nselect wellRim\ndump undo {}/steps\n" +
        clickAt(Ball, "ctrl shift") + "dump undo {}/after\ndump selection {}/selection\ndump log {}/log\n");
    EXPECT_EQ(read("after"), read("steps"));
    EXPECT_EQ(read("selection"), "wellRim\n");
    EXPECT_THAT(read("log"), HasSubstr("\"Rim\" cannot be placed: its parent \"Well\" is scaled\n"));
}

// From one place to another, by the key B.
std::string boxFrom(const std::string& from, const std::string& to, const std::string& modifiers = "") {
    return "mouse " + from + "\nkey B\nkeyup B\npress left\nmouse " + to + "\nrelease left " + modifiers + "\n";
}

// About the ball, and about the well with what is behind it.
constexpr const char* AboveBall = "318 232";
constexpr const char* BelowBall = "362 268";

TEST_F(PickingJourneyTest, ABoxSelectsTheSameInAllDirections) {
    playView(boxFrom(AboveBall, BelowBall) + "dump selection {}/down\nselect well\n" + boxFrom(BelowBall, AboveBall) +
        "dump selection {}/up\nselect well\n" + boxFrom("318 268", "362 232") + "dump selection {}/across\n");
    EXPECT_EQ(read("down"), "ground\nball\n");
    EXPECT_EQ(read("up"), read("down"));
    EXPECT_EQ(read("across"), read("down"));
}

TEST_F(PickingJourneyTest, AShiftBoxAddsAndAPlainOneWithoutPixelsClears) {
    playView("select ball sun\n" + boxFrom(AboveBall, BelowBall, "shift") + "dump selection {}/added\n" +
        boxFrom(AboveBall, AboveBall, "shift") + "dump selection {}/kept\n" + boxFrom(AboveBall, "362 232") +
        "dump selection {}/nothing\n");
    EXPECT_EQ(read("added"), "ground\nball\nsun\n");
    EXPECT_EQ(read("kept"), read("added"));
    EXPECT_EQ(read("nothing"), "");
}

// What is selected could not be placed, but nothing is to be.
TEST_F(PickingJourneyTest, ABoxBeginsWithAnyModifiers) {
    playView("record /objects/well/scaling [1,2,1]\nselect wellRim\nmouse " + std::string{AboveBall} +
        "\nkey B\nkeyup B\npress left ctrl shift\nmouse " + BelowBall +
        "\nrelease left\ndump selection {}/selection\ndump log {}/log\n");
    EXPECT_EQ(read("selection"), "ground\nball\n");
    EXPECT_THAT(read("log"), Not(HasSubstr("cannot be placed")));
}

TEST_F(PickingJourneyTest, EscapeGivesABoxUp) {
    const std::string escape = "key Escape\nkeyup Escape\n";
    playView("select sun\nmouse 318 232\nkey B\nkeyup B\npress left\nmouse 362 268\n" + escape +
        "release left\ndump selection {}/dragged\nkey B\nkeyup B\n" + escape + clickAt(Rim) +
        "dump selection {}/clicked\n");
    EXPECT_EQ(read("dragged"), "sun\n");
    EXPECT_EQ(read("clicked"), "wellRim\n");
}

// The releases that come with it, and with a reload, are nobody's.
TEST_F(PickingJourneyTest, ABoxIsGivenUpWithTheFocusAndWithTheView) {
    for(const char* const end: {"focus off\nfocus on\n", "reload\n"}) {
        playView("select sun\nmouse 318 232\nkey B\nkeyup B\npress left\nmouse 362 268\n" + std::string{end} +
            "release left\ndump selection {}/lost\n" + clickAt(Rim) + "dump selection {}/clicked\n");
        EXPECT_EQ(read("lost"), "sun\n") << end;
        EXPECT_EQ(read("clicked"), "wellRim\n") << end;
    }
}

TEST_F(PickingJourneyTest, ABoxIsSeenWhileItIsDragged) {
    playView("mouse 318 232\nkey B\nkeyup B\nwait 1\nscreenshot {}/armed.png\npress left\nmouse 400 320\n"
             "screenshot {}/dragged.png\nrelease left\n");
    const JourneyPicture armed = picture("armed.png"), dragged = picture("dragged.png");
    const auto isEdge = [](unsigned color) {
        return color >> 16 > 220 && (color >> 8 & 0xff) < 90 && (color & 0xff) > 100;
    };
    for(const auto& [x, y]: {std::pair{360, 232}, {360, 319}, {318, 300}, {399, 300}}) {
        EXPECT_TRUE(isEdge(dragged.pixel(x, y))) << x << ' ' << y;
        EXPECT_FALSE(isEdge(armed.pixel(x, y))) << x << ' ' << y;
    }
    EXPECT_EQ(dragged.pixel(380, 300), armed.pixel(380, 300));
}

TEST_F(PickingJourneyTest, TheSimulationIsChosenWhereTheProjectHasPhysics) {
    playView(chooseDebug(6) + "dump log {}/without\nrecord /settings/physx/enable true\nwait 1\n" + clickAt(Sky) +
        chooseDebug(6) + "dump log {}/with\n");
    EXPECT_THAT(read("without"), Not(HasSubstr("simulating physics")));
    EXPECT_THAT(read("with"), HasSubstr("Started simulating physics"));
}

TEST_F(PickingJourneyTest, OverdrawCanBeChosenAndSaysWhatItMeans) {
    const std::string away = std::string{"mouse "} + Outside + "\nwait 2\n";
    playView(away + "screenshot {}/before.png\n" + chooseDebug(3) + away + "screenshot {}/overdraw.png\n" +
        chooseDebug(3) + away + "screenshot {}/after.png\n");
    const JourneyPicture before = picture("before.png"), overdraw = picture("overdraw.png");
    EXPECT_TRUE(picture("after.png").pixels == before.pixels);
    // The ground is drawn once, the rim in front of it.
    const unsigned once = overdraw.pixel(350, 390), twice = overdraw.pixel(430, 270);
    EXPECT_GT(once >> 8 & 0xff, once >> 16);
    EXPECT_GT(twice >> 16, once >> 16);
    // The gradient, from above.
    bool isRed = false, isYellow = false, isGreen = false;
    for(int y = 170; y != 400; ++y) {
        const unsigned color = overdraw.pixel(300, y), red = color >> 16, green = color >> 8 & 0xff,
                       blue = color & 0xff;
        isRed = isRed || (red > 240 && green < 40 && blue == 0);
        isYellow = isYellow || (isRed && red > 230 && green > 230 && blue < 20);
        isGreen = isGreen || (isYellow && red < 70 && green > 160 && blue > 70);
    }
    EXPECT_TRUE(isRed);
    EXPECT_TRUE(isYellow);
    EXPECT_TRUE(isGreen);
}

TEST_F(PickingJourneyTest, TheLegendNamesWhatIsBelowTheMouse) {
    const auto shot = [](const std::string& place, const std::string& file) {
        return "mouse " + place + "\nwait 1\nscreenshot {}/" + file + "\n";
    };
    playView(shot(Sky, "sky.png") + shot(Ball, "ball.png") + shot(Roof, "roof.png") + shot(Outside, "outside.png"));
    const JourneyPicture sky = picture("sky.png");
    EXPECT_TRUE(picture("outside.png").pixels == sky.pixels);
    // The lower left corner of the view.
    const auto differs = [&](const JourneyPicture& other, int x, int y) {
        return other.pixel(x, y) != sky.pixel(x, y);
    };
    for(const char* file: {"ball.png", "roof.png"}) {
        EXPECT_TRUE(differs(picture(file), 288, 408)) << file;
        EXPECT_FALSE(differs(picture(file), 500, 408)) << file;
    }
    EXPECT_TRUE(picture("ball.png").pixels != picture("roof.png").pixels);
}

TEST_F(PickingJourneyTest, TheMouseGoesPastTheLegend) {
    EXPECT_EQ(selectedAfter("mouse 290 405\nwait 3\npress left\nrelease left\n"), "ground\n");
}

TEST_F(PickingJourneyTest, AnOpenMenuKeepsClicksForItself) {
    // Below the menu, and beside it.
    EXPECT_EQ(selectedAfter("select ball\n" + clickAt("417 58") + clickAt("410 330")), "ball\n");
    EXPECT_EQ(selectedAfter("select ball\n" + clickAt("417 58") + clickAt("342 330")), "ball\n");
}

TEST_F(PickingJourneyTest, TheTextureOverlayKeepsClicksForItself) {
    playView("select ball\n" + chooseDebug(0) + "wait 2\nmouse " + Ground + "\nwait 1\nscreenshot {}/open.png\n" +
        clickAt(Ground) + "dump selection {}/selection\n");
    EXPECT_EQ(read("selection"), "ball\n");
}

} // namespace

} // namespace VantrelTest
