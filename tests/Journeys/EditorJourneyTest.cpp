#include <gmock/gmock.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using EditorJourneyTest = JourneyTest;

std::string withControl(const std::string& key) {
    return "key LeftCtrl\nkey " + key + "\nkeyup " + key + "\nkeyup LeftCtrl\n";
}

TEST_F(EditorJourneyTest, PressesOverTheViewAreTheViews) {
    EXPECT_EQ(heard(play(R"(
mouse 600 300
press right shift
mouse 100 300
release right
# Over the list of objects.
press left
release left
mouse 600 300
release middle
press middle
release middle
)")),
        "init true\npress 1 600 300 1\nrelease 1 100 300 0\npress 2 600 300 0\nrelease 2 600 300 0\ndeleted\n");
}

TEST_F(EditorJourneyTest, MovementsAreWholePointsThatAddUp) {
    const std::string output = play("mouse 600 300\nmove 0.6 0\nmove 0.6 -2\nmove 0.6 0\n");
    EXPECT_THAT(output, HasSubstr("recorder: move 601 301 0\nrecorder: move 1 -2 0\n"));
}

TEST_F(EditorJourneyTest, KeysReachTheView) {
    EXPECT_EQ(heard(play(R"(
# The view has the focus at first.
key W
keyup W
mouse 600 300
press left
release left
key LeftShift
key W
keyup LeftShift
# The list takes the focus; which keys want it, the view says.
mouse 100 600
press left
release left
keyup W
key A
key A repeat
keyup A
# Not while a menu is open.
mouse 60 10
press left
release left
key A
keyup A
)")),
        "init true\nkey 87 0 false\nkeyup 87 0 false\npress 0 600 300 0\nrelease 0 600 300 0\nkey 340 1 false\nkey 87 "
        "1 false\nkeyup 340 0 false\n"
        "keyup 87 0 false\nkey 65 0 false\nkey 65 0 true\nkeyup 65 0 false\ndeleted\n");
}

TEST_F(EditorJourneyTest, LosingTheFocusReleasesWhatIsHeld) {
    EXPECT_EQ(heard(play("mouse 600 300\npress right\nkey W\nfocus off\nfocus on\nkeyup W\nrelease right\n")),
        "init true\npress 1 600 300 0\nkey 87 0 false\nfocus lost\nkeyup 87 0 false\nrelease 1 600 300 0\ndeleted\n");
}

TEST_F(EditorJourneyTest, ReloadReleasesWhatIsHeldAndGoesOn) {
    EXPECT_EQ(
        heard(play("mouse 600 300\npress right\nkey W\nreload\nkeyup W\nrelease right\npress left\nrelease left\n")),
        "init true\npress 1 600 300 0\nkey 87 0 false\nfocus lost\nkeyup 87 0 false\nrelease 1 600 300 "
        "0\nsaved\ndeleted\nload\n"
        "init true\npress 0 600 300 0\nrelease 0 600 300 0\ndeleted\n");
}

TEST_F(EditorJourneyTest, AViewThatIsRefusedIsTheOldOneStill) {
    folder.write("Recorder.so", readFile(Recorder).substr(0, 5000));
    const std::string output =
        play("reload {}/Recorder.so\nkey Enter\nkeyup Enter\nwait 2\nmouse 600 300\npress left\nrelease left\n"
             "reload " OTHER_RECORDER "\nkey Enter\nkeyup Enter\nwait 2\npress left\nrelease left\n");
    EXPECT_THAT(output,
        AllOf(HasSubstr(folder.path("Recorder.so") + ": the file is cut off\n"),
            HasSubstr(OTHER_RECORDER ": PluginManager::Manager::load(): wrong version of plugin Recorder")));
    EXPECT_EQ(heard(output),
        "init true\npress 0 600 300 0\nrelease 0 600 300 0\nsaved\ndeleted\nload\ninit true\npress 0 600 300 0\n"
        "release 0 600 300 0\ndeleted\n");
}

TEST_F(EditorJourneyTest, ADialogKeepsEventsFromTheView) {
    EXPECT_EQ(heard(play("key F1\nreload {}/missing.so\nmouse 600 300\npress left\nrelease left\nkey W\nkeyup W\n")),
        "init true\ndeleted\n");
}

TEST_F(EditorJourneyTest, ClicksInTheListSelect) {
    play(R"(
mouse 60 96
press left
release left
dump selection {}/one
key LeftCtrl
mouse 60 134
press left
release left
dump selection {}/two
mouse 60 96
press left
release left
keyup LeftCtrl
dump selection {}/toggled
key LeftShift
mouse 60 134
press left
release left
keyup LeftShift
dump selection {}/range
select crates ball
dump selection {}/chosen
select
dump selection {}/none
)");
    EXPECT_EQ(read("one"), "ground\n");
    EXPECT_EQ(read("two"), "ground\ncolumn1\n");
    EXPECT_EQ(read("toggled"), "column1\n");
    EXPECT_EQ(read("range"), "ground\ncolumns\ncolumn1\n");
    EXPECT_EQ(read("chosen"), "crates\nball\n");
    EXPECT_EQ(read("none"), "");
}

TEST_F(EditorJourneyTest, EditsAreUndoneAndSaved) {
    play(R"(
dump document {}/before
record /objects/ball/name "Marble"
record /objects/ball/translation [1, 2, 3]
dump document {}/after
dump undo {}/log
key LeftCtrl
key Z
keyup Z
key Z
keyup Z
dump document {}/undone
key Y
keyup Y
keyup LeftCtrl
dump undo {}/redone
redo
save {}/saved.json
)");
    EXPECT_NE(read("after"), read("before"));
    EXPECT_EQ(read("undone"), read("before"));
    EXPECT_EQ(read("saved.json"), read("after"));
    EXPECT_EQ(read("log"), "  -1 /objects/ball/name\n> -1 /objects/ball/translation\n");
    EXPECT_EQ(read("redone"), "> -1 /objects/ball/name\n  -1 /objects/ball/translation\n");
}

TEST_F(EditorJourneyTest, ANewProjectHasNoObjectsAndTheViewStays) {
    EXPECT_EQ(heard(play("new\nselect\ndump document {}/document\nopen " + Courtyard + "\nselect ball\n")),
        "init true\ndeleted\n");
    EXPECT_THAT(read("document"), Not(HasSubstr("ball")));
}

TEST_F(EditorJourneyTest, UnsavedChangesAreAskedFor) {
    // Quits only when the question was answered: Escape keeps the project, Enter saves it.
    folder.write("project.json", readFile(Courtyard));
    play(R"(
open {}/project.json
record /objects/ball/name "Marble"
key LeftCtrl
key N
keyup N
keyup LeftCtrl
key Escape
keyup Escape
wait 2
dump document {}/kept
key LeftCtrl
key N
keyup N
keyup LeftCtrl
key Enter
keyup Enter
wait 2
dump document {}/fresh
)");
    EXPECT_THAT(read("kept"), HasSubstr("Marble"));
    EXPECT_THAT(read("fresh"), Not(HasSubstr("ball")));
    EXPECT_THAT(read("project.json"), HasSubstr("Marble"));
}

TEST_F(EditorJourneyTest, DialogsWaitForEachOther) {
    // A message comes over the choice of a file, which is there again afterwards.
    folder.write("project.json", readFile(Courtyard));
    folder.write("other.json", R"({"objects":{"only":{"name":"Alone"}}})");
    play("wait 2\nreload {}/missing.so\nwait 30\nscreenshot {}/message.png\n");
    play("open {}/project.json\n" + withControl("O") + R"(
wait 2
screenshot {}/files.png
reload {}/missing.so
wait 30
screenshot {}/both.png
key Enter
keyup Enter
wait 4
mouse 250 200
press left
release left
mouse 255 555
press left
release left
wait 5
dump document {}/document
)");
    EXPECT_THAT(read("document"), HasSubstr("Alone"));
    const JourneyPicture message = picture("message.png"), files = picture("files.png"), both = picture("both.png");
    int differentFromMessage = 0, differentFromFiles = 0;
    // Where the dialogs are, over the view.
    for(int y = 130; y != 500; ++y)
        for(int x = 300; x != 700; ++x) {
            differentFromMessage += both.pixel(x, y) != message.pixel(x, y);
            differentFromFiles += both.pixel(x, y) != files.pixel(x, y);
        }
    EXPECT_EQ(differentFromMessage, 0);
    EXPECT_GT(differentFromFiles, 10000);
}

TEST_F(EditorJourneyTest, OpeningIsSeenBeforeItHappens) {
    constexpr unsigned View = 0x3c5a82;
    folder.write("project.json", readFile(Courtyard));
    folder.write("other.json", R"({"objects":{"only":{"name":"Alone"}}})");
    play("open {}/project.json\n" + withControl("O") + R"(
wait 2
mouse 250 200
press left
release left
mouse 255 555
press left
release left
wait 2
screenshot {}/busy.png
dump document {}/before
wait 3
screenshot {}/opened.png
dump document {}/after
)");
    EXPECT_NE(picture("busy.png").pixel(500, 350), View);
    EXPECT_THAT(read("before"), Not(HasSubstr("Alone")));
    EXPECT_EQ(picture("opened.png").pixel(500, 350), View);
    EXPECT_THAT(read("after"), HasSubstr("Alone"));
}

TEST_F(EditorJourneyTest, ARepairedFileIsWrittenOverWhenThatIsWishedFor) {
    const std::string repaired = R"({"objects":{"x":{"parent":"x"}}})";
    folder.write("project.json", repaired);
    const std::string log = play("open {}/project.json\n" + withControl("S") +
        "wait 2\ndump document {}/kept\nsave "
        "{}/copy.json\nopen {}/project.json\n" +
        withControl("S") + R"(
wait 2
key Escape
keyup Escape
wait 2
)" + withControl("S") +
        R"(
wait 2
key Enter
keyup Enter
wait 2
)");
    EXPECT_THAT(log, HasSubstr("the file is kept as it is"));
    EXPECT_NE(read("project.json"), repaired);
    EXPECT_EQ(read("project.json.bak"), repaired);
}

TEST_F(EditorJourneyTest, ASaveThatFailsIsNotTriedAgainAndNothingIsLeft) {
    folder.write("project.json", readFile(Courtyard));
    // The backup has no place.
    std::filesystem::create_directories(folder.path("project.json.bak/folder"));
    play(R"(
open {}/project.json
record /objects/ball/name "Marble"
)" + withControl("N") +
        R"(
key Enter
keyup Enter
wait 2
key Enter
keyup Enter
wait 2
dump log {}/log
save {}/elsewhere.json
)" + withControl("S") +
        R"(
wait 2
dump document {}/document
)");
    const std::string log = read("log"), error = folder.path("project.json") + ": ";
    const std::size_t first = log.find(error);
    ASSERT_NE(first, std::string::npos) << log;
    EXPECT_EQ(log.find(error, first + 1), std::string::npos) << log;
    EXPECT_EQ(read("project.json"), readFile(Courtyard));
    EXPECT_THAT(read("document"), HasSubstr("Marble")) << "the new project waited for a save that failed";
}

TEST_F(EditorJourneyTest, SplittersArrangeThePanes) {
    constexpr unsigned View = 0x3c5a82;
    play(R"(
screenshot {}/before.png
mouse 282 400
press left
mouse 182 400
release left
screenshot {}/after.png
)");
    // The view begins behind the list and its splitter.
    EXPECT_NE(picture("before.png").pixel(250, 300), View);
    EXPECT_EQ(picture("before.png").pixel(310, 300), View);
    EXPECT_EQ(picture("after.png").pixel(250, 300), View);
    EXPECT_NE(picture("after.png").pixel(170, 300), View);
}

TEST_F(EditorJourneyTest, SizesOfWindowAndText) {
    play("screenshot {}/a.png\nresize 640 480\nscreenshot {}/b.png\nscale 2\nscreenshot {}/c.png\nfontsize 3\n"
         "screenshot {}/d.png\nscale 1\nresize 1 1\nresize 40 30\nscreenshot {}/e.png\n");
    const struct {
        const char* name;
        int width, height;
    } cases[]{{"a.png", 1000, 700}, {"b.png", 640, 480}, {"c.png", 1280, 960}, {"d.png", 1280, 960}, {"e.png", 40, 30}};
    for(const auto& testCase: cases) {
        EXPECT_EQ(picture(testCase.name).width, testCase.width) << testCase.name;
        EXPECT_EQ(picture(testCase.name).height, testCase.height) << testCase.name;
    }
    EXPECT_NE(picture("c.png").pixels, picture("d.png").pixels);
}

TEST_F(EditorJourneyTest, FilesAreDroppedOnTheView) {
    EXPECT_EQ(heard(play("drop /some where/a b.png 600 300\nwait 6\ndrop /elsewhere.png 100 600\nwait 6\n")),
        "init true\ndropped /some where/a b.png\ndeleted\n");
}

TEST_F(EditorJourneyTest, ADropTakesFourFrames) {
    play("drop /a.png 600 300\nwait 2\ndump log {}/third\nwait 1\ndump log {}/fourth\n");
    EXPECT_THAT(read("third"), Not(HasSubstr("dropped")));
    EXPECT_THAT(read("fourth"), HasSubstr("dropped /a.png"));
}

TEST_F(EditorJourneyTest, TwoRunsAreTheSame) {
    const std::string script = "mouse 600 300\npress right\nwait 5\nkey W\nwait 10\nkeyup W\nrelease right\n"
                               "record /objects/ball/name \"Marble\"\nwait 3\nscreenshot {}/picture.png\n"
                               "dump document {}/document\ndump log {}/log\ndump undo {}/undo\n";
    std::string first;
    for(int i = 0; i != 2; ++i) {
        play(script);
        const std::string all = read("picture.png") + read("document") + read("log") + read("undo");
        EXPECT_GT(all.size(), 1000);
        if(i)
            EXPECT_EQ(all, first);
        else
            first = all;
    }
}

TEST_F(EditorJourneyTest, MistakesInAScript) {
    const struct {
        const char *script, *complaint;
    } cases[]{{"wait 1\nwiat 2\n", "line 2: \"wiat 2\": there is no such command"},
        {"select nobody\n", "line 1: \"select nobody\": there is no object \"nobody\""},
        {"record objects 1\n", "line 1: \"record objects 1\": a pointer begins with \"/\": \"objects\""},
        {"wait 1\nopen {}/missing.json\nwait 1\n", "missing.json"},
        {"screenshot {}/no/such/folder.png\n", "folder.png: the picture cannot be written"},
        {"idimage {}/ids.png\n", "there is no view that has drawn"},
        {"resize 8192 1\nscale 4\n", "line 2: \"scale 4\": 32768x4 pixels cannot be drawn here"},
        {"resize 8192 8192\nscale 2\n", "line 2: \"scale 2\": 16384x16384 pixels cannot be drawn here"},
        {"dump log {}/no/such/folder\n", "the file cannot be written"}};
    for(const auto& testCase: cases) {
        const JourneyResult result = play(testCase.script, "--module " + Recorder + " " + Courtyard);
        EXPECT_EQ(result.status, 2) << testCase.script << result.output;
        EXPECT_THAT(
            result.output, AllOf(HasSubstr(folder.path("script.txt") + ": line "), HasSubstr(testCase.complaint)));
    }
}

TEST_F(EditorJourneyTest, WhatCannotBeOpenedEndsTheRun) {
    const struct {
        std::string arguments;
        int status;
        const char* complaint;
    } cases[]{{"--headless --module " + Recorder + " missing.json", 1, "missing.json"},
        {"--headless --module " + folder.path("missing.so") + " " + Courtyard, 1,
            "missing.so: the file cannot be read"},
        {"--headless --module " OTHER_RECORDER " " + Courtyard, 1, "wrong version of plugin Recorder"},
        {"--headless --module " + Recorder + " --screenshot " + folder.path("no/folder.png") + " " + Courtyard, 1,
            "the picture cannot be written"},
        {"--headless --size 8192x1 --scale 4 --module " + Recorder + " " + Courtyard, 1,
            "32768x4 pixels cannot be drawn here: at most "},
        {"--headless --script " + folder.path("missing.txt"), 2, "missing.txt: the script cannot be read"},
        {"--headless", 2, "--headless needs a project or a script"}};
    for(const auto& testCase: cases) {
        const JourneyResult result = runEditor(testCase.arguments);
        EXPECT_EQ(result.status, testCase.status) << result.output;
        EXPECT_THAT(result.output, HasSubstr(testCase.complaint));
    }
}

TEST_F(EditorJourneyTest, QuitEndsTheScript) {
    play("dump selection {}/before\nquit\ndump selection {}/after\n");
    EXPECT_TRUE(std::filesystem::exists(folder.path("before")));
    EXPECT_FALSE(std::filesystem::exists(folder.path("after")));
}

TEST_F(EditorJourneyTest, WithoutADisplayOneLineSaysSo) {
    const JourneyResult result = runEditor(Courtyard + " </dev/null");
    EXPECT_EQ(result.status, 8) << result.output;
    EXPECT_THAT(result.output, HasSubstr("could not initialize GLFW"));
}

}

}
