#include "Vantrel/EngineData/ResourceManager.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Data/Resources/FolderResource.h"
#include "Support/TestFolder.h"

namespace {

using namespace Corrade;
using namespace VantrelEngine;
using testing::HasSubstr;
namespace fs = std::filesystem;

constexpr std::size_t NoLimit = 1 << 20;

struct ResourceManagerTest: testing::Test {
    ResourceManagerTest() {
        folder.write("outside.txt", "secret");
        folder.write("outside/file.txt", "secret");
        folder.write("project/a.txt", "text");
        folder.write("project/sub/b.txt", std::string{"b\0c", 3});
        folder.write("project/empty.txt", "");
        manager.setProjectFolder(folder.path() / "project");
    }

    // The contents, or the reason in brackets.
    std::string read(const std::string& file, const std::string& asset = {}, std::size_t limit = NoLimit) {
        std::string reason;
        const auto data = manager.read({asset, file}, limit, reason);
        EXPECT_NE(bool(data), !reason.empty());
        return data ? std::string{data->data(), data->size()} : "(" + reason + ")";
    }

    VantrelTest::TestFolder folder;
    ResourceManager manager;
};

TEST_F(ResourceManagerTest, readsFilesOfTheProject) {
    EXPECT_EQ(read("a.txt"), "text");
    EXPECT_EQ(read("sub/b.txt"), (std::string{"b\0c", 3}));
    EXPECT_EQ(read("./sub/./b.txt"), (std::string{"b\0c", 3}));
    EXPECT_EQ(read("empty.txt"), "");
    folder.write("project/..a/c..txt", "dots");
    EXPECT_EQ(read("..a/c..txt"), "dots");
    folder.write("project/1:2", "colon");
    EXPECT_EQ(read("1:2"), "colon");
}

TEST_F(ResourceManagerTest, namesThatAreNone) {
    const struct {
        std::string file;
        const char* reason;
    } data[]{{"", "no file name"}, {folder.path() / "project/a.txt", "absolute"}, {"/a.txt", "absolute"},
        {"../outside.txt", "upwards"}, {"sub/../a.txt", "upwards"}, {"..", "upwards"}, {"sub/..", "upwards"},
        {"sub\\b.txt", "backslash"}, {std::string{"a.txt\0x", 7}, "zero byte"}, {"file:a.txt", "scheme"},
        {"C:a.txt", "scheme"}, {"git+ssh://a.txt", "scheme"}};
    for(const auto& row: data) {
        EXPECT_THAT(read(row.file), HasSubstr(row.reason)) << row.file;
        // Whoever asks the asset itself gets no more.
        std::string reason;
        EXPECT_FALSE(manager.resolveLink({"", "a.txt"})->get({row.file.data(), row.file.size()}, NoLimit, reason));
    }
}

TEST_F(ResourceManagerTest, whatIsNoFile) {
    EXPECT_THAT(read("missing.txt"), HasSubstr("No such file"));
    EXPECT_THAT(read("a.txt/b"), HasSubstr("Not a directory"));
    EXPECT_THAT(read("sub"), HasSubstr("not a regular file"));
    ASSERT_EQ(mkfifo((folder.path() / "project/pipe").c_str(), 0600), 0);
    EXPECT_THAT(read("pipe"), HasSubstr("not a regular file"));
    EXPECT_THAT(read("."), HasSubstr("not a regular file"));
}

TEST_F(ResourceManagerTest, symbolicLinksStayInTheFolder) {
    fs::create_symlink("../a.txt", folder.path() / "project/sub/inside");
    EXPECT_EQ(read("sub/inside"), "text");
    fs::create_symlink("../outside.txt", folder.path() / "project/out");
    fs::create_directory_symlink("../outside", folder.path() / "project/outfolder");
    fs::create_symlink(folder.path() / "outside.txt", folder.path() / "project/absolute");
    for(const char* file: {"out", "outfolder/file.txt", "absolute"})
        EXPECT_THAT(read(file), HasSubstr("leads out of the folder")) << file;
    // A neighbour whose name only begins like that of the folder.
    folder.write("project-2/x.txt", "secret");
    fs::create_symlink("../project-2/x.txt", folder.path() / "project/neighbour");
    EXPECT_THAT(read("neighbour"), HasSubstr("leads out of the folder"));
}

TEST_F(ResourceManagerTest, theFolderCanBeALink) {
    fs::create_directory_symlink("project", folder.path() / "link");
    manager.setProjectFolder(folder.path() / "link");
    EXPECT_EQ(read("sub/b.txt"), (std::string{"b\0c", 3}));
}

TEST_F(ResourceManagerTest, theSizeIsChecked) {
    EXPECT_EQ(read("a.txt", {}, 4), "text");
    EXPECT_THAT(read("a.txt", {}, 3), HasSubstr("4 bytes, more than 3"));
}

TEST_F(ResourceManagerTest, assets) {
    struct Constant: Resource {
        std::optional<Containers::Array<char>> get(
            Containers::StringView file, std::size_t, std::string& reason) const override {
            if(file == "x") return std::optional<Containers::Array<char>>{Containers::Array<char>{InPlaceInit, {'!'}}};
            reason = "not here";
            return {};
        }
    };
    EXPECT_THAT(read("x", "other"), HasSubstr("there is no asset \"other\""));
    EXPECT_EQ(manager.resolveLink({"other", "x"}), nullptr);
    manager.addAsset("other", std::make_unique<Constant>());
    EXPECT_EQ(read("x", "other"), "!");
    EXPECT_EQ(read("y", "other"), "(not here)");
    EXPECT_NE(manager.resolveLink({"other", "x"}), manager.resolveLink({"", "x"}));
}

TEST_F(ResourceManagerTest, withoutAFolder) {
    std::string reason;
    EXPECT_FALSE(ResourceManager{}.read({"", "a.txt"}, NoLimit, reason));
    EXPECT_EQ(reason, "the project has no folder");
    manager.setProjectFolder(folder.path() / "nowhere");
    EXPECT_THAT(read("a.txt"), HasSubstr("cannot be found"));
}

}
