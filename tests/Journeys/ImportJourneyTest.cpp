#include <gmock/gmock.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// Files say what their converter does, see FakeConverter.cpp.
class ImportJourneyTest: public JourneyTest {
protected:
    ImportJourneyTest() {
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        folder.write("crate.glb", "scene crate 2");
        folder.write("slow.glb", "slow 8");
        folder.write("bad.glb", "crash");
    }

    std::string playImport(const std::string& script, const std::string& arguments = {}) {
        const JourneyResult result = play(
            script, "--module " + Recorder + " --converter " FAKE_CONVERTER " --size 1000x700 --frames 1 " + arguments);
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }
    // Of the scene view's picture, in a window of 500 x 400: how much of it is not the background.
    double coveredShare(const std::string& name) const {
        const JourneyPicture all = picture(name);
        const unsigned background = all.pixel(290, 75);
        std::size_t covered = 0;
        for(int y = 72; y != 220; ++y)
            for(int x = 288; x != 498; ++x) covered += all.pixel(x, y) != background;
        return double(covered) / (148.0 * 210.0);
    }
};

TEST_F(ImportJourneyTest, UndoRedoSaveAndReopen) {
    std::filesystem::create_directory(folder.path("project"));
    playImport(R"(
new
dump document {}/empty
import {}/crate.glb
wait import
dump document {}/imported
dump selection {}/selection
undo
dump document {}/undone
redo
dump document {}/redone
save {}/project/project.json
open {}/project/project.json
dump document {}/reopened
import {}/crate.glb
wait import
dump document {}/twice
)");
    EXPECT_NE(read("imported"), read("empty"));
    EXPECT_EQ(read("undone"), read("empty"));
    EXPECT_EQ(read("redone"), read("imported"));
    EXPECT_EQ(read("reopened"), read("imported"));
    EXPECT_EQ(read("selection"), "crate\n");
    EXPECT_THAT(read("twice"), AllOf(HasSubstr("\"name\": \"crate 2\""), Not(HasSubstr("\"name\": \"Paint 2\""))));
    const auto filesIn = [](const std::string& path) {
        return std::distance(std::filesystem::directory_iterator{path}, std::filesystem::directory_iterator{});
    };
    EXPECT_EQ(filesIn(folder.path("project/imported")), 1);
    // Those that a project without a file had are gone.
    EXPECT_EQ(filesIn(folder.path("data/vantrel")), 0);
}

TEST_F(ImportJourneyTest, AModelOnTheCommandLineIsANewProjectInView) {
    const char* const sizes[]{"0.01", "1", "5000"};
    for(const char* const size: sizes) {
        SCOPED_TRACE(size);
        folder.write("Model.GLB", std::string{"scene model 1 "} + size);
        const JourneyResult result =
            runEditor("--headless --converter " FAKE_CONVERTER " --size 500x400 --screenshot " +
                folder.path("model.png") + " " + folder.path("Model.GLB"));
        EXPECT_EQ(result.status, 0) << result.output;
        EXPECT_THAT(result.output, HasSubstr("Imported Model.GLB: 2 objects\n"));
        const double share = coveredShare("model.png");
        EXPECT_GT(share, 0.15);
        EXPECT_LT(share, 0.7);
    }
}

TEST_F(ImportJourneyTest, AModelThatCannotBeReadEndsARunWithoutAWindow) {
    const JourneyResult result = runEditor("--headless --converter " FAKE_CONVERTER " --module " + Recorder +
        " --screenshot " + folder.path("model.png") + " " + folder.path("bad.glb"));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, HasSubstr("bad.glb: the converter crashed (signal 6)\n"));
    EXPECT_FALSE(std::filesystem::exists(folder.path("model.png")));
}

TEST_F(ImportJourneyTest, DroppedFilesAreImportedUnlessTheViewTakesThem) {
    folder.write("text.txt", "");
    const std::string output = playImport(R"(
new
drop {}/crate.glb 600 300
drop {}/crate.glb 100 600
drop {}/text.txt 100 600
wait 16
wait import
dump document {}/document
)");
    EXPECT_THAT(output,
        AllOf(HasSubstr("recorder: dropped " + folder.path("crate.glb")),
            HasSubstr(folder.path("text.txt") + ": files of this kind cannot be imported\n")));
    EXPECT_THAT(read("document"), AllOf(HasSubstr("\"crate\""), Not(HasSubstr("\"crate 2\""))));
}

TEST_F(ImportJourneyTest, WhatTakesLongShowsABarAndCanBeCancelled) {
    playImport(R"(
new
dump document {}/before
screenshot {}/idle.png
import {}/slow.glb
wait 20
screenshot {}/early.png
wait 20
screenshot {}/bar.png
record /settings/x 1
undo
mouse 945 650
press left
release left
wait import
wait 3
screenshot {}/after.png
dump document {}/after
dump log {}/log
)");
    const auto at = [this](const char* name) { return picture(name).pixel(850, 642); };
    EXPECT_EQ(at("early.png"), at("idle.png"));
    EXPECT_NE(at("bar.png"), at("idle.png"));
    EXPECT_EQ(at("after.png"), at("idle.png"));
    EXPECT_EQ(read("after"), read("before"));
    EXPECT_THAT(read("log"), HasSubstr("Cancelled the import of slow.glb"));
}

}

}
