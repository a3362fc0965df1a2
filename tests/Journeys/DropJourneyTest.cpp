#include <filesystem>
#include <sstream>

#include <gmock/gmock.h>

#include "Journeys/Barrel.h"
#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

// Runtime objects of the courtyard, in its order.
constexpr unsigned Ground = 1, Rim = 22, Ball = 28;
// Beside the toolbar.
constexpr const char* Sky = "mouse 460 120\n";

struct Point {
    int x = 0, y = 0;
    std::string text() const { return std::to_string(x) + ' ' + std::to_string(y); }
};

// Things that are dragged into the view, with the real converter, in a courtyard of its own beside which a model and a
// picture lie.
class DropJourneyTest: public JourneyTest {
protected:
    // Of the view's picture in the window.
    static constexpr Point Origin{286, 69};
    static constexpr Point Outside{5, 300};

    DropJourneyTest() {
        setenv("XDG_DATA_HOME", folder.path("data").data(), 1);
        fs::create_directory(folder.path("project"));
        fs::copy_file(Courtyard, folder.path("project/project.json"));
        fs::copy_file(PROJECTS "/Showcase/wood.png", folder.path("project/wood.png"));
        folder.write("project/barrel.obj", Barrel);
        folder.write("project/broken.png", "this is no picture");
        if(!ids.pixels.empty()) return;
        playDrop("idimage {}/ids.png\n");
        ids = picture("ids.png");
    }

    // Small pictures are enough to see what is under the mouse.
    std::string playDrop(const std::string& script, const char* size = "800x560") {
        const JourneyResult result = play("wait 2\ndump document {}/before\n" + script,
            std::string{"--converter " REAL_CONVERTER " --size "} + size + " --frames 1 " +
                folder.path("project/project.json"));
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }
    // In the window, well inside of what is seen of an object, and below the toolbar.
    Point placeOf(unsigned object) const { return placeIn(ids, object); }
    static Point placeIn(const JourneyPicture& ids, unsigned object) {
        const auto isSeen = [&](int x, int y) { return ids.pixel(x, y) >> 16 == object; };
        for(int y = ids.height - 13; y >= 12; --y)
            for(int x = 12; x < ids.width - 12; ++x)
                if(isSeen(x - 4, y) && isSeen(x + 4, y) && isSeen(x, y - 4) && isSeen(x, y + 4))
                    return {Origin.x + x, Origin.y + y};
        ADD_FAILURE() << "object " << object << " is not seen";
        return {};
    }
    std::string over(unsigned object) const { return "mouse " + placeOf(object).text() + "\n"; }
    static std::string outside() { return "mouse " + Outside.text() + "\n"; }

    // Of the courtyard as it is opened; seen once for all.
    static JourneyPicture ids;
};

JourneyPicture DropJourneyTest::ids;

TEST_F(DropJourneyTest, AMaterialStaysOnTheLastOfThreeObjects) {
    playDrop("record /settings/other 1\nundo\ndump undo {}/tail\nmouse " + Outside.text() + "\ndrag materials tile\n" +
        over(Rim) + "dump document {}/rim\n" + over(Ball) + "dump document {}/ball\n" + "screenshot {}/seen.png\n" +
        over(Ground) + "dump document {}/ground\ndump undo {}/log\nrelease left\nwait 2\n" +
        R"(dump document {}/dropped
dump undo {}/undo
undo
dump document {}/undone
redo
dump document {}/redone
save {}/project/project.json
open {}/project/project.json
dump document {}/reopened
)");
    const std::string before = read("before");
    const auto isOther = [&](const std::string& name) { return read(name) != before; };
    for(const char* const name: {"rim", "ball", "ground", "dropped"}) EXPECT_TRUE(isOther(name)) << name;
    // Each time on one object alone: each is as long, but for the names of materials.
    EXPECT_EQ(read("dropped"), read("ground"));
    EXPECT_THAT(read("undo"), MatchesRegex("> [0-9]+ /objects/ground/components/0/mesh/material\n"));
    EXPECT_EQ(read("log"), read("undo"));
    EXPECT_EQ(read("undone"), before);
    EXPECT_EQ(read("redone"), read("dropped"));
    EXPECT_EQ(read("reopened"), read("dropped"));
}

TEST_F(DropJourneyTest, WhatIsTakenBackNeverWas) {
    const std::string output = playDrop("record /settings/other 1\nundo\ndump undo {}/tail\nscreenshot {}/before.png\n"
                                        "drag materials tile\n" +
        over(Rim) + over(Ball) + "screenshot {}/seen.png\n" + outside() +
        "dump document {}/left\ndump undo {}/log\nrelease left\nwait 2\n" + "drag materials tile\n" + over(Rim) +
        "undo\nwait 1\ndump document {}/again\n" + outside() + "release left\nwait 2\ndump undo {}/end\n" + outside() +
        "screenshot {}/after.png\nredo\ndump document {}/redone\n");
    EXPECT_EQ(read("left"), read("before"));
    EXPECT_EQ(read("tail"), "  -1 /settings/other\n");
    EXPECT_EQ(read("log"), read("tail"));
    // The preview that undo took back begins anew as long as the mouse is there.
    EXPECT_NE(read("again"), read("before"));
    EXPECT_EQ(read("end"), read("tail"));
    EXPECT_THAT(read("redone"), HasSubstr("\"other\": 1"));
    EXPECT_NE(picture("seen.png").pixels, picture("before.png").pixels);
}

// By Escape, by the right button, which flies nowhere then, and where the window loses the focus.
TEST_F(DropJourneyTest, ADragIsGivenUp) {
    std::string script = "record /settings/other 1\nundo\ndump undo {}/tail\n";
    const std::string ends[]{
        "key Escape\nkeyup Escape\n", "press right\nmove 20 5\nrelease right\n", "focus off\nfocus on\n"};
    for(std::size_t i = 0; i != 3; ++i)
        for(const char* const what: {"materials tile", "file {}/project/wood.png", "file {}/project/barrel.obj"})
            script += "drag " + std::string{what} + '\n' + over(Rim) + over(Ball) + "screenshot {}/seen.png\n" +
                ends[i] + "dump undo {}/undo" + std::to_string(i) + '\n' + over(Ball) + over(Rim) +
                "release left\nwait import\nwait 2\n";
    const std::string output =
        playDrop(script + outside() + "dump document {}/end\ndump undo {}/log\nidimage {}/moved.png\n");
    EXPECT_TRUE(read("end") == read("before"));
    for(const char* const log: {"undo0", "undo1", "undo2", "log"}) EXPECT_EQ(read(log), read("tail")) << log;
    EXPECT_THAT(output, Not(HasSubstr("Dropped file")));
    EXPECT_TRUE(picture("moved.png").pixels == ids.pixels) << "the camera is where it was";
}

// The row below the mouse is not dragged, and not clicked either.
TEST_F(DropJourneyTest, WhatIsTakenOverARowIsNotTheRow) {
    playDrop("select\nmouse 65 97\ndrag materials tile\nmouse 66 150\ndump selection {}/row\n" + over(Ball) +
        "release left\nwait 2\ndump undo {}/undo\ndump selection {}/end\n"
        "drop {}/project/barrel.obj 65 97\nwait import\nundo\ndump selection {}/dropped\n");
    EXPECT_EQ(read("row") + read("end") + read("dropped"), "");
    EXPECT_THAT(read("undo"), EndsWith("/objects/ball/components/0/mesh/material\n"));
}

TEST_F(DropJourneyTest, AnImageIsSeenOnEachObjectAndLoadedOnce) {
    const std::string output = playDrop("record /settings/other 1\nundo\ndump undo {}/tail\nmouse " + Outside.text() +
        "\ndrag file {}/project/wood.png\n" + over(Rim) + "dump document {}/rim\n" + over(Ball) +
        "dump document {}/ball\ndump undo {}/log\n" + outside() +
        "dump document {}/left\ndump undo {}/taken\nrelease left\nwait 2\ndrag file {}/project/wood.png\n" +
        over(Ball) +
        R"(release left
wait import
wait 2
dump document {}/dropped
dump undo {}/undo
undo
dump document {}/undone
redo
dump document {}/redone
)");
    EXPECT_EQ(read("left"), read("before"));
    EXPECT_EQ(read("taken"), read("tail"));
    EXPECT_THAT(read("rim"), HasSubstr("\"wood.png\""));
    EXPECT_NE(read("rim"), read("ball"));
    const std::string material = "/materials/paint/Lit/baseColorTexture\n";
    EXPECT_THAT(read("log"), AllOf(HasSubstr("/textures"), EndsWith(material), Not(HasSubstr("stone"))));
    EXPECT_EQ(read("dropped"), read("ball"));
    EXPECT_THAT(read("undo"), EndsWith(material));
    EXPECT_EQ(read("undone"), read("before"));
    EXPECT_EQ(read("redone"), read("dropped"));
    std::size_t loads = 0;
    for(std::size_t i = output.find("Imported wood.png"); i != output.npos; i = output.find("Imported wood.png", i + 1))
        ++loads;
    // Once a drag, and once when it was dropped, which adds nothing.
    EXPECT_EQ(loads, 3u);
}

TEST_F(DropJourneyTest, AnImageOverNothingIsImportedAlone) {
    const std::string output = playDrop(std::string{"drag file {}/project/wood.png\n"} + Sky +
        "dump document {}/hovered\nrelease left\nwait import\nwait 2\ndump document {}/dropped\nundo\n"
        "dump document {}/undone\n");
    EXPECT_EQ(read("hovered"), read("before"));
    EXPECT_THAT(
        read("dropped"), AllOf(HasSubstr("\"wood-png\": {"), Not(HasSubstr("\"baseColorTexture\": \"wood-png\""))));
    EXPECT_THAT(output, HasSubstr("Dropped file " + folder.path("project/wood.png") + '\n'));
    EXPECT_EQ(read("undone"), read("before"));
}

TEST_F(DropJourneyTest, ATextureAndNothingThatIsNotThere) {
    const std::string output = playDrop("import {}/project/wood.png\nwait import\ndump document {}/loaded\n"
                                        "drag textures wood-png\n" +
        over(Rim) + over(Ball) +
        "release left\nwait 2\ndump document {}/dropped\nundo\ndump document {}/undone\n"
        "drag textures nobody\n" +
        over(Rim) + over(Ball) + "release left\nwait 2\ndrag materials nobody\n" + over(Rim) + over(Ball) +
        "release left\nwait 2\ndrag meshes cube\n" + over(Ball) +
        "release left\nwait 2\ndrag file {}/project/broken.png\n" + over(Rim) + over(Ball) + outside() +
        "release left\nwait 2\ndump document {}/after\n");
    EXPECT_THAT(read("dropped"), HasSubstr("\"baseColorTexture\": \"wood-png\""));
    EXPECT_EQ(read("undone"), read("loaded"));
    EXPECT_EQ(read("after"), read("loaded"));
    for(const char* const line:
        {"There is no texture \"nobody\"\n", "There is no material \"nobody\"\n", "broken.png: "}) {
        const std::size_t place = output.find(line);
        EXPECT_NE(place, output.npos) << line << output;
        EXPECT_EQ(output.find(line, place + 1), output.npos) << line << output;
    }
}

TEST_F(DropJourneyTest, AModelComesToStandWhereItWasShown) {
    const Point ground = placeOf(Ground);
    const std::string output =
        playDrop("mouse " + ground.text() + "\nscreenshot {}/empty.png\ndrag file {}/project/barrel.obj\nwait 2\n" +
            "screenshot {}/ghost.png\nrelease left\nwait import\nwait 2\nidimage {}/dropped.png\ndump document "
            "{}/dropped\n" +
            "dump selection {}/selection\ndump undo {}/log\nundo\ndump document {}/undone\n");
    EXPECT_NE(picture("ghost.png").pixels, picture("empty.png").pixels);
    EXPECT_EQ(read("undone"), read("before"));
    EXPECT_EQ(read("selection"), "barrel\n");
    EXPECT_THAT(output, HasSubstr("Dropped file " + folder.path("project/barrel.obj") + '\n'));
    // It is seen where it stands, upwards from the pixel.
    const JourneyPicture dropped = picture("dropped.png");
    EXPECT_GT(dropped.pixel(ground.x - Origin.x, ground.y - Origin.y - 8) >> 16, Ball);
}

TEST_F(DropJourneyTest, FilesOfTheSystemComeOneAfterTheOther) {
    const std::string ball = placeOf(Ball).text(), ground = placeOf(Ground).text();
    playDrop("drop {}/project/barrel.obj " + ground + "\ndrop {}/project/wood.png " + ball +
        "\ndrop {}/project/barrel.obj " + ground +
        "\nwait 40\nwait import\nwait 2\ndump document {}/dropped\nundo\nundo\nundo\ndump document {}/undone\n");
    EXPECT_THAT(read("dropped"),
        AllOf(
            HasSubstr("\"barrel\": {"), HasSubstr("\"barrel-2\": {"), HasSubstr("\"baseColorTexture\": \"wood-png\"")));
    EXPECT_EQ(read("undone"), read("before"));
}

TEST_F(DropJourneyTest, AnImportWaitsForTheEndOfAPreview) {
    playDrop("drag materials tile\n" + over(Rim) +
        "import {}/project/barrel.obj\nwait import\ndump document {}/waiting\n" +
        "release left\nwait 1\nwait import\n" +
        "wait 1\ndump document {}/there\nundo\ndump document {}/material\nundo\ndump document {}/undone\n");
    EXPECT_THAT(read("waiting"), Not(HasSubstr("\"barrel\": {")));
    EXPECT_THAT(read("there"), HasSubstr("\"barrel\": {"));
    EXPECT_EQ(read("material"), read("waiting"));
    EXPECT_EQ(read("undone"), read("before"));
}

// Out of the panels, by the mouse alone.
TEST_F(DropJourneyTest, FromThePanelsIntoTheView) {
    // Where there is room for them.
    playDrop("idimage {}/large.png\n", "1000x700");
    const JourneyPicture large = picture("large.png");
    const std::string ball = placeIn(large, Ball).text(), ground = placeIn(large, Ground).text();
    playDrop(R"(wait 3
mouse 430 497
press left
release left
wait 2
mouse 400 577
press left
move 6 0
mouse )" + ball +
            R"(
wait 2
screenshot {}/held.png
release left
wait 2
dump undo {}/material
undo
dump document {}/undone
mouse 320 497
press left
release left
wait 3
mouse 337 600
press left
move 6 0
mouse )" + ground +
            R"(
wait 2
screenshot {}/ghost.png
release left
wait import
wait 2
dump undo {}/model
undo
dump document {}/end
)",
        "1000x700");
    EXPECT_THAT(read("material"), HasSubstr("> "));
    EXPECT_THAT(read("material"), HasSubstr("/objects/ball/components/0/mesh/material\n"));
    EXPECT_EQ(read("undone"), read("before"));
    EXPECT_THAT(read("model"), HasSubstr("/objects/barrel"));
    EXPECT_EQ(read("end"), read("before"));
}

}

}
