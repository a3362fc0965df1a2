#include "Renderer/Environment/BakeFile.h"

#include <chrono>
#include <filesystem>

#include <gmock/gmock.h>

#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::TestFolder;
namespace fs = std::filesystem;

EnvironmentBake example(std::uint16_t first = 1) {
    EnvironmentBake bake(BakeLength);
    for(std::size_t i = 0; i != bake.size(); ++i) bake[i] = std::uint16_t(first + i * 7);
    return bake;
}

struct BakeFileTest: testing::Test {
    const TestFolder root;
    const std::string folder = root.path("a/b");

    std::vector<fs::path> files() const {
        std::vector<fs::path> result;
        for(const auto& entry: fs::directory_iterator{folder}) result.push_back(entry.path());
        return result;
    }
};

TEST_F(BakeFileTest, isReadAsItWasWritten) {
    EXPECT_FALSE(readBake(folder, 5));
    EXPECT_EQ(writeBake(folder, 5, example()), "");
    EXPECT_EQ(writeBake(folder, 6, example(2)), "");
    EXPECT_EQ(readBake(folder, 5), example());
    EXPECT_EQ(readBake(folder, 6), example(2));
    EXPECT_EQ(writeBake(folder, 5, example(3)), "");
    EXPECT_EQ(readBake(folder, 5), example(3));
    EXPECT_FALSE(readBake(folder, 7));
    EXPECT_EQ(files().size(), 2u);
}

TEST_F(BakeFileTest, damagedOnesAreNone) {
    writeBake(folder, 5, example());
    const fs::path file = files().at(0);
    const std::string whole = VantrelTest::readFile(file);
    for(const std::size_t place: {std::size_t{0}, std::size_t{8}, std::size_t{16}, std::size_t{24}, std::size_t{32},
            std::size_t{1000}, whole.size() - 1}) {
        std::string damaged = whole;
        damaged[place] = char(damaged[place] ^ 4);
        VantrelTest::writeFile(file, damaged);
        EXPECT_FALSE(readBake(folder, 5)) << place;
    }
    for(const std::size_t size: {std::size_t{0}, std::size_t{20}, std::size_t{32}, whole.size() - 1}) {
        VantrelTest::writeFile(file, whole.substr(0, size));
        EXPECT_FALSE(readBake(folder, 5)) << size;
    }
    VantrelTest::writeFile(file, whole + "x");
    EXPECT_FALSE(readBake(folder, 5));
    std::string swapped = whole;
    std::swap_ranges(swapped.begin() + 100, swapped.begin() + 120, swapped.begin() + 1000);
    VantrelTest::writeFile(file, swapped);
    EXPECT_FALSE(readBake(folder, 5));
    VantrelTest::writeFile(file, whole);
    EXPECT_TRUE(readBake(folder, 5));
}

TEST_F(BakeFileTest, theOneThatWasNotUsedForTheLongestTimeGoes) {
    for(std::size_t i = 0; i != MaximumBakeFiles; ++i) writeBake(folder, i, example());
    root.write("a/b/notes.txt", "not ours");
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours{24};
    for(const fs::path& file: files()) fs::last_write_time(file, longAgo);
    constexpr std::size_t Forgotten = MaximumBakeFiles / 2;
    for(std::size_t i = 0; i != MaximumBakeFiles; ++i) EXPECT_TRUE(i == Forgotten || readBake(folder, i)) << i;
    writeBake(folder, 1000, example());
    EXPECT_FALSE(readBake(folder, Forgotten));
    EXPECT_TRUE(readBake(folder, 1000));
    EXPECT_EQ(files().size(), MaximumBakeFiles + 1);
    EXPECT_EQ(VantrelTest::readFile(root.path("a/b/notes.txt")), "not ours");
}

TEST_F(BakeFileTest, aFolderThatCannotBeMadeHasAReason) {
    root.write("a/b", "a file");
    EXPECT_NE(writeBake(folder, 5, example()), "");
    EXPECT_FALSE(readBake(folder, 5));
    EXPECT_EQ(VantrelTest::readFile(root.path("a/b")), "a file");
}

} // namespace
