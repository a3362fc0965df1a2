#include <algorithm>
#include <csignal>
#include <filesystem>
#include <memory>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "Journeys/Barrel.h"
#include "Journeys/Journey.h"
#include "Journeys/RunningEditor.h"

namespace VantrelTest {

namespace {

using testing::HasSubstr;

std::string tap(const std::string& key) { return "key " + key + "\nkeyup " + key + "\n"; }
std::string withCtrl(const std::string& key) { return "key LeftCtrl\n" + tap(key) + "keyup LeftCtrl\n"; }

std::string repeated(const std::string& text, int count) {
    std::string all;
    while(count--) all += text;
    return all;
}

rapidjson::Document parsed(const std::string& text) {
    rapidjson::Document document;
    document.Parse(text.data());
    EXPECT_FALSE(document.HasParseError()) << text;
    return document;
}
// As values: the order of an object's keys is none.
bool isSame(const std::string& a, const std::string& b) { return parsed(a) == parsed(b); }

// All that somebody does in a day, by mouse and keys: beginning with nothing, and coming back after the editor was killed.
class DayJourneyTest: public JourneyTest {
protected:
    // Of the view's picture in the window.
    static constexpr int OriginX = 286, OriginY = 69;
    static constexpr int DropX = 520, DropY = 300;
    // In the middle of its gizmo, then.
    static constexpr const char* Grab = "mouse 527 262\nwait 2\npress left\n";

    DayJourneyTest() {
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        folder.write("models/barrel.obj", Barrel);
        std::filesystem::create_directory(folder.path("day"));
    }
    ~DayJourneyTest() override { unsetenv("XDG_DATA_HOME"); }

    static std::string dropModel() {
        return "dump document {}/start\nmouse 520 300\ndrag file {}/models/barrel.obj\nwait 2\nrelease left\nwait "
               "import\n"
               "wait 2\ndump document {}/dropped\nidimage {}/ids.png\n";
    }
    std::string options(const std::string& more) const {
        return "--converter " REAL_CONVERTER " --size 1000x700 --frames 1 --journal " + more;
    }
    void run(const std::string& script, const std::string& more) {
        const JourneyResult result = play(script, options(more));
        EXPECT_EQ(result.status, 0) << result.output;
    }
    // Plays until all is done, and is killed then.
    void runAndKill(std::string script) {
        script += "dump log {}/ready\nwait 1000000\n";
        for(std::size_t place = script.find("{}"); place != script.npos; place = script.find("{}", place))
            script.replace(place, 2, folder.path().string());
        folder.write("day.txt", script);
        RunningEditor editor{{"--headless", "--journal", "--converter", REAL_CONVERTER, "--size", "1000x700",
                                 "--script", folder.path("day.txt")},
            folder.path("output")};
        ASSERT_TRUE(waitForFile(folder.path("ready"))) << read("output");
        EXPECT_EQ(editor.end(SIGKILL), 128 + SIGKILL);
    }
    // Of the bottom of what was dropped, which is where the mouse was.
    void expectItStandsUnderTheMouse() const {
        const JourneyPicture ids = picture("ids.png");
        EXPECT_NE(ids.pixel(DropX - OriginX, DropY - OriginY - 8), 0u);
        EXPECT_NEAR(translation("dropped", "barrel", 1), 1.0, 1e-4);
    }
    double translation(const std::string& dump, const char* object, unsigned axis) const {
        return parsed(read(dump))["objects"][object]["translation"][axis].GetDouble();
    }
};

TEST_F(DayJourneyTest, EverythingIsThereAgain) {
    // The model, its place, another material, a second one: four steps, of which each is a gesture or a key. What is killed
    // has two more.
    runAndKill(dropModel() + Grab +
        "move 12 -6\nmove 20 -4\nmove 20 4\nrelease left\nwait 1\ndump document {}/moved\n" +
        "drag materials flat\nmove 4 0\nwait 2\nrelease left\nwait 2\ndump document {}/painted\n" + withCtrl("D") +
        "wait 2\ndump document {}/doubled\ndump history {}/history\n" + repeated(withCtrl("Z"), 4) +
        "wait 1\ndump document {}/undone\n" + repeated(withCtrl("Y"), 4) +
        "wait 1\ndump document {}/redone\nsave {}/day/scene.json\ndump document {}/saved\n" +
        "move 10 0\nwait 1\npress left\nmove 15 10\nmove 15 10\nrelease left\nwait 1\n" +
        "select barrel-2\nmouse 520 120\nwait 1\n" + tap("Delete") +
        "wait 1\ndump document {}/killed\ndump history {}/killed-history\nscreenshot {}/killed.png\n");
    expectItStandsUnderTheMouse();
    EXPECT_NE(translation("moved", "barrel", 0), translation("dropped", "barrel", 0));
    EXPECT_THAT(read("dropped"), HasSubstr("\"material\": \"default\""));
    EXPECT_THAT(read("painted"), HasSubstr("\"material\": \"flat\""));
    EXPECT_EQ(parsed(read("doubled"))["objects"].MemberCount(), parsed(read("painted"))["objects"].MemberCount() + 1);
    const std::string history = read("history");
    EXPECT_EQ(std::count(history.begin(), history.end(), '\n'), 4) << history;
    EXPECT_EQ(read("undone"), read("start"));
    EXPECT_TRUE(isSame(read("redone"), read("doubled")));
    EXPECT_TRUE(isSame(read("day/scene.json"), read("saved")));
    EXPECT_FALSE(isSame(read("killed"), read("saved")));

    run("dump document {}/after\ndump history {}/after-history\nwait 2\nmouse 520 120\nwait 1\nscreenshot "
        "{}/after.png\n" +
            repeated("undo\n", 6) + "dump document {}/after-start\n" + repeated("redo\n", 6) +
            "dump document {}/after-end\nsave {}/day/scene.json\n",
        "--recover yes " + folder.path("day/scene.json"));
    EXPECT_TRUE(isSame(read("after"), read("killed")));
    EXPECT_EQ(read("after-history"), read("killed-history"));
    EXPECT_TRUE(isSame(read("after-start"), read("start")));
    EXPECT_TRUE(isSame(read("after-end"), read("killed")));
    EXPECT_TRUE(isSame(read("day/scene.json"), read("killed")));
}

// Killed before it was ever saved.
TEST_F(DayJourneyTest, WhatWasNeverSavedIsThereAgain) {
    runAndKill(dropModel() + Grab +
        "move 12 -6\nmove 20 -4\nrelease left\nwait 1\ndump document {}/killed\n"
        // Half a gesture never was.
        "press left\nmove 9 9\nmove 9 9\ndump document {}/held\n");
    EXPECT_FALSE(isSame(read("killed"), read("held")));
    run("wait 3\n" + tap("Enter") +
            "wait 6\ndump document {}/after\nidimage {}/after.png\nsave {}/day/scene.json\nundo\nundo\n"
            "dump document {}/undone\n",
        "--recover ask");
    EXPECT_TRUE(isSame(read("after"), read("killed")));
    EXPECT_TRUE(isSame(read("undone"), read("start")));
    EXPECT_GT(picture("after.png").pixel(DropX - OriginX + 32, DropY - OriginY - 18), 0u) << "with its files";
    // The files have come along.
    run("wait 2\nidimage {}/opened.png\n", folder.path("day/scene.json"));
    EXPECT_GT(picture("opened.png").pixel(DropX - OriginX + 32, DropY - OriginY - 18), 0u);
}

}

}
