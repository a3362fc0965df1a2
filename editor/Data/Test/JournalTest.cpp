#include "Data/Journal.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <random>
#include <string_view>
#include <thread>

#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "Data/FoundJournal.h"
#include "Data/JournalLines.h"
#include "Data/Project/FileCalls.h"

#include "Data/Test/SessionFixture.h"
#include "Support/FailingCalls.h"
#include "Support/JsonText.h"
#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using VantrelTest::FailingCalls;
using VantrelTest::jsonText;
using VantrelTest::readFile;
using VantrelTest::writeFile;
using Earlier = ProjectSession::EarlierSteps;

// A project in a folder of its own, edited as by a user.
struct Editing {
    explicit Editing(const std::string& file, FileCalls* calls = nullptr): path{file}, session{calls} {
        session.keepJournals();
    }

    void open(Earlier earlier = Earlier::PutAside) {
        const OpenedProject opened = session.open(path);
        EXPECT_EQ(opened.error, "");
        session.beginJournal(earlier);
    }
    void record(const std::string& pointer, const std::string& json, bool merges = false) {
        JsonDocument value;
        value.Parse(json.data());
        ASSERT_FALSE(value.HasParseError()) << json;
        session.changes().recordWithParents(pointer.data(), value, merges);
    }
    // Of one change, that is over.
    void step(const std::string& pointer, const std::string& json) {
        record(pointer, json);
        frame();
    }
    void frame() {
        session.update();
        session.steps().update();
        session.updateJournal();
    }
    std::string document() { return jsonText(session.data().project().projectFile()); }

    std::string path;
    ProjectSession session;
};

std::string objectJson(const std::string& name) {
    return R"({"parent":"","name":")" + name +
        R"(","translation":[0,0,0],"rotation":[0,0,0,1],"scaling":[1,1,1],"components":[{"type":"input","input":{"type":"mouse"}}]})";
}

// All that undo and redo need, and what the user sees of it.
std::string historyOf(ProjectSession& session) {
    std::string text;
    for(const Step& step: session.steps().steps()) {
        text += step.name + '\n';
        for(const std::string& id: step.selectedBefore) text += " <" + id;
        for(const std::string& id: step.selectedAfter) text += " >" + id;
        for(std::int32_t i = step.first; i != step.end; ++i) {
            const Change& change = session.changes().changes()[std::size_t(i)];
            text += "\n  " + std::string{change.path.data(), change.path.size()} + ' ' +
                (change.oldValue ? jsonText(*change.oldValue) : "none") + ' ' +
                (change.newValue ? jsonText(*change.newValue) : "none") +
                (change.pruned ? ' ' + jsonText(change.pruned->value) : "") +
                (change.group >= 0 ? " grouped" : " alone");
        }
        text += '\n';
    }
    return text + "at " + std::to_string(session.steps().position());
}

bool isSameDocument(ProjectSession& a, ProjectSession& b) {
    return a.data().project().projectFile() == b.data().project().projectFile();
}

struct JournalTest: VantrelTest::SessionFixture {
    JournalTest() {
        Editing first{path};
        first.record("/objects/a", objectJson("A"));
        EXPECT_EQ(first.session.save(path), "");
        fs::remove(path + ".bak");
    }
    // What a process that ends now leaves behind, in another folder, of the project in this one.
    std::string crashed(const std::string& project) {
        const fs::path copy = folder.path() / ("crash-" + std::to_string(++crashCount));
        fs::create_directories(copy);
        for(const auto& entry: fs::directory_iterator{fs::path{project}.parent_path()})
            if(entry.is_regular_file()) fs::copy(entry.path(), copy);
        return copy / fs::path{project}.filename();
    }
    std::string crashed() { return crashed(path); }
    FoundJournal found(const std::string& project) { return findJournal(project, systemFileCalls()); }
    std::size_t lostCount(const std::string& project) {
        const FoundJournal journal = found(project);
        return journal.recovery ? journal.recovery->lost().count : 0;
    }
    // Brought back it is the same in each respect.
    void expectSame(Editing& editing, const std::string& project) {
        Editing other{project};
        other.open(Earlier::BringBack);
        EXPECT_TRUE(isSameDocument(editing.session, other.session)) << editing.document() << '\n' << other.document();
        EXPECT_EQ(historyOf(other.session), historyOf(editing.session));
        EXPECT_EQ(other.session.changes().hasUnsavedChanges(), editing.session.changes().hasUnsavedChanges());
        EXPECT_EQ(other.session.steps().savedPosition(), editing.session.steps().savedPosition());
        ASSERT_TRUE(other.session.journal());
        EXPECT_EQ(other.session.journal()->trouble(), "");
    }

    using State = FoundJournal::State;
    VantrelTest::TestFolder folder;
    int crashCount = 0;
    const std::string path = [this] {
        fs::create_directories(folder.path() / "project");
        return folder.path("project/scene.json");
    }();
    const std::string journal = journalPath(path);
};

TEST_F(JournalTest, bringsBackDocumentAndHistory) {
    Editing editing{path};
    editing.open();
    EXPECT_EQ(found(crashed()).state, State::Nothing) << "nothing was done";
    editing.step("/objects/b", objectJson("B"));
    editing.session.data().selectObject(editing.session.compiler().objectOf("b"), false);
    editing.frame();
    editing.session.changes().beginGroup();
    editing.record("/objects/b/name", "\"B2\"");
    editing.record("/objects/b/translation", "[1.5, -0.0, 1e30]");
    editing.session.changes().commit();
    editing.frame();
    editing.session.changes().recordChange("/objects/b/components/0", nullptr, false);
    editing.frame();
    editing.step("/objects/c", objectJson("C"));
    editing.session.changes().undoLast();
    editing.frame();
    EXPECT_EQ(lostCount(crashed()), 4u) << "what can be redone, too";
    EXPECT_THAT(found(crashed()).recovery->lost().names,
        testing::ElementsAre(HasSubstr("Add C"), testing::_, testing::_, HasSubstr("Add B")));
    expectSame(editing, crashed());
    EXPECT_THAT(historyOf(editing.session), HasSubstr("<b >b"));
}

TEST_F(JournalTest, whereAFileWasSavedItIsTheFileAndTheRest) {
    Editing editing{path};
    editing.open();
    for(int i = 0; i != 5; ++i) editing.step("/objects/a/translation/0", std::to_string(i) + ".5");
    for(int i = 0; i != 5; ++i) editing.step("/objects/a/name", "\"N" + std::to_string(i) + "\"");
    EXPECT_EQ(editing.session.save(path), "");
    editing.frame();
    EXPECT_EQ(found(crashed()).state, State::Nothing);
    editing.step("/objects/a/name", "\"later\"");
    editing.step("/objects/a/name", "\"last\"");
    EXPECT_EQ(lostCount(crashed()), 2u);
    expectSame(editing, crashed());
    for(int i = 0; i != 4; ++i) editing.session.changes().undoLast();
    editing.frame();
    EXPECT_EQ(lostCount(crashed()), 4u) << "two that were made, and two that were undone";
    expectSame(editing, crashed());
    editing.step("/objects/a/name", "\"other\"");
    EXPECT_EQ(lostCount(crashed()), 3u);
    expectSame(editing, crashed());
}

TEST_F(JournalTest, aJournalThatWasBroughtBackGoesOn) {
    std::string project = path;
    std::string last;
    for(int i = 0; i != 5; ++i) {
        Editing editing{project};
        editing.open(Earlier::BringBack);
        editing.step("/objects/o" + std::to_string(i), objectJson("O"));
        EXPECT_EQ(editing.session.steps().steps().size(), std::size_t(2 * i + 1));
        const std::string error = i == 2 ? editing.session.save(project) : std::string{};
        EXPECT_EQ(error, "");
        editing.step("/objects/a/name", '"' + std::to_string(i) + '"');
        last = editing.document();
        project = crashed(project);
    }
    Editing editing{project};
    editing.open(Earlier::BringBack);
    EXPECT_EQ(editing.document(), last);
    for(int i = 0; i != 10; ++i) editing.session.changes().undoLast();
    EXPECT_FALSE(editing.session.changes().canUndo());
    EXPECT_EQ(editing.document().find("\"o0\""), std::string::npos);
}

TEST_F(JournalTest, gesturesAndPreviewsAreNotInIt) {
    Editing editing{path};
    editing.open();
    // What could be redone is kept aside meanwhile.
    for(int i = 0; i != 5; ++i) editing.step("/objects/a/name", '"' + std::to_string(i) + '"');
    for(int i = 0; i != 3; ++i) editing.session.changes().undoLast();
    editing.frame();
    const std::string before = readFile(journal);
    editing.session.changes().beginTrial(Trial::Gesture);
    for(int i = 0; i != 10; ++i) {
        editing.session.changes().beginGroup(3, i != 0);
        editing.record("/objects/a/translation", "[" + std::to_string(i) + ",0,0]", true);
        editing.session.changes().commit();
        editing.frame();
        EXPECT_EQ(readFile(journal), before) << i;
    }
    editing.session.changes().dropTrial();
    editing.frame();
    EXPECT_EQ(readFile(journal), before);
    editing.session.changes().beginTrial(Trial::Preview);
    editing.step("/objects/a/translation", "[5,0,0]");
    EXPECT_EQ(readFile(journal), before);
    editing.session.changes().keepTrial();
    editing.frame();
    EXPECT_NE(readFile(journal), before);
    expectSame(editing, crashed());
}

TEST_F(JournalTest, aProjectThatIsLeftHasNone) {
    {
        Editing editing{path};
        editing.open();
        editing.step("/objects/a/name", "\"one\"");
        EXPECT_TRUE(fs::exists(journal));
        editing.session.startNew();
        EXPECT_FALSE(fs::exists(journal));
        editing.open();
        EXPECT_TRUE(fs::exists(journal));
        const std::string other = folder.path("project/other.json");
        editing.step("/objects/a/name", "\"two\"");
        EXPECT_EQ(editing.session.save(other), "");
        EXPECT_FALSE(fs::exists(journal)) << "it is that of another file now";
        EXPECT_TRUE(fs::exists(journalPath(other)));
        editing.step("/objects/a/name", "\"three\"");
        editing.path = other;
        expectSame(editing, crashed(other));
    }
    EXPECT_FALSE(fs::exists(journalPath(folder.path("project/other.json"))));
    ProjectSession without;
    EXPECT_EQ(without.open(path).error, "");
    without.beginJournal(Earlier::Discard);
    EXPECT_FALSE(fs::exists(journal)) << "nobody asked for one";
}

TEST_F(JournalTest, aStaleOneNeverTouchesTheNewerFile) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"mine\"");
    const std::string crash = crashed();
    writeFile(crash, readFile(crash) + "\n");
    EXPECT_EQ(found(crash).state, State::Stale);
    EXPECT_EQ(found(crash).project, "") << "nobody has the file that it belongs to";
    const std::string newer = readFile(crash);
    {
        Editing other{crash};
        EXPECT_THAT(printed([&] { other.open(Earlier::BringBack); }), HasSubstr("this journal is kept as"));
        EXPECT_THAT(other.document(), Not(HasSubstr("mine")));
        EXPECT_FALSE(other.session.changes().canUndo());
    }
    EXPECT_EQ(readFile(crash), newer);
    EXPECT_TRUE(fs::exists(journalPath(crash) + ".1"));
}

TEST_F(JournalTest, aStaleOneIsBroughtBackAsACopy) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"mine\"");
    editing.step("/objects/a/translation", "[1,2,3]");
    const std::string crash = crashed();
    ProjectSession somebody;
    ASSERT_EQ(somebody.open(crash).error, "");
    const JsonValue name{"theirs"};
    somebody.changes().recordChange("/objects/a/name", &name, false);
    ASSERT_EQ(somebody.save(crash), "");
    EXPECT_EQ(found(crash).state, State::Stale);
    EXPECT_EQ(found(crash).project, crash + ".bak");
    const std::string newer = readFile(crash), copy = crash + "-recovered.json";
    Editing other{crash};
    EXPECT_EQ(other.session.recoverCopy(crash, copy), "");
    EXPECT_TRUE(isSameDocument(editing.session, other.session));
    EXPECT_EQ(historyOf(other.session), historyOf(editing.session));
    EXPECT_EQ(other.session.path(), copy);
    EXPECT_FALSE(other.session.changes().hasUnsavedChanges());
    EXPECT_EQ(readFile(crash), newer);
    EXPECT_FALSE(fs::exists(journalPath(crash)));
    ProjectSession saved;
    ASSERT_EQ(saved.open(copy).error, "");
    EXPECT_TRUE(isSameDocument(saved, other.session));
    EXPECT_NE(other.session.recoverCopy(crash, copy), "") << "there is none any more";
}

// Of a journal that is damaged, or does not fit to its end.
TEST_F(JournalTest, whatACopyLacksIsKept) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"mine\"");
    for(const bool isDamaged: {true, false}) {
        const std::string crash = crashed();
        fs::copy(crash, crash + ".bak");
        writeFile(crash, readFile(crash) + "\n");
        std::string text = readFile(journalPath(crash));
        std::uint64_t checksum = readJournalLines(text).back().checksum;
        const std::string bad = R"({"step":{"name":"n","time":1,"group":0,"changes":[{"path":"objects","new":1}]}})";
        addJournalLine(text, isDamaged ? "something else" : bad, checksum);
        writeFile(journalPath(crash), text);
        Editing other{crash};
        const std::string warning = printed([&] {
            printed<Corrade::Utility::Error>(
                [&] { EXPECT_EQ(other.session.recoverCopy(crash, crash + "-recovered.json"), ""); });
        });
        EXPECT_THAT(warning, HasSubstr(isDamaged ? "the journal is damaged" : "does not fit the project")) << isDamaged;
        EXPECT_EQ(readFile(journalPath(crash) + ".1"), text) << isDamaged;
        EXPECT_TRUE(isSameDocument(editing.session, other.session)) << isDamaged;
    }
}

// Somebody writes over the file while the project is open: there is no other one with what was in it.
TEST_F(JournalTest, whatTheStepsBelongToIsKeptWhereTheFileIsNot) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"one\"");
    editing.step("/objects/a/name", "\"two\"");
    const std::string theirs = readFile(path) + "\n";
    writeFile(path, theirs);
    ASSERT_TRUE(editing.session.changedOutside());
    editing.session.keepBase();
    EXPECT_EQ(lostCount(crashed()), 2u) << "nothing was done since, and it is in no other file";
    editing.step("/objects/a/name", "\"three\"");
    editing.session.changes().undoLast();
    editing.frame();
    const std::string crash = crashed();
    {
        const FoundJournal journal = found(crash);
        EXPECT_EQ(journal.state, State::Stale);
        EXPECT_EQ(journal.project, basePath(journalPath(crash)));
        EXPECT_EQ(journal.recovery->lost().count, 3u);
    }
    {
        Editing other{crash};
        EXPECT_EQ(other.session.recoverCopy(crash, crash + "-recovered.json"), "");
        EXPECT_TRUE(isSameDocument(editing.session, other.session));
        EXPECT_EQ(historyOf(other.session), historyOf(editing.session));
    }
    EXPECT_EQ(readFile(crash), theirs);
    EXPECT_FALSE(fs::exists(basePath(journalPath(crash))));
    EXPECT_EQ(editing.session.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_FALSE(fs::exists(basePath(journal))) << "the file has it";
    editing.session.keepBase();
    EXPECT_TRUE(fs::exists(basePath(journal)));
    editing.session.startNew();
    EXPECT_FALSE(fs::exists(basePath(journal))) << "it was given up";
}

TEST_F(JournalTest, aBackupStandsBesideWhatALinkLeadsTo) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"mine\"");
    const std::string crash = crashed(), link = folder.path("link.json");
    fs::copy(crash, crash + ".bak");
    writeFile(crash, readFile(crash) + "\n");
    fs::create_symlink(crash, link);
    EXPECT_EQ(found(link).project, crash + ".bak");
}

TEST_F(JournalTest, whatWasSelectedLastIsSelectedAgain) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/b", objectJson("B"));
    editing.session.data().selectObject(editing.session.compiler().objectOf("b"), true);
    editing.frame();
    editing.step("/objects/b/name", "\"B2\"");
    Editing other{crashed()};
    other.open(Earlier::BringBack);
    EXPECT_EQ(other.session.data().selection().countSet(), 1u);
    EXPECT_TRUE(other.session.data().selection().isSet(other.session.compiler().objectOf("b")));
}

// What is in the journal of a file is not written into it again.
TEST_F(JournalTest, stepsMadeWithoutOneAreInThatOfTheNextFileOnce) {
    Editing editing{path};
    editing.open();
    Editing second{path};
    printed([&] { second.open(); });
    second.step("/objects/a/name", "\"one\"");
    second.step("/objects/a/name", "\"two\"");
    const std::string other = folder.path("project/other.json");
    EXPECT_EQ(second.session.save(other), "");
    second.frame();
    EXPECT_EQ(found(crashed(other)).state, State::Nothing);
    second.step("/objects/a/name", "\"three\"");
    EXPECT_EQ(lostCount(crashed(other)), 1u);
    second.path = other;
    expectSame(second, crashed(other));
}

TEST_F(JournalTest, aNewProjectWithoutAFolderHasOneOnceItIsSaved) {
    const char* const old = std::getenv("XDG_DATA_HOME");
    const std::string before = old ? old : "";
    setenv("XDG_DATA_HOME", (path + "/none").data(), 1);
    {
        Editing editing{path};
        const std::string warning = printed([&] {
            editing.step("/objects/b", objectJson("B"));
            editing.step("/objects/b/name", "\"B2\"");
        });
        EXPECT_THAT(warning, testing::MatchesRegex("The new project: there is no folder for its files;[^\n]*\n"))
            << "once";
        EXPECT_EQ(editing.session.journalTrouble(), "there is no folder for its files");
        EXPECT_EQ(editing.session.save(path, ProjectStore::Repaired::Overwrite), "");
        editing.step("/objects/b/name", "\"B3\"");
        EXPECT_EQ(editing.session.journalTrouble(), "");
        EXPECT_EQ(lostCount(crashed()), 1u);
        expectSame(editing, crashed());
    }
    old ? setenv("XDG_DATA_HOME", before.data(), 1) : unsetenv("XDG_DATA_HOME");
}

TEST_F(JournalTest, aSecondEditorIsNoticed) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"mine\"");
    const std::string before = readFile(journal);
    EXPECT_EQ(found(path).state, State::InUse);
    {
        Editing second{path};
        EXPECT_THAT(printed([&] { second.open(); }), HasSubstr("is open in another editor"));
        EXPECT_FALSE(second.session.journal());
        EXPECT_EQ(second.session.journalTrouble(), "it is open in another editor");
        second.step("/objects/a/name", "\"theirs\"");
        EXPECT_TRUE(second.session.keepsFile(path));
        EXPECT_THAT(second.session.save(path), HasSubstr("it is open in another editor, the file is kept as it is"));
        Editing third{path};
        third.record("/objects/x", objectJson("X"));
        EXPECT_TRUE(third.session.keepsFile(path)) << "also from elsewhere";
        EXPECT_THAT(third.session.save(path), HasSubstr("it is open in another editor"));
        printed([&] { EXPECT_EQ(second.session.save(path, ProjectStore::Repaired::Overwrite), ""); });
    }
    EXPECT_EQ(readFile(journal), before);
    EXPECT_TRUE(editing.session.changedOutside());
    EXPECT_THAT(editing.session.save(path), HasSubstr("changed by somebody else"));
    EXPECT_EQ(editing.session.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_FALSE(editing.session.changedOutside());
    EXPECT_EQ(editing.session.save(path), "");
}

// Where there was none, there is one as soon as that is possible, with all that was done until then.
TEST_F(JournalTest, itIsTriedAgainToBeginOne) {
    const char* const old = std::getenv("XDG_DATA_HOME");
    const std::string before = old ? old : "";
    setenv("XDG_DATA_HOME", (path + "/none").data(), 1);
    {
        auto first = std::make_unique<Editing>(path);
        first->open();
        Editing second{path}, untitled{{}};
        const std::string warnings = printed([&] {
            second.open();
            second.step("/objects/a/name", "\"theirs\"");
            untitled.step("/objects/x", objectJson("X"));
            first.reset();
            setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
            const auto begin = std::chrono::steady_clock::now();
            while(!second.session.journal() || !untitled.session.journal()) {
                ASSERT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds{10});
                std::this_thread::sleep_for(std::chrono::milliseconds{20});
                printed<Corrade::Utility::Debug>([&] {
                    second.frame();
                    untitled.frame();
                });
            }
        });
        ASSERT_FALSE(HasFailure());
        EXPECT_EQ(std::count(warnings.begin(), warnings.end(), '\n'), 2) << "once each\n" << warnings;
        EXPECT_EQ(second.session.journalTrouble() + untitled.session.journalTrouble(), "");
        expectSame(second, crashed());
        EXPECT_EQ(fs::path{untitled.session.journal()->path()}.filename(), ".project.json.journal");
    }
    old ? setenv("XDG_DATA_HOME", before.data(), 1) : unsetenv("XDG_DATA_HOME");
}

// It was said to be kept, whatever becomes of the project.
TEST_F(JournalTest, whatAProjectWithoutAFileDoesNotBringBackIsKept) {
    const char* const old = std::getenv("XDG_DATA_HOME");
    const std::string before = old ? old : "";
    setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
    const std::string working = folder.path("data/vantrel/untitled-abcdef");
    {
        Editing crashed{{}};
        crashed.step("/objects/x", objectJson("X"));
        fs::create_directories(working);
        fs::copy(fs::path{crashed.session.journal()->path()}.parent_path(), working);
    }
    const std::string text = readFile(working + "/.project.json.journal") + "damage\n";
    writeFile(working + "/.project.json.journal", text);
    {
        Editing editing{{}};
        EXPECT_THAT(printed([&] { EXPECT_EQ(editing.session.recoverUntitled(working), ""); }), HasSubstr("is kept as"));
        EXPECT_THAT(editing.document(), HasSubstr("\"x\""));
        EXPECT_EQ(editing.session.save(folder.path("saved.json")), "");
    }
    EXPECT_EQ(readFile(working + "/.project.json.journal.1"), text);
    EXPECT_FALSE(fs::exists(working + "/.project.json.journal"));
    old ? setenv("XDG_DATA_HOME", before.data(), 1) : unsetenv("XDG_DATA_HOME");
}

TEST_F(JournalTest, thatOfAnotherUserMayBeInUse) {
    struct: FileCalls {
        int open(const char* path, int flags, mode_t mode) override {
            if(std::string_view{path}.find(".journal") == std::string_view::npos)
                return FileCalls::open(path, flags, mode);
            errno = EACCES;
            return -1;
        }
    } calls;
    Editing editing{path, &calls};
    printed([&] { editing.open(); });
    EXPECT_FALSE(editing.session.keepsFile(path)) << "there is none";
    EXPECT_EQ(editing.session.journalTrouble(), "Permission denied");
    writeFile(journal, "theirs");
    Editing other{path, &calls};
    EXPECT_EQ(other.session.findJournal(path).state, State::InUse);
    EXPECT_THAT(printed([&] { other.open(); }), HasSubstr("it may be open in the editor of another user"));
    EXPECT_THAT(other.session.journalTrouble(), HasSubstr("another user"));
    EXPECT_THAT(other.session.save(path), HasSubstr("another user, whose journal is there, the file is kept as it is"));
    EXPECT_EQ(readFile(journal), "theirs");
}

TEST_F(JournalTest, oneThatSaysNothingIsPutAside) {
    writeFile(journal, "something else");
    Editing editing{path};
    EXPECT_THAT(printed([&] { editing.open(Earlier::Discard); }), HasSubstr("this journal is kept as"));
    EXPECT_EQ(readFile(journal + ".1"), "something else");
    editing.step("/objects/a/name", "\"one\"");
    expectSame(editing, crashed());
}

TEST_F(JournalTest, aLinkToTheProjectIsTheProject) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"one\"");
    const std::string link = folder.path("link.json");
    fs::create_symlink(path, link);
    EXPECT_EQ(found(link).state, State::InUse);
    EXPECT_EQ(editing.session.findJournal(link).state, State::Nothing) << "it is ours";
    EXPECT_FALSE(editing.session.keepsFile(link));
    EXPECT_EQ(editing.session.save(link), "");
    editing.step("/objects/a/name", "\"two\"");
    expectSame(editing, crashed());
}

TEST_F(JournalTest, isMadeSmallerWhenTheProjectIsSaved) {
    Editing editing{path};
    editing.open();
    const std::string text(1000, 'x');
    for(int i = 0; i != 300; ++i) {
        editing.step("/objects/a/name", '"' + text + std::to_string(i) + '"');
        editing.session.changes().undoLast();
        editing.frame();
    }
    editing.step("/objects/a/name", "\"last\"");
    EXPECT_GT(fs::file_size(journal), 300000u);
    EXPECT_EQ(editing.session.save(path), "");
    EXPECT_LT(fs::file_size(journal), 5000u);
    editing.step("/objects/a/name", "\"one more\"");
    expectSame(editing, crashed());
}

TEST_F(JournalTest, isWrittenAgainWhenThatIsPossible) {
    Editing editing{path};
    editing.open();
    editing.step("/objects/a/name", "\"one\"");
    fs::remove(journal);
    EXPECT_THAT(printed([&] {
        editing.step("/objects/a/name", "\"two\"");
        editing.frame();
        editing.frame();
    }),
        testing::MatchesRegex(".*the journal cannot be written: the file is gone; [^\n]*\n"));
    EXPECT_NE(editing.session.journal()->trouble(), "");
    editing.step("/objects/a/name", "\"three\"");
    EXPECT_EQ(editing.session.journal()->trouble(), "");
    expectSame(editing, crashed());
}

// Some file systems tell only then that there is no room.
TEST_F(JournalTest, whatTheDiskDidNotTakeIsWrittenAnew) {
    struct: FileCalls {
        int fdatasync(int file) override {
            errno = ENOSPC;
            return isFull ? -1 : FileCalls::fdatasync(file);
        }
        std::atomic<bool> isFull{false};
    } calls;
    Editing editing{path, &calls};
    editing.open();
    calls.isFull = true;
    const std::string warnings = printed([&] {
        editing.step("/objects/a/name", "\"one\"");
        for(int i = 0; i != 1000 && editing.session.journal()->trouble().empty(); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds{1});
            editing.frame();
        }
        EXPECT_EQ(editing.session.journal()->trouble(), "No space left on device");
        editing.step("/objects/a/name", "\"two\"");
        EXPECT_EQ(editing.session.journal()->trouble(), "No space left on device");
    });
    EXPECT_THAT(warnings, testing::MatchesRegex("[^\n]*the journal cannot be written: No space left[^\n]*\n"))
        << "once";
    // Of what it holds now nobody knows how much is on the disk.
    writeFile(journal, "");
    calls.isFull = false;
    printed<Corrade::Utility::Debug>([&] { editing.step("/objects/a/name", "\"three\""); });
    EXPECT_EQ(editing.session.journal()->trouble(), "");
    expectSame(editing, crashed());
}

TEST_F(JournalTest, aDamagedOneNeverHasAWrongStep) {
    std::vector<std::string> states;
    Editing editing{path};
    editing.open();
    for(int i = 0; i != 20; ++i) {
        states.push_back(editing.document());
        editing.step("/objects/a/name", "\"name " + std::to_string(i) + '"');
    }
    states.push_back(editing.document());
    const std::string whole = readFile(journal);
    const std::string project = folder.path("damaged.json");
    fs::copy(path, project);
    // Each length, and each byte: as many steps as there are lines before the damage, less the begin and the file.
    const auto steps = [&](const std::string& text) {
        const Recovery recovery{text};
        return recovery.lost().count;
    };
    const auto linesOf = [](const std::string& text) {
        return std::size_t(std::count(text.begin(), text.end(), '\n'));
    };
    for(std::size_t size = 0; size != whole.size(); ++size) {
        const std::string cut = whole.substr(0, size);
        const std::size_t wanted = linesOf(cut) < 2 ? 0 : linesOf(cut) - 2;
        ASSERT_EQ(steps(cut), wanted) << size;
        std::string damaged = whole;
        damaged[size] = char(damaged[size] + 1);
        ASSERT_EQ(steps(damaged), wanted) << size;
    }
    for(std::size_t size = 0; size < whole.size(); size += 37) {
        std::string damaged = whole;
        damaged[size] = char(damaged[size] ^ 1);
        writeFile(journalPath(project), damaged);
        const std::size_t count = steps(damaged);
        Editing other{project};
        printed([&] { other.open(Earlier::BringBack); });
        EXPECT_EQ(other.document(), states[count]) << size;
    }
}

TEST_F(JournalTest, linesThatDoNotBelongEndIt) {
    for(const std::string line: {R"({"position":7})", R"({"step":3})", R"({"other":1})", R"({"journal":1})", "[]", "",
            R"({"step":{"name":"n","time":1,"group":0,"changes":[]}})",
            R"({"step":{"name":"n","time":1,"group":0,"changes":[{"new":1}]}})"}) {
        std::string text;
        std::uint64_t checksum = 0;
        addJournalLine(text, beginEntry(), checksum);
        addJournalLine(text, fileEntry(std::nullopt), checksum);
        const Recovery good{text};
        EXPECT_FALSE(good.isDamaged());
        addJournalLine(text, line, checksum);
        EXPECT_TRUE(Recovery{text}.isDamaged()) << line;
    }
    std::string text;
    std::uint64_t checksum = 0;
    addJournalLine(text, R"({"journal":2})", checksum);
    EXPECT_TRUE(Recovery{text}.isDamaged()) << "of another version";
}

TEST_F(JournalTest, aStepThatDoesNotFitIsNotMade) {
    const std::string bad[]{R"({"path":"/objects/a/parent","new":"a"})", R"({"path":"objects","new":1})",
        R"({"path":"/objects/a/name/x","new":1})"};
    for(const std::string& change: bad) {
        std::string text;
        std::uint64_t checksum = 0;
        addJournalLine(text, beginEntry(), checksum);
        addJournalLine(text, fileEntry(fingerprintOfFile(path)), checksum);
        const auto step = [](const std::string& changes) {
            return R"({"step":{"name":"n","time":1,"group":1,"changes":[)" + changes + "]}}";
        };
        addJournalLine(text, step(R"({"path":"/objects/a/name","old":"A","new":"B"})"), checksum);
        addJournalLine(text, step(R"({"path":"/objects/a/name","old":"B","new":"C"},)" + change), checksum);
        writeFile(journal, text);
        Editing editing{path};
        std::string error;
        const std::string warning =
            printed([&] { error = printed<Corrade::Utility::Error>([&] { editing.open(Earlier::BringBack); }); });
        EXPECT_THAT(error, HasSubstr("cannot change")) << change;
        EXPECT_THAT(warning, HasSubstr("behind step 1 does not fit the project; all of it is kept as")) << change;
        EXPECT_EQ(readFile(journal + ".1"), text) << "nothing of it is lost";
        fs::remove(journal + ".1");
        EXPECT_THAT(editing.document(), HasSubstr("\"name\":\"B\"")) << change;
        EXPECT_EQ(editing.session.steps().steps().size(), 1u);
        editing.step("/objects/a/name", "\"D\"");
        expectSame(editing, crashed());
    }
}

// Each call of the operating system fails once, wherever it is: the project can be edited on, the file is whole, and with
// the next step all is in the journal.
TEST_F(JournalTest, whateverFailsNothingIsLost) {
    const std::string original = readFile(path);
    for(int failAt = 1;; ++failAt) {
        fs::remove_all(folder.path() / "project");
        fs::create_directories(folder.path() / "project");
        writeFile(path, original);
        FailingCalls calls;
        calls.failAt = failAt;
        Editing editing{path, &calls};
        std::string errors;
        const std::string warnings = printed([&] {
            editing.open();
            editing.step("/objects/b", objectJson("B"));
            editing.step("/objects/b/name", "\"B2\"");
            errors += editing.session.save(path);
            editing.step("/objects/b/name", "\"B3\"");
            editing.session.changes().undoLast();
            editing.frame();
            errors += editing.session.save(path);
            editing.step("/objects/c", objectJson("C"));
            editing.step("/objects/d", objectJson("D"));
        });
        if(calls.count < failAt) break;
        EXPECT_LE(std::count(warnings.begin(), warnings.end(), '\n'), 1) << failAt << '\n' << warnings;
        JsonDocument parsed;
        const std::string text = readFile(path);
        ASSERT_FALSE(parsed.Parse(text.data(), text.size()).HasParseError()) << failAt;
        ASSERT_TRUE(editing.session.journal()) << failAt << warnings;
        calls.failAt = 0;
        // Of a failure at the very end.
        editing.step("/objects/d/name", "\"D2\"");
        EXPECT_EQ(editing.session.journal()->trouble(), "") << failAt << warnings;
        expectSame(editing, crashed());
        ASSERT_FALSE(HasFailure()) << "call " << failAt << ' ' << errors << warnings << readFile(journal);
    }
}

TEST_F(JournalTest, tenThousandStepsAreBroughtBackAtOnce) {
    Editing editing{path};
    editing.open();
    for(int i = 0; i != 10000; ++i) {
        editing.record("/objects/a/translation", "[" + std::to_string(i) + ",0.25,1]");
        editing.session.steps().update();
        editing.session.updateJournal();
    }
    const std::string crash = crashed();
    EXPECT_EQ(lostCount(crash), 10000u);
    expectSame(editing, crash);
}

// Random steps, undo, redo and saves; crashes in between, after which the session that was brought back goes on.
class JournalRandomTest: public JournalTest, public testing::WithParamInterface<unsigned> {
protected:
    std::mt19937 random{GetParam()};
    unsigned below(unsigned n) { return unsigned(random() % n); }

    std::string someObject() { return "/objects/" + std::string(1, char('a' + below(5))); }
    static bool isThere(Editing& editing, const std::string& pointer) {
        return editing.session.data().project().valueByPointer(pointer.data());
    }
    void remove(Editing& editing, const std::string& pointer) {
        if(isThere(editing, pointer)) editing.session.changes().recordChange(pointer.data(), nullptr, false);
    }
    // Merging changes the order of records, so that a group has either values or whole objects.
    void editValue(Editing& editing, bool merges) {
        const std::string object = someObject();
        if(!isThere(editing, object)) return;
        if(!below(3)) return editing.record(object + "/name", '"' + std::to_string(below(9)) + '"', merges);
        if(!below(3)) return editing.record("/settings/rendering/bloom/passes", std::to_string(below(5)), merges);
        editing.session.changes().recordTransform(object.data(),
            Magnum::Matrix4::translation({float(below(9)), 0.1f, 1.0f}) *
                Magnum::Matrix4::scaling(Magnum::Vector3{float(1 + below(4))}),
            merges);
    }
    void editObject(Editing& editing) {
        const std::string object = someObject();
        if(!isThere(editing, object)) return editing.record(object, objectJson("X"));
        if(!below(3)) return remove(editing, object);
        if(below(2)) return remove(editing, object + "/components/0");
        editing.record(object + "/components",
            R"([{"type":"input","input":{"type":"mouse"}},{"type":"input","input":{"type":"touch"}}])");
    }
    void editSome(Editing& editing, bool merges) {
        const bool isOfValues = below(2);
        for(unsigned i = below(5); i; --i) isOfValues ? editValue(editing, merges) : editObject(editing);
    }
    void act(Editing& editing) {
        ChangeManager& changes = editing.session.changes();
        switch(below(10)) {
        case 0:
        case 1: return changes.undoLast();
        case 2: return changes.redoLast();
        case 3: {
            changes.beginTrial(below(2) ? Trial::Gesture : Trial::Preview);
            for(unsigned frame = 0; frame != 3; ++frame) {
                changes.beginGroup(7, frame);
                editValue(editing, true);
                editValue(editing, true);
                changes.commit();
                editing.frame();
            }
            return below(2) ? changes.keepTrial() : changes.dropTrial();
        }
        case 4: {
            changes.beginGroup();
            editSome(editing, below(2));
            return changes.commit();
        }
        case 5: return below(4) ? void() : void(editing.session.save(editing.path));
        case 6: {
            const Id object = Id(1 + below(5));
            return editing.session.data().selectObject(object, below(2));
        }
        case 7: return editObject(editing);
        default: return editValue(editing, false);
        }
    }
};

TEST_P(JournalRandomTest, isTheSameAfterEachCrash) {
    auto editing = std::make_unique<Editing>(path);
    editing->open();
    for(int crash = 0; crash != 12; ++crash) {
        for(unsigned i = 1 + below(40); i; --i) {
            printed<Corrade::Utility::Error>([&] { printed([&] { act(*editing); }); });
            printed([&] { editing->frame(); });
        }
        const std::string project = crashed(editing->path);
        auto other = std::make_unique<Editing>(project);
        printed([&] { other->open(Earlier::BringBack); });
        ASSERT_TRUE(isSameDocument(editing->session, other->session)) << editing->document() << '\n'
                                                                      << other->document();
        // Where nothing is missed, none is asked for either.
        const bool isMissed = lostCount(crashed(editing->path)) != 0;
        if(isMissed) {
            ASSERT_EQ(historyOf(other->session), historyOf(editing->session));
        }
        // To both ends and back.
        const std::string before = historyOf(other->session);
        const std::int32_t last = other->session.changes().lastChange();
        if(isMissed) {
            for(ProjectSession* const session: {&editing->session, &other->session})
                printed([&] {
                    while(session->changes().canUndo()) session->changes().undoLast();
                });
            ASSERT_TRUE(isSameDocument(editing->session, other->session));
            for(ProjectSession* const session: {&editing->session, &other->session})
                printed([&] {
                    while(session->changes().canRedo()) session->changes().redoLast();
                });
            ASSERT_TRUE(isSameDocument(editing->session, other->session));
            while(other->session.changes().lastChange() > last) other->session.changes().undoLast();
            other->session.steps().update();
            ASSERT_EQ(historyOf(other->session), before);
        }
        editing = std::move(other);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, JournalRandomTest, testing::Range(1u, 21u));

} // namespace
