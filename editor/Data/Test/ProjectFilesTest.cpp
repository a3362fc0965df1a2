#include "Data/ProjectFiles.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "Data/PlacedFiles.h"
#include "Data/WorkingFolder.h"
#include "SessionFixture.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using VantrelTest::readFile;
using VantrelTest::TestFolder;
namespace fs = std::filesystem;

class ProjectFilesTest: public VantrelTest::SessionFixture {
protected:
    void addImage(const std::string& id, const std::string& file) {
        record("/images/" + id, "{'name': '" + id + "', 'file': '" + file + "'}");
    }
    TestFolder folder, other;
};

TEST_F(ProjectFilesTest, FilesOfResourcesAndOfTheLog) {
    addImage("a", "a.png");
    addImage("b", "sub/b.png");
    record("/images/b/file", "'sub/c.png'");
    record("/meshes/m", "{'name': 'm', 'file': 'm.glb', 'asset': 'default'}");
    record("/shaders/s", "{'name': 's', 'vertex': 's.vert', 'fragment': 's.frag', 'asset': ''}");
    record("/shaders/t", "{'name': 't', 'vertex': 't.vert', 'fragment': 't.frag'}");
    record("/shaders/s/vertex", "'new.vert'");
    record("/shaders/s/fragment", "'new.frag'");
    record("/images/b/vertex", "'no.file'");
    remove("/images/a");
    EXPECT_THAT(filesOf(session.data().project()), ElementsAre("new.frag", "new.vert", "no.file", "sub/c.png"));
    EXPECT_THAT(
        filesOf(changes()), ElementsAre("a.png", "new.frag", "new.vert", "s.frag", "s.vert", "sub/b.png", "sub/c.png"));
}

TEST_F(ProjectFilesTest, SavingElsewhereTakesTheFilesAlong) {
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    folder.write("imported/a.png", "AAA");
    folder.write("undone.png", "UUU");
    folder.write("nobody.png", "NNN");
    addImage("undone", "undone.png");
    changes().undoLast();
    // Undone for good.
    addImage("a", "imported/a.png");
    addImage("gone", "undone.png");
    changes().undoLast();
    ASSERT_EQ(session.save(other.path("sub.json")), "");
    EXPECT_EQ(readFile(other.path("imported/a.png")), "AAA");
    EXPECT_EQ(readFile(other.path("undone.png")), "UUU");
    EXPECT_FALSE(fs::exists(other.path("nobody.png")));
    EXPECT_EQ(readFile(folder.path("imported/a.png")), "AAA");
}

TEST_F(ProjectFilesTest, AFileInTheWayFailsAndLosesNothing) {
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    folder.write("new/a.png", "AAA");
    folder.write("z.png", "ZZZ");
    addImage("a", "new/a.png");
    addImage("z", "z.png");
    other.write("z.png", "mine");
    EXPECT_EQ(session.save(other.path("project.json")),
        other.path("project.json") + ": z.png: another file is there already in " + other.path().string());
    EXPECT_FALSE(fs::exists(other.path("project.json")));
    EXPECT_FALSE(fs::exists(other.path("new")));
    EXPECT_EQ(readFile(other.path("z.png")), "mine");
    EXPECT_EQ(session.path(), folder.path("project.json"));
    EXPECT_TRUE(changes().hasUnsavedChanges());
    // Where it is the same one it is no obstacle.
    other.write("z.png", "ZZZ");
    EXPECT_EQ(session.save(other.path("project.json")), "");
    EXPECT_TRUE(fs::exists(other.path("new/a.png")));
}

TEST_F(ProjectFilesTest, ADocumentThatCannotBeWrittenTakesItsFilesBack) {
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    folder.write("a.png", "AAA");
    addImage("a", "a.png");
    fs::create_directory(other.path("project.json"));
    EXPECT_NE(session.save(other.path("project.json")), "");
    EXPECT_FALSE(fs::exists(other.path("a.png")));
}

TEST_F(ProjectFilesTest, AMissingFileIsToldAndLeftOut) {
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    addImage("a", "a.png");
    std::string error;
    EXPECT_THAT(printed([&] { error = session.save(other.path("project.json")); }),
        HasSubstr("a.png: the file is missing and not copied\n"));
    EXPECT_EQ(error, "");
}

TEST_F(ProjectFilesTest, FilesDoNotLeaveTheFolder) {
    folder.write("in/file", "1");
    fs::create_symlink(other.path(), folder.path("in/out"));
    EXPECT_EQ(pathInside(folder.path("in"), "file"), fs::canonical(folder.path("in/file")));
    EXPECT_EQ(pathInside(folder.path("in"), "out"), "");
    EXPECT_EQ(pathInside(folder.path("in"), "../in2"), "");
    PlacedFiles files{folder.path("in")};
    EXPECT_THAT(files.add(folder.path("in/file"), "out/x"), HasSubstr("cannot be put below"));
    EXPECT_THAT(files.add(folder.path("in/file"), "../x"), HasSubstr("leads upwards"));
    EXPECT_THAT(files.add(folder.path("in"), "x"), HasSubstr("not a regular file"));
    EXPECT_THAT(files.add(folder.path("missing"), "x"), HasSubstr("cannot be opened"));
    EXPECT_FALSE(fs::exists(other.path("x")));
}

TEST_F(ProjectFilesTest, WhatIsNotKeptGoesAgain) {
    folder.write("file", std::string(200000, 'x'));
    {
        PlacedFiles files{other.path().string()};
        EXPECT_EQ(files.add(folder.path("file"), "a/b/file"), "");
        EXPECT_EQ(files.add(folder.path("file"), "a/b/file"), "");
        EXPECT_EQ(readFile(other.path("a/b/file")), std::string(200000, 'x'));
    }
    EXPECT_TRUE(fs::is_empty(other.path()));
}

TEST_F(ProjectFilesTest, WhatACopyLeftBehindIsNoObstacle) {
    folder.write("file", "whole");
    other.write("a.png.new", "cut");
    other.write("a.png.0.new", "cut");
    PlacedFiles files{other.path().string()};
    EXPECT_EQ(files.add(folder.path("file"), "a.png"), "");
    EXPECT_EQ(readFile(other.path("a.png")), "whole");
    EXPECT_EQ(readFile(other.path("a.png.0.new")), "cut");
}

TEST_F(ProjectFilesTest, AFileThatIsGivenGetsAnotherName) {
    folder.write("given", "1");
    folder.write("shared", "2");
    fs::create_hard_link(folder.path("shared"), folder.path("of-others"));
    PlacedFiles files{other.path().string()};
    EXPECT_EQ(files.add(folder.path("given"), "copy"), "");
    EXPECT_FALSE(fs::equivalent(folder.path("given"), other.path("copy")));
    EXPECT_EQ(files.add(folder.path("given"), "in/given", PlacedFiles::Source::Given), "");
    EXPECT_TRUE(fs::equivalent(folder.path("given"), other.path("in/given")));
    // Whoever has the other name may change it.
    EXPECT_EQ(files.add(folder.path("shared"), "in/shared", PlacedFiles::Source::Given), "");
    EXPECT_FALSE(fs::equivalent(folder.path("shared"), other.path("in/shared")));
    EXPECT_EQ(readFile(other.path("in/shared")), "2");
    files.flush();
    files.keep();
}

TEST_F(ProjectFilesTest, CopyingIsCancelledFromAnotherThread) {
    folder.write("file", std::string(200000, 'x'));
    PlacedFiles files{other.path().string()};
    files.cancel();
    EXPECT_EQ(files.add(folder.path("file"), "file"), "file: cancelled");
    EXPECT_TRUE(fs::is_empty(other.path()));
}

class WorkingFolderTest: public ProjectFilesTest {
protected:
    WorkingFolderTest() {
        if(const char* const old = std::getenv("XDG_DATA_HOME")) _old = old;
        setenv("XDG_DATA_HOME", other.path().c_str(), 1);
    }
    ~WorkingFolderTest() override {
        if(_old.empty())
            unsetenv("XDG_DATA_HOME");
        else
            setenv("XDG_DATA_HOME", _old.data(), 1);
    }
    std::size_t folders() const {
        std::size_t count = 0;
        std::error_code error;
        for(fs::directory_iterator entry{other.path("vantrel"), error}; entry != fs::directory_iterator{}; ++entry)
            ++count;
        return count;
    }

private:
    std::string _old;
};

TEST_F(WorkingFolderTest, AProjectWithoutAFileHasOneUntilItIsSaved) {
    EXPECT_EQ(folders(), 0u);
    const std::string working = session.folder();
    EXPECT_THAT(working, testing::StartsWith(other.path("vantrel/untitled-")));
    EXPECT_EQ(session.folder(), working);
    VantrelTest::writeFile(working + "/a.png", "AAA");
    addImage("a", "a.png");
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    EXPECT_EQ(readFile(folder.path("a.png")), "AAA");
    EXPECT_EQ(session.folder(), folder.path().string());
    EXPECT_EQ(folders(), 0u);
}

TEST_F(WorkingFolderTest, WhatIsLeftBehindWithAJournalIsFoundAndTakenOver) {
    session.folder();
    for(const char* const name: {"vantrel/untitled-older", "vantrel/untitled-newer"}) {
        other.write(name + std::string{"/lock"}, "");
        other.write(name + std::string{"/.project.json.journal"}, "");
    }
    const std::string older = other.path("vantrel/untitled-older"), newer = other.path("vantrel/untitled-newer");
    fs::last_write_time(older, fs::file_time_type::clock::now() - std::chrono::hours{1});
    WorkingFolder::removeAbandoned();
    EXPECT_THAT(WorkingFolder::abandonedProjects(), testing::ElementsAre(newer, older));
    {
        const WorkingFolder taken{older};
        EXPECT_EQ(taken.path(), older);
        EXPECT_EQ(WorkingFolder{older}.path(), "") << "somebody has it";
        EXPECT_THAT(WorkingFolder::abandonedProjects(), testing::ElementsAre(newer));
        WorkingFolder::discard(older);
        EXPECT_TRUE(fs::exists(older));
    }
    EXPECT_FALSE(fs::exists(older)) << "it goes with who took it over";
    WorkingFolder::discard(newer);
    EXPECT_THAT(WorkingFolder::abandonedProjects(), testing::IsEmpty());
    EXPECT_EQ(folders(), 1u) << "that of the session";
    EXPECT_EQ(WorkingFolder{newer}.path(), "");
}

TEST_F(WorkingFolderTest, AFailedSaveKeepsIt) {
    const std::string working = session.folder();
    VantrelTest::writeFile(working + "/a.png", "AAA");
    addImage("a", "a.png");
    EXPECT_NE(session.save(folder.path("missing/project.json")), "");
    EXPECT_EQ(readFile(working + "/a.png"), "AAA");
    EXPECT_EQ(session.folder(), working);
}

TEST_F(WorkingFolderTest, WhereUndoWouldMissAFileItIsKept) {
    const std::string working = session.folder();
    fs::create_directory(working + "/imported");
    VantrelTest::writeFile(working + "/imported/a.png", "AAA");
    addImage("a", "imported/a.png");
    changes().undoLast();
    folder.write("imported/a.png", "mine");
    std::string error;
    EXPECT_EQ(printed([&] { error = session.save(folder.path("project.json")); }),
        "imported/a.png: another file is there already in " + folder.path("imported") +
            ": undo and redo will miss it\nThe folder " + working + " is kept for them\n");
    EXPECT_EQ(error, "");
    EXPECT_EQ(readFile(folder.path("imported/a.png")), "mine");
    EXPECT_EQ(readFile(working + "/imported/a.png"), "AAA");
    // Until it is old.
    WorkingFolder::removeAbandoned();
    EXPECT_EQ(folders(), 1u);
    fs::last_write_time(working + "/imported", fs::file_time_type::clock::now() - std::chrono::hours{31 * 24});
    WorkingFolder::removeAbandoned();
    EXPECT_EQ(folders(), 0u);
}

TEST_F(WorkingFolderTest, AnotherProjectHasAnotherOne) {
    const std::string working = session.folder();
    session.startNew();
    EXPECT_EQ(folders(), 0u);
    EXPECT_NE(session.folder(), working);
}

TEST_F(WorkingFolderTest, WhatAProcessLeftBehindGoes) {
    const WorkingFolder mine, import{WorkingFolder::Purpose::Import};
    const auto leave = [&](const std::string& name, bool hasFiles, bool isOld) {
        other.write("vantrel/" + name + "/lock", "");
        if(hasFiles) other.write("vantrel/" + name + "/imported/a.png", "AAA");
        if(isOld)
            fs::last_write_time(other.path("vantrel/" + name + "/imported"),
                fs::file_time_type::clock::now() - std::chrono::hours{31 * 24});
    };
    leave("untitled-empty", false, false);
    leave("untitled-files", true, false);
    leave("untitled-old", true, true);
    leave("import-dead", true, false);
    // Whatever time it is, it is the user who gives up what was not saved.
    leave("untitled-journal", true, true);
    other.write("vantrel/untitled-journal/.project.json.journal", "");
    fs::last_write_time(other.path("vantrel/untitled-journal/.project.json.journal"),
        fs::file_time_type::clock::now() - std::chrono::hours{400 * 24});
    for(const char* const name: {"untitled-rest", "untitled-old-rest"})
        other.write("vantrel/" + std::string{name} + "/.project.json.journal.1", ""), leave(name, false, false);
    fs::last_write_time(other.path("vantrel/untitled-old-rest/.project.json.journal.1"),
        fs::file_time_type::clock::now() - std::chrono::hours{31 * 24});
    leave("other", false, false);
    other.write("vantrel/untitled-unknown/file", "");
    WorkingFolder::removeAbandoned();
    EXPECT_TRUE(fs::exists(mine.path()));
    EXPECT_TRUE(fs::exists(import.path()));
    EXPECT_THAT(import.path(), testing::StartsWith(other.path("vantrel/import-")));
    EXPECT_FALSE(fs::exists(other.path("vantrel/import-dead")));
    EXPECT_FALSE(fs::exists(other.path("vantrel/untitled-empty")));
    EXPECT_TRUE(fs::exists(other.path("vantrel/untitled-files/imported/a.png")));
    EXPECT_FALSE(fs::exists(other.path("vantrel/untitled-old")));
    EXPECT_TRUE(fs::exists(other.path("vantrel/untitled-journal/imported/a.png")));
    EXPECT_TRUE(fs::exists(other.path("vantrel/untitled-rest/.project.json.journal.1")));
    EXPECT_FALSE(fs::exists(other.path("vantrel/untitled-old-rest")));
    EXPECT_TRUE(fs::exists(other.path("vantrel/other")));
    EXPECT_TRUE(fs::exists(other.path("vantrel/untitled-unknown")));
}

} // namespace

} // namespace VantrelEngine
