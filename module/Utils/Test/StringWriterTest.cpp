#include "Utils/StringWriter.h"

#include <cstring>
#include <limits>
#include <utility>

#include <Corrade/Containers/StringStl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Corrade;
using testing::Eq;
using testing::KilledBySignal;
using VantrelEngine::StringWriter;

void expectText(const StringWriter& writer, const std::string& expected) {
    EXPECT_EQ(std::string(writer.text()), expected);
    EXPECT_EQ(writer.size(), expected.size());
    EXPECT_EQ(writer.text().data()[writer.size()], '\0');
    EXPECT_TRUE(writer.text().flags() >= Containers::StringViewFlag::NullTerminated);
}

TEST(StringWriterTest, startsEmptyAndTerminated) {
    const StringWriter none;
    expectText(none, "");
    EXPECT_EQ(none.capacity(), 0);

    const StringWriter some{128};
    expectText(some, "");
    EXPECT_EQ(some.capacity(), 128);
    EXPECT_EQ(some.available(), 128);
}

TEST(StringWriterTest, appendsFormattedText) {
    StringWriter writer{128};
    writer.format("highp float WEIGHTS[{}] = float[] (", 3)
        .format("{:.10}, ", 70.0 / 238.0)
        .format("{:.10}, ", 56.0 / 238.0)
        .format("{:.10});\n", 28.0 / 238.0);
    expectText(writer, "highp float WEIGHTS[3] = float[] (0.2941176471, 0.2352941176, 0.1176470588);\n");
    EXPECT_EQ(writer.capacity(), 128);
}

TEST(StringWriterTest, appendsRawBytesUnchanged) {
    StringWriter writer;
    writer.append({"{} %s", 5}).append({nullptr, 0}).append({"\0\xff", 2});
    expectText(writer, std::string{"{} %s\0\xff", 7});
}

TEST(StringWriterTest, anEmptyAppendToNothingIsTerminated) {
    StringWriter writer;
    writer.append({nullptr, 0});
    expectText(writer, "");
    EXPECT_EQ(writer.capacity(), 1);
}

struct {
    const char* name;
    std::size_t capacity, size, bytes, expected;
} const ReserveData[]{
    {"fits exactly, with the NUL", 16, 10, 5, 16},
    {"one short: one and a half times", 16, 10, 6, 24},
    {"needs more than one and a half times", 16, 10, 40, 51},
    {"needs exactly one and a half times", 16, 10, 13, 24},
    {"one and a half is truncated", 5, 4, 1, 7},
    {"nothing stored yet", 0, 0, 7, 8},
    {"nothing asked for, nothing there", 0, 0, 0, 1},
};

TEST(StringWriterTest, reserve) {
    for(const auto& data: ReserveData) {
        SCOPED_TRACE(data.name);
        StringWriter writer{data.capacity};
        const std::string text(data.size, 'x');
        if(data.size) writer.append({text.data(), text.size()});
        ASSERT_EQ(writer.capacity(), data.capacity);
        writer.reserve(data.bytes);
        EXPECT_EQ(writer.capacity(), data.expected);
        expectText(writer, text);
    }
}

TEST(StringWriterTest, growthIsComputedInSinglePrecision) {
    // 2^24 + 1 is no float: it rounds to 2^24, half as much again is 25165824 (and not 25165825).
    StringWriter writer{(std::size_t{1} << 24) + 1};
    writer.reserve(std::size_t{1} << 24 | 1);
    EXPECT_EQ(writer.capacity(), 25165824);
}

TEST(StringWriterTest, growsWhileAppending) {
    StringWriter writer;
    std::string expected;
    for(int i = 0; i != 1000; ++i) {
        writer.format("{},", i);
        expected += std::to_string(i) + ",";
    }
    expectText(writer, expected);
}

struct Released {
    char* data = nullptr;
    std::size_t capacity = 0;
    int count = 0;
} released;

void recordRelease(char* data, std::size_t capacity) { released = {data, capacity, released.count + 1}; }

TEST(StringWriterTest, handedOverStorageIsReleasedThroughItsDeleterWhenOutgrown) {
    released = {};
    char storage[8];
    {
        StringWriter writer{storage, sizeof(storage), recordRelease};
        writer.format("{}", "seven77");
        EXPECT_EQ(writer.text().data(), storage);
        EXPECT_EQ(released.count, 0);
        writer.format("8");
        EXPECT_EQ(released.count, 1);
        EXPECT_EQ(released.data, storage);
        EXPECT_EQ(released.capacity, 8);
        expectText(writer, "seven778");
    }
    // The storage it grew into is not the deleter's.
    EXPECT_EQ(released.count, 1);
}

TEST(StringWriterTest, handedOverStorageIsReleasedAtTheEnd) {
    released = {};
    char storage[8];
    { const StringWriter writer{storage, sizeof(storage), recordRelease}; }
    EXPECT_EQ(released.count, 1);
    // Without a deleter it is an array from the heap (the address sanitizer watches).
    const StringWriter writer{new char[4], 4, nullptr};
    expectText(writer, "");
}

TEST(StringWriterTest, moves) {
    released = {};
    char storage[8];
    StringWriter a{storage, sizeof(storage), recordRelease};
    a.format("a");
    StringWriter b{std::move(a)};
    expectText(b, "a");
    expectText(a, "");
    EXPECT_EQ(released.count, 0);
    StringWriter c;
    c = std::move(b);
    expectText(c, "a");
    c = StringWriter{};
    EXPECT_EQ(released.count, 1);
}

TEST(StringWriterDeathTest, aSizeBeyondTheAddressSpaceAborts) {
    StringWriter writer{16};
    writer.format("text");
    EXPECT_EXIT(writer.append({"", std::numeric_limits<std::size_t>::max()}), KilledBySignal(SIGABRT),
        Eq("Assertion available() > bytes failed at Utils/StringWriter:83\n"));
}

}
