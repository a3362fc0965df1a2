#include "VantrelHost/FileFingerprint.h"

#include <set>

#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;

std::string text(std::size_t size) {
    std::string text;
    while(text.size() < size) text += char(text.size() * 7 + 1);
    return text;
}

TEST(FileFingerprintTest, everyBitAndTheLengthCount) {
    for(std::size_t size = 0; size != 40; ++size) {
        std::set<std::uint64_t> checksums{checksum(text(size))};
        for(std::size_t bit = 0; bit != size * 8; ++bit) {
            std::string other = text(size);
            other[bit / 8] ^= char(1 << bit % 8);
            checksums.insert(checksum(other));
        }
        EXPECT_EQ(checksums.size(), size * 8 + 1);
        EXPECT_NE(checksum(text(size)), checksum(text(size) + '\0'));
        EXPECT_NE(checksum(text(size)), checksum(text(size), 1)) << "what stands before counts, too";
    }
}

TEST(FileFingerprintTest, aFileHasThatOfItsContents) {
    const VantrelTest::TestFolder folder;
    for(const std::size_t size: {0, 5, 65535, 65536, 65537, 200000}) {
        folder.write("file", text(size));
        const std::optional<FileFingerprint> fingerprint = fingerprintOfFile(folder.path("file"));
        ASSERT_TRUE(fingerprint) << size;
        EXPECT_EQ(fingerprint->size, size);
        EXPECT_EQ(*fingerprint, fingerprintOf(text(size))) << size;
        EXPECT_NE(*fingerprint, fingerprintOf(text(size) + "x")) << size;
    }
    EXPECT_FALSE(fingerprintOfFile(folder.path("missing")));
    EXPECT_FALSE(fingerprintOfFile(folder.path().string())) << "a folder";
}

} // namespace
