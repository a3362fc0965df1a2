#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

#include <gmock/gmock.h>

#include "Journeys/Journey.h"
#include "Journeys/RunningEditor.h"

namespace VantrelTest {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
namespace fs = std::filesystem;

const char* const Scene = R"({
  "objects": {
    "a": {"parent": "", "name": "A", "translation": [0, 0, 0], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1]},
    "b": {"parent": "a", "name": "B", "translation": [0, 1, 0], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1]}
  }
}
)";

std::string press(const std::string& key) { return "key " + key + "\nkeyup " + key + "\n"; }

class JournalJourneyTest: public JourneyTest {
protected:
    JournalJourneyTest() {
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        folder.write("p/scene.json", Scene);
    }
    ~JournalJourneyTest() override { unsetenv("XDG_DATA_HOME"); }

    std::string options() const { return "--module " + Recorder + " --size 640x400 --frames 1 --journal "; }
    // A run that comes to its end.
    std::string run(const std::string& script, const std::string& more, const std::string& project = "p/scene.json") {
        const JourneyResult result =
            play(script, options() + more + ' ' + (project.empty() ? project : folder.path(project)));
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }
    // One that plays a script, which says by a file named "ready" that all is done, and is still there then.
    void runUntilReady(const std::string& script, int signal, const std::string& project = "p/scene.json") {
        fs::remove(folder.path("ready"));
        std::unique_ptr<RunningEditor> editor = start(script + "dump log {}/ready\nwait 1000000\n", project);
        ASSERT_TRUE(waitForFile(folder.path("ready"))) << read("output");
        EXPECT_EQ(editor->end(signal), 128 + signal);
    }
    std::unique_ptr<RunningEditor> start(std::string script, const std::string& project) {
        for(std::size_t place = script.find("{}"); place != script.npos; place = script.find("{}", place))
            script.replace(place, 2, folder.path().string());
        folder.write("running.txt", script);
        std::vector<std::string> arguments{"--headless", "--journal", "--module", Recorder, "--size", "640x400",
            "--script", folder.path("running.txt")};
        if(!project.empty()) arguments.push_back(folder.path(project));
        return std::make_unique<RunningEditor>(arguments, folder.path("output"));
    }
    std::string journal() const { return folder.path("p/.scene.json.journal"); }
};

const std::string Edits = "record /objects/a/name \"First\"\nrecord /objects/b/name \"Second\"\n"
                          "record /objects/b/translation [4, 5, 6]\ndump document {}/before\ndump history {}/history\n";

TEST_F(JournalJourneyTest, WhateverEndsTheEditorTheStepsAreBroughtBack) {
    for(const int signal: {SIGKILL, SIGTERM, SIGHUP, SIGABRT}) {
        folder.write("p/scene.json", Scene);
        // The last thing that was done is an undo.
        runUntilReady(Edits + "undo\ndump document {}/before\ndump history {}/history\n", signal);
        EXPECT_EQ(read("p/scene.json"), Scene);
        run("dump document {}/after\ndump history {}/history-after\nsave {}/p/scene.json\n", "--recover yes");
        EXPECT_EQ(read("after"), read("before"));
        EXPECT_EQ(read("history-after"), read("history"));
        EXPECT_THAT(read("history"), HasSubstr("Second"));
        EXPECT_EQ(read("p/scene.json"), read("after"));
        EXPECT_FALSE(fs::exists(journal())) << "all of it is in the file";
    }
}

// What is under way when the window is closed or the session ends: a drag stays as far as it came, a text as it was typed.
class EndJourneyTest: public JournalJourneyTest {
protected:
    std::string underWay(bool isDrag) const {
        const std::string name =
            "field name\npress left\nrelease left\nkey LeftCtrl\n" + press("A") + "keyup LeftCtrl\n";
        return "wait 2\nselect ball\nwait 2\n" +
            (isDrag ? "mouse 342 252\nwait 2\npress left\nmove 12 -6\nmove 20 -4\n" : name + "type Globe\nwait 1\n");
    }
    std::string ball(const std::string& file) const {
        const std::string text = read(file);
        return text.substr(text.find("\"ball\""), 300);
    }
    std::string arguments(const std::string& more) const {
        return "--size 900x640 --frames 1 --journal " + more + ' ' + folder.path("c/project.json");
    }
    void SetUp() override {
        fs::copy(fs::path{Courtyard}.parent_path(), folder.path("c"), fs::copy_options::recursive);
    }
};

TEST_F(EndJourneyTest, TheUserIsAskedAboutIt) {
    for(const bool isDrag: {true, false}) {
        const JourneyResult result = play(underWay(isDrag) + "close\nwait 2\nscreenshot {}/closed.png\n" +
                press("Enter") + "wait 2\ndump document {}/still-there\n",
            arguments("--recover no"));
        EXPECT_EQ(result.status, 0) << result.output;
        EXPECT_FALSE(fs::exists(folder.path("still-there"))) << "it is saved, and the editor ends";
        EXPECT_NE(ball("c/project.json"), readFile(Courtyard).substr(readFile(Courtyard).find("\"ball\""), 300))
            << isDrag;
        EXPECT_FALSE(fs::exists(folder.path("c/.project.json.journal")));
    }
    EXPECT_THAT(ball("c/project.json"), HasSubstr("Globe"));
}

TEST_F(EndJourneyTest, ASessionThatEndsLeavesItToTheJournal) {
    for(const bool isDrag: {true, false}) {
        fs::remove(folder.path("ready"));
        std::string script = underWay(isDrag) + "dump log {}/ready\nwait 1000000\n";
        for(std::size_t place = script.find("{}"); place != script.npos; place = script.find("{}", place))
            script.replace(place, 2, folder.path().string());
        folder.write("running.txt", script);
        RunningEditor editor{{"--headless", "--journal", "--size", "900x640", "--script", folder.path("running.txt"),
                                 folder.path("c/project.json")},
            folder.path("output")};
        ASSERT_TRUE(waitForFile(folder.path("ready"))) << read("output");
        EXPECT_EQ(editor.end(isDrag ? SIGTERM : SIGHUP), 128 + (isDrag ? SIGTERM : SIGHUP));
        EXPECT_EQ(read("c/project.json"), readFile(Courtyard));
        EXPECT_EQ(play("dump document {}/after\ndump history {}/history\n", arguments("--recover yes")).status, 0);
        EXPECT_THAT(read("history"), HasSubstr(isDrag ? "Move Ball" : "Rename Ball to Globe"));
        const std::string history = read("history");
        EXPECT_EQ(std::count(history.begin(), history.end(), '\n'), 1) << history;
    }
    EXPECT_THAT(ball("after"), HasSubstr("Globe"));
}

TEST_F(JournalJourneyTest, TheUserIsAskedAndHasThreeAnswers) {
    runUntilReady(Edits, SIGKILL);
    const std::string kept = readFile(journal());
    // Cancelled, another project is open.
    run("wait 3\n" + press("Escape") + "wait 6\ndump document {}/cancelled\n", "--recover ask");
    EXPECT_THAT(read("cancelled"), Not(HasSubstr("\"a\"")));
    EXPECT_EQ(readFile(journal()), kept);
    fs::copy(folder.path("p"), folder.path("q"));
    run("wait 3\n" + press("Enter") + "wait 6\ndump document {}/after\nscreenshot {}/after.png\n", "--recover ask");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_EQ(read("p/scene.json"), Scene) << "it is not saved by that";
    run("wait 3\nmouse 320 266\nwait 2\npress left\nrelease left\nwait 6\ndump document {}/discarded\n",
        "--recover ask", "q/scene.json");
    EXPECT_THAT(read("discarded"), AllOf(HasSubstr("\"A\""), Not(HasSubstr("First"))));
    EXPECT_FALSE(fs::exists(folder.path("q/.scene.json.journal.1")));
}

TEST_F(JournalJourneyTest, ANewProjectIsBroughtBackWithoutAName) {
    const std::string object =
        R"({"parent": "", "name": "New", "translation": [0, 0, 0], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1]})";
    runUntilReady(
        "record /objects/x " + object + "\nrecord /objects/x/name \"X\"\ndump document {}/before\n", SIGKILL, "");
    run("wait 3\n" + press("Enter") +
            "wait 6\ndump document {}/after\nundo\nundo\ndump document {}/undone\nredo\nredo\n"
            "save {}/saved.json\ndump document {}/saved-as\n",
        "--recover ask", "");
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_THAT(read("undone"), Not(HasSubstr("\"x\"")));
    EXPECT_EQ(read("saved-as"), read("before"));
    EXPECT_TRUE(fs::is_empty(folder.path("data/vantrel"))) << "nothing is left behind";
}

// Opening another project keeps nothing secret: it is said, and the menu has all of them, also those that the user has put
// off.
TEST_F(JournalJourneyTest, ProjectsThatWereNeverSavedAreOfferedBesideAnother) {
    const auto leave = [this](const std::string& name) {
        runUntilReady("record /objects/" + name +
                R"( {"parent": "", "name": "New", "translation": [0, 0, 0], "rotation": [0, 0, 0, 1], "scaling": [1, 1, 1]})"
                "\n",
            SIGKILL, "");
    };
    leave("x");
    leave("y");
    const std::string told = "2 projects that were never saved can be brought back: File > Recover unsaved projects";
    const std::string click = "wait 2\npress left\nrelease left\nwait 2\n";
    const std::string openMenu = "mouse 20 10\n" + click + "mouse 40 100\nwait 2\n";
    EXPECT_THAT(run("wait 3\n" + press("Escape") + "wait 6\n", "--recover ask", ""), HasSubstr(told)) << "put off";
    EXPECT_THAT(run("", "--recover no"), HasSubstr(told));
    // The second one, from a project that is not saved: that is asked for first.
    const std::string output =
        run("wait 3\nrecord /objects/a/name \"Mine\"\n" + openMenu + "mouse 310 100\nmouse 350 118\n" + click +
                "screenshot {}/unsaved.png\n" + press("Enter") + "wait 3\nscreenshot {}/asked.png\n" + press("Enter") +
                "wait 6\ndump document {}/after\nsave {}/first.json\n" + openMenu + "screenshot {}/menu.png\n",
            "--recover ask");
    EXPECT_THAT(output, HasSubstr(told));
    EXPECT_THAT(read("p/scene.json"), HasSubstr("Mine"));
    EXPECT_THAT(read("after"), AllOf(HasSubstr("\"x\""), Not(HasSubstr("\"y\"")))) << "the last one is the first";
    EXPECT_THAT(run("", "--recover ask"), HasSubstr("A project that was never saved can be brought back"));
}

TEST_F(JournalJourneyTest, AnEditorThatEndsAsItShouldLeavesNothing) {
    run("record /objects/a/name \"First\"\n", "--recover yes");
    EXPECT_FALSE(fs::exists(journal()));
    const JourneyResult plain = play(Edits, "--module " + Recorder + " --size 320x240 " + folder.path("p/scene.json"));
    EXPECT_EQ(plain.status, 0) << plain.output;
    EXPECT_FALSE(fs::exists(journal()));
}

TEST_F(JournalJourneyTest, ASecondEditorAsksBeforeItWritesOver) {
    std::unique_ptr<RunningEditor> first = start(Edits + "dump log {}/ready\nwait 1000000\n", "p/scene.json");
    ASSERT_TRUE(waitForFile(folder.path("ready"))) << read("output");
    const std::string kept = readFile(journal());
    run("wait 3\nscreenshot {}/in-use.png\n" + press("Escape") + "wait 6\ndump document {}/cancelled\n",
        "--recover ask");
    EXPECT_THAT(read("cancelled"), Not(HasSubstr("\"a\"")));
    const std::string output = run("wait 3\n" + press("Enter") +
            "wait 6\nrecord /objects/a/name \"Theirs\"\n"
            "key LeftCtrl\n" +
            press("S") + "keyup LeftCtrl\nwait 3\ndump document {}/opened\n",
        "--recover ask");
    EXPECT_THAT(output,
        AllOf(HasSubstr("it is open in another editor; it has no journal here"),
            HasSubstr("it is open in another editor, the file is kept as it is")));
    EXPECT_THAT(read("opened"), HasSubstr("Theirs"));
    EXPECT_EQ(read("p/scene.json"), Scene);
    EXPECT_EQ(readFile(journal()), kept);
}

TEST_F(JournalJourneyTest, AFileThatWasChangedOutsideIsReadAgainOrKept) {
    // What is dumped over the file is somebody else's.
    const std::string change = "record /objects/a/name \"Theirs\"\nfocus off\ndump document {}/p/scene.json\nundo\n"
                               "record /objects/b/name \"Mine\"\nfocus on\nwait 2\n";
    // A question would keep the key from its command.
    const std::string saveAfterwards =
        "wait 6\ndump document {}/document\nfocus off\nfocus on\nwait 2\nkey LeftCtrl\n" + press("S") +
        "keyup LeftCtrl\nwait 3\n";
    for(const bool isReloaded: {true, false}) {
        folder.write("p/scene.json", Scene);
        const std::string answer = isReloaded ? press("Enter") : "mouse 310 243\nwait 2\npress left\nrelease left\n";
        const std::string output = run(change + answer + saveAfterwards, "--recover no");
        EXPECT_EQ(read("document").find("Theirs") != std::string::npos, isReloaded) << read("document");
        EXPECT_EQ(read("document").find("Mine") != std::string::npos, !isReloaded);
        const std::string refusal =
            "the file was changed by somebody else since it was opened or saved, the file is kept";
        EXPECT_EQ(output.find(refusal) != std::string::npos, !isReloaded) << output;
        EXPECT_THAT(read("p/scene.json"), AllOf(HasSubstr("Theirs"), Not(HasSubstr("Mine"))));
    }
}

TEST_F(JournalJourneyTest, WhatSomebodyElseWroteOverIsBroughtBackAsACopy) {
    runUntilReady("record /objects/a/name \"Theirs\"\nfocus off\ndump document {}/p/scene.json\nundo\n"
                  "record /objects/b/name \"Mine\"\nfocus on\nwait 2\n",
        SIGKILL);
    const std::string theirs = read("p/scene.json");
    const std::string output =
        run("wait 3\nscreenshot {}/stale.png\n" + press("Enter") + "wait 6\ndump document {}/after\n", "--recover ask");
    EXPECT_THAT(output, HasSubstr("Brought back as " + folder.path("p/scene-recovered.json")));
    EXPECT_THAT(read("after"), AllOf(HasSubstr("Mine"), Not(HasSubstr("Theirs"))));
    EXPECT_EQ(read("p/scene-recovered.json"), read("after"));
    EXPECT_EQ(read("p/scene.json"), theirs);
    EXPECT_FALSE(fs::exists(journal()));
    EXPECT_FALSE(fs::exists(journal() + ".base"));
}

// Killed at any moment, all steps that are over are there, and the file is whole.
TEST_F(JournalJourneyTest, KilledAtAnyMoment) {
    const int kills = std::getenv("VANTREL_LONG_TESTS") ? 200 : 10;
    constexpr int StepCount = 80;
    std::string script;
    for(int i = 0; i != StepCount; ++i) {
        const std::string number = std::to_string(i);
        if(i % 7 == 3)
            script += "undo\n";
        else if(i % 7 == 5)
            script += "record /objects/o" + number + R"( {"parent": "a", "name": "O", "translation": [)" + number +
                ", 0, 0], \"rotation\": [0, 0, 0, 1], \"scaling\": [1, 1, 1]}\n";
        else
            script += "record /objects/a/name \"Name " + number + "\"\n";
        script += "dump document {}/DUMP-" + number + '\n';
        if(i % 15 == 14) script += "save {}/p/scene.json\n";
    }
    const auto dumpedAs = [&](const std::string& name) {
        std::string text = script;
        for(std::size_t place = text.find("DUMP"); place != text.npos; place = text.find("DUMP", place))
            text.replace(place, 4, name);
        return text;
    };
    run(dumpedAs("whole"), "--recover no");
    std::vector<std::string> states;
    for(int i = 0; i != StepCount; ++i) states.push_back(read("whole-" + std::to_string(i)));
    std::mt19937 random{std::random_device{}()};
    for(int i = 0; i != kills; ++i) {
        folder.write("p/scene.json", Scene);
        for(int step = 0; step != StepCount; ++step) fs::remove(folder.path("part-" + std::to_string(step)));
        const int moment = int(random() % StepCount);
        {
            const std::unique_ptr<RunningEditor> editor = start(dumpedAs("part") + "wait 100000\n", "p/scene.json");
            ASSERT_TRUE(waitForFile(folder.path("part-" + std::to_string(moment)))) << read("output");
            std::this_thread::sleep_for(std::chrono::microseconds{random() % 20000});
        }
        std::size_t last = 0;
        while(fs::exists(folder.path("part-" + std::to_string(last + 1)))) ++last;
        const std::string file = read("p/scene.json");
        EXPECT_TRUE(file == Scene || std::count(states.begin(), states.end(), file)) << file;
        run("dump document {}/after\ndump history {}/history\nwait 1\n", "--recover yes");
        const std::string after = read("after");
        EXPECT_TRUE(after == states[last] || (last + 1 < states.size() && after == states[last + 1]))
            << "killed after step " << last << " of " << moment << '\n'
            << after << '\n'
            << states[last];
        ASSERT_FALSE(HasFailure()) << i;
        fs::remove(journal());
    }
}

} // namespace

} // namespace VantrelTest
