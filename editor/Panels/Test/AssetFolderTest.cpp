#include <algorithm>
#include <chrono>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Panels/Assets/AssetFolder.h"
#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using testing::ElementsAre;
using testing::IsEmpty;
namespace fs = std::filesystem;

class AssetFolderTest: public testing::Test {
protected:
    std::vector<std::string> names() const {
        std::vector<std::string> list;
        for(const Asset& asset: assets.assets()) list.push_back(asset.name);
        return list;
    }
    std::string path() const { return folder.path().string(); }

    VantrelTest::TestFolder folder;
    AssetFolder assets;
};

TEST_F(AssetFolderTest, listsWhatCanBeImported) {
    for(const char* const name: {"b.glb", "a.PNG", "c.obj", "note.txt", ".hidden.png", "project.json"})
        folder.write(name, "x");
    fs::create_directory(folder.path("z"));
    assets.enter(path());
    EXPECT_TRUE(assets.isReading());
    EXPECT_TRUE(assets.update(0.0, true));
    EXPECT_FALSE(assets.isReading());
    EXPECT_THAT(names(), ElementsAre("z", "a.PNG", "b.glb", "c.obj"));
    EXPECT_EQ(assets.assets()[0].kind, AssetKind::Folder);
    EXPECT_EQ(assets.assets()[1].kind, AssetKind::Image);
    EXPECT_EQ(assets.assets()[2].kind, AssetKind::Model);
    EXPECT_EQ(assets.error(), "");
    EXPECT_FALSE(assets.update(0.5, true));
}

TEST_F(AssetFolderTest, isReadBesideTheFrames) {
    folder.write("a.png", "x");
    assets.enter(path());
    bool isThere = false;
    for(int i = 0; i != 2000 && !isThere; ++i) {
        isThere = assets.update(0.0, false);
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    EXPECT_TRUE(isThere);
    EXPECT_THAT(names(), ElementsAre("a.png"));
}

TEST_F(AssetFolderTest, changesAreSeenWithinASecond) {
    folder.write("a.png", "x");
    fs::last_write_time(path(), fs::file_time_type::clock::now() - std::chrono::hours{1});
    assets.enter(path());
    EXPECT_TRUE(assets.update(10.0, true));
    folder.write("b.png", "x");
    EXPECT_FALSE(assets.update(10.5, true));
    EXPECT_TRUE(assets.update(11.0, true));
    EXPECT_THAT(names(), ElementsAre("a.png", "b.png"));
    fs::last_write_time(path(), fs::file_time_type::clock::now() - std::chrono::hours{1});
    EXPECT_TRUE(assets.update(20.0, true));
    EXPECT_FALSE(assets.update(30.0, true)) << "nothing changed for long";
}

TEST_F(AssetFolderTest, aChangeInTheTickOfTheOneBeforeIsSeen) {
    folder.write("a.png", "x");
    const fs::file_time_type now = fs::file_time_type::clock::now();
    fs::last_write_time(path(), now);
    assets.enter(path());
    EXPECT_TRUE(assets.update(10.0, true));
    folder.write("b.png", "x");
    fs::last_write_time(path(), now);
    EXPECT_TRUE(assets.update(11.0, true));
    EXPECT_THAT(names(), ElementsAre("a.png", "b.png"));
}

TEST_F(AssetFolderTest, anotherFolderIsReadInsteadOfTheFirst) {
    folder.write("first/a.png", "x");
    folder.write("second/b.png", "x");
    assets.enter(folder.path("first"));
    assets.enter(folder.path("second"));
    // What comes of the first is not shown.
    while(!assets.update(0.0, true)) ASSERT_THAT(names(), IsEmpty());
    EXPECT_THAT(names(), ElementsAre("b.png"));
}

TEST_F(AssetFolderTest, whatCannotBeReadSaysWhy) {
    assets.enter(folder.path("missing"));
    EXPECT_TRUE(assets.update(0.0, true));
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_NE(assets.error(), "");
}

TEST(AssetFilterTest, byNameAndKind) {
    const std::vector<Asset> assets{
        {"Maps", AssetKind::Folder}, {"Lamp.glb", AssetKind::Model}, {"lamp.png", AssetKind::Image}};
    EXPECT_THAT(filterAssets(assets, {}), ElementsAre(0u, 1u, 2u));
    EXPECT_THAT(filterAssets(assets, {"LAMP", true, true}), ElementsAre(1u, 2u));
    EXPECT_THAT(filterAssets(assets, {"amp", false, true}), ElementsAre(2u));
    EXPECT_THAT(filterAssets(assets, {"", true, false}), ElementsAre(0u, 1u));
    EXPECT_THAT(filterAssets(assets, {"nothing", true, true}), IsEmpty());
}

TEST(PathPartsTest, leadToEachFolderOnTheWay) {
    const std::vector<PathPart> parts = partsOf("/home/me/");
    ASSERT_EQ(parts.size(), 3u);
    EXPECT_EQ(parts[0].name + ' ' + parts[0].path, "/ /");
    EXPECT_EQ(parts[1].name + ' ' + parts[1].path, "home /home");
    EXPECT_EQ(parts[2].name + ' ' + parts[2].path, "me /home/me");
    EXPECT_TRUE(partsOf("").empty());
}

}
