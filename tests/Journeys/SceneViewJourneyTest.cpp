#include <gmock/gmock.h>

#include "Journeys/Journey.h"

namespace VantrelTest {

namespace {

using testing::HasSubstr;
using testing::Not;

class SceneViewJourneyTest: public JourneyTest {
protected:
    std::string playView(const std::string& script) {
        const JourneyResult result = play(script, "--size 640x480 --frames 1 " + Courtyard);
        EXPECT_EQ(result.status, 0) << result.output;
        return result.output;
    }
};

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for(std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1)) ++found;
    return found;
}

TEST_F(SceneViewJourneyTest, DrawsTheScene) {
    playView("screenshot {}/scene.png\nidimage {}/ids.png\ndump statistics {}/statistics\nnew\nwait 2\n"
             "dump statistics {}/nothing\n");
    EXPECT_THAT(read("statistics"), Not(HasSubstr("triangles 0\n")));
    EXPECT_THAT(read("nothing"), HasSubstr("triangles 0\n"));
    // Objects are in the middle of the view, and no others than those of the project.
    const JourneyPicture ids = picture("ids.png");
    const unsigned middle = ids.pixel(ids.width / 2, ids.height / 2);
    EXPECT_GE(middle >> 16, 1);
    EXPECT_LE(middle >> 16, 33);
    EXPECT_EQ(middle >> 8 & 0xff, 0);
}

TEST_F(SceneViewJourneyTest, TheSelectionIsSeen) {
    // One whose row is seen already: the list does not move.
    playView("screenshot {}/before.png\nselect column2Shaft\nwait 1\nscreenshot {}/selected.png\nselect\nwait 1\n"
             "screenshot {}/after.png\n");
    EXPECT_NE(picture("selected.png").pixels, picture("before.png").pixels);
    EXPECT_EQ(picture("after.png").pixels, picture("before.png").pixels);
}

TEST_F(SceneViewJourneyTest, FlyingWithAStillMouseDoesNotTurn) {
    playView("mouse 350 200\nscreenshot {}/before.png\npress right\nwait 120\nrelease right\nwait 1\n"
             "screenshot {}/after.png\npress right\nmove 30 0\nwait 1\nrelease right\nwait 1\n"
             "screenshot {}/turned.png\n");
    EXPECT_EQ(picture("after.png").pixels, picture("before.png").pixels);
    EXPECT_NE(picture("turned.png").pixels, picture("after.png").pixels);
}

TEST_F(SceneViewJourneyTest, FlyingEndsWithARelease) {
    playView("mouse 350 200\npress right\nkey W\nwait 10\nkeyup W\nrelease right\nwait 1\nscreenshot {}/after.png\n"
             "wait 30\nscreenshot {}/later.png\nfocus on\npress right\nkey W\nfocus off\nwait 1\n"
             "screenshot {}/lost.png\nwait 30\nscreenshot {}/still.png\n");
    EXPECT_EQ(picture("later.png").pixels, picture("after.png").pixels);
    EXPECT_EQ(picture("still.png").pixels, picture("lost.png").pixels);
    EXPECT_NE(picture("lost.png").pixels, picture("later.png").pixels);
}

TEST_F(SceneViewJourneyTest, AfterAFlightTheCursorIsOverTheViewAgain) {
    // A second flight begins only over the view.
    playView("mouse 350 200\npress right\nmove 5000 0\nrelease right\nwait 2\nidimage {}/before.png\n"
             "press right\nkey W\nwait 10\nkeyup W\nrelease right\nidimage {}/after.png\n");
    EXPECT_NE(picture("after.png").pixels, picture("before.png").pixels);
}

TEST_F(SceneViewJourneyTest, ThumbnailsAreMadeBesideTheView) {
    playView(
        "wait 3\nscreenshot {}/before.png\nthumbnail material paint {}/my blue.png\nthumbnail mesh sphere {}/mesh.png\n"
        "wait 2\nscreenshot {}/after.png\n");
    EXPECT_EQ(picture("after.png").pixels, picture("before.png").pixels);
    const JourneyPicture blue = picture("my blue.png"), mesh = picture("mesh.png");
    EXPECT_EQ(blue.width, 96);
    EXPECT_EQ(blue.height, 96);
    const unsigned color = blue.pixel(48, 48);
    EXPECT_GT(color & 0xff, (color >> 16) + 40);
    EXPECT_NE(mesh.pixel(48, 48), mesh.pixel(2, 2));
}

TEST_F(SceneViewJourneyTest, NoThumbnailIsMadeWhileSomethingMoves) {
    const std::string options = "--size 640x480 --frames 1 " + Courtyard;
    const JourneyResult moving =
        play("mouse 350 200\npress right\nkey W\nthumbnail mesh sphere {}/mesh.png\n", options);
    EXPECT_EQ(moving.status, 2);
    EXPECT_THAT(moving.output, HasSubstr("thumbnail mesh sphere"));
    EXPECT_THAT(moving.output, HasSubstr("something else is going on"));
    const JourneyResult unknown = play("thumbnail image nobody {}/image.png\n", options);
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.output, HasSubstr("there is no such resource"));
}

TEST_F(SceneViewJourneyTest, FiftyReloadsShowTheSame) {
    std::string script = "select ball\nmouse 350 200\nscroll 3\nwait 2\nkey F\nkeyup F\nwait 2\n"
                         "mouse 5 300\nwait 1\n";
    // Without the log, which says what was loaded.
    script += "mouse 300 346\npress left\nmouse 300 479\nrelease left\nmouse 5 300\nwait 1\nidimage {}/before.png\n";
    for(int i = 0; i != 50; ++i) script += "reload\n";
    script += "wait 2\nidimage {}/after.png\ndump selection {}/selection\n";
    const std::string output = playView(script);
    EXPECT_EQ(count(output, "Initializing View"), 51);
    EXPECT_EQ(read("selection"), "ball\n");
    EXPECT_EQ(picture("after.png").pixels, picture("before.png").pixels);
}

}

}
