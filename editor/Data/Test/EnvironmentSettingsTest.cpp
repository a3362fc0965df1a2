#include "Data/EnvironmentSettings.h"

#include "Data/Test/SessionFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* Settings = "/settings/rendering/environment";

class EnvironmentSettingsTest: public VantrelTest::SessionFixture {
protected:
    // Images without files are placeholders, and say so.
    void addImage(const std::string& id) {
        printed([&] {
            record("/images/" + id, "{'name': 'I'}");
            session.update();
        });
    }
    const SceneImage* imageOf(const char* id) {
        const EditorSceneData& data = session.data().scene();
        return &data.resources().images[session.data().scene().resourceMaps().find(ResourceKind::Image, id)->index];
    }
};

TEST_F(EnvironmentSettingsTest, aNewProjectHasNone) {
    EXPECT_EQ(printed([this] { session.update(); }), "");
    EXPECT_FALSE(scene.environment.image);
    EXPECT_EQ(scene.environment.intensity, 1.0f);
    EXPECT_TRUE(scene.environment.isBackground);
}

TEST_F(EnvironmentSettingsTest, isWhatTheProjectSays) {
    addImage("sky");
    record(Settings, "{'image': 'sky', 'intensity': 2.5, 'rotation': -30, 'background': false}");
    session.update();
    EXPECT_EQ(scene.environment.image, imageOf("sky"));
    EXPECT_EQ(scene.environment.intensity, 2.5f);
    EXPECT_EQ(Float(scene.environment.rotation), -30.0f);
    EXPECT_FALSE(scene.environment.isBackground);
}

TEST_F(EnvironmentSettingsTest, whatIsMissingOrCannotBeUsedIsAsInANewProject) {
    addImage("sky");
    record(Settings, "{'image': 'sky', 'intensity': 'much', 'background': 1}");
    const std::string warnings = printed([this] { session.update(); });
    EXPECT_THAT(warnings, HasSubstr("settings/rendering/environment/intensity"));
    EXPECT_THAT(warnings, HasSubstr("settings/rendering/environment/background"));
    EXPECT_EQ(scene.environment.image, imageOf("sky"));
    EXPECT_EQ(scene.environment.intensity, 1.0f);
    EXPECT_EQ(Float(scene.environment.rotation), 0.0f);
    EXPECT_TRUE(scene.environment.isBackground);
    record(std::string{Settings} + "/intensity", "-1");
    session.update();
    EXPECT_EQ(scene.environment.intensity, 0.0f);
}

TEST_F(EnvironmentSettingsTest, anImageThatIsNotThereIsNoneAndIsSaidOnce) {
    // Something else names it, too.
    printed([this] {
        record("/textures/sky", "{'name': 'T', 'image': 'sky'}");
        session.update();
    });
    record(Settings, "{'image': 'sky'}");
    EXPECT_EQ(printed([this] { session.update(); }), "settings/rendering/environment/image: images/sky is not there\n");
    EXPECT_FALSE(scene.environment.image);
    record(std::string{Settings} + "/intensity", "2");
    EXPECT_EQ(printed([this] { session.update(); }), "");

    addImage("sky");
    EXPECT_EQ(scene.environment.image, imageOf("sky"));
    remove("/images/sky");
    session.update();
    EXPECT_FALSE(scene.environment.image);
    changes().undoLast();
    printed([this] { session.update(); });
    EXPECT_EQ(scene.environment.image, imageOf("sky"));
}

TEST_F(EnvironmentSettingsTest, theImageIsFoundWhereverItMovesTo) {
    addImage("sky");
    record(Settings, "{'image': 'sky'}");
    session.update();
    for(int i = 0; i != 100; ++i) {
        addImage("other" + std::to_string(i));
        ASSERT_EQ(scene.environment.image, imageOf("sky"));
    }
}

TEST_F(EnvironmentSettingsTest, otherPixelsHaveAnotherRevision) {
    addImage("sky");
    addImage("other");
    const std::uint32_t revision = imageOf("sky")->revision;
    EXPECT_NE(revision, 0u);
    EXPECT_NE(imageOf("other")->revision, revision);
    record("/images/sky/name", "'Another name'");
    session.update();
    EXPECT_EQ(imageOf("sky")->revision, revision);
    remove("/images/sky");
    session.update();
    addImage("sky");
    EXPECT_NE(imageOf("sky")->revision, revision);
}

TEST_F(EnvironmentSettingsTest, reachTheRendererWithoutAReloadOfAnythingElse) {
    addImage("sky");
    EXPECT_THAT(aspectsChangedBy([this] { record(Settings, "{'image': 'sky'}"); }), ElementsAre(Aspect::Settings));
    EXPECT_THAT(
        aspectsChangedBy([this] { record(std::string{Settings} + "/rotation", "20"); }), ElementsAre(Aspect::Settings));
    EXPECT_EQ(Float(scene.environment.rotation), 20.0f);
}

} // namespace
