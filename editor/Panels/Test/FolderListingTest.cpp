#include "Panels/FolderListing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using VantrelTest::TestFolder;

TEST(FolderListingTest, FoldersAndFilesOfTheSuffixInOrder) {
    const TestFolder folder;
    for(const char* const file: {"b.json", "a.json", "picture.png", ".hidden.json", "json", "z/in.json", "c/in.json",
            ".git/in.json", "folder.json/in.json"})
        folder.write(file, "{}");
    std::filesystem::create_symlink(folder.path("nowhere"), folder.path("broken.json"));
    const FolderListing listing = listFolder(folder.path().string(), {".json"});
    EXPECT_EQ(listing.error, "");
    EXPECT_THAT(listing.folders, ElementsAre("c", "folder.json", "z"));
    EXPECT_THAT(listing.files, ElementsAre("a.json", "b.json"));
}

TEST(FolderListingTest, SeveralSuffixesInAnyCase) {
    const TestFolder folder;
    for(const char* const file: {"a.GLB", "b.glb.txt", "c.Obj", "glb", ".glb", "d.png"}) folder.write(file, "");
    EXPECT_THAT(listFolder(folder.path().string(), {".glb", ".obj"}).files, ElementsAre("a.GLB", "c.Obj"));
}

TEST(FolderListingTest, AFolderThatIsNotThereGivesTheReason) {
    const FolderListing listing = listFolder(TestFolder{}.path("missing"), {".json"});
    EXPECT_EQ(listing.error, "No such file or directory");
    EXPECT_THAT(listing.folders, IsEmpty());
    EXPECT_THAT(listing.files, IsEmpty());
}

} // namespace

} // namespace VantrelEngine
