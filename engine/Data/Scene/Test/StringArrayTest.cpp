#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Vantrel/EngineData/StringArray.h>

namespace {

using namespace Corrade::Containers::Literals;
using Corrade::Containers::StringView;
using Corrade::Containers::StringViewFlag;
using testing::HasSubstr;
using testing::KilledBySignal;
using VantrelEngine::StringArray;

std::string str(StringView view) { return {view.data(), view.size()}; }

TEST(StringArrayTest, textsAreEmptyUntilTheyAreSet) {
    StringArray texts;
    EXPECT_EQ(texts.size(), 0u);
    EXPECT_EQ(texts.capacity(), 0u);
    EXPECT_EQ(texts.unusedCapacity(), 0u);
    texts.setSize(3);
    EXPECT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[2], "");
    EXPECT_TRUE(texts[2].flags() >= StringViewFlag::NullTerminated);
    EXPECT_EQ(texts.capacity(), 0u);
}

TEST(StringArrayTest, aTextIsTerminatedAndNeighboursStay) {
    StringArray texts;
    texts.setSize(3);
    texts.set(0, "camera");
    texts.set(1, "light");
    texts.set(2, "a mesh");
    texts.set(1, "a much longer light");
    texts.set(0, "cam");
    EXPECT_EQ(texts[0], "cam");
    EXPECT_EQ(texts[1], "a much longer light");
    EXPECT_EQ(texts[2], "a mesh");
    for(std::size_t i = 0; i != 3; ++i) {
        EXPECT_TRUE(texts[i].flags() >= StringViewFlag::NullTerminated);
        EXPECT_EQ(texts[i].data()[texts[i].size()], '\0');
    }
    texts.set(1, "");
    EXPECT_EQ(texts[1], "");
    EXPECT_EQ(texts[2], "a mesh");
}

TEST(StringArrayTest, bytesWithZeroInThemAreKept) {
    StringArray texts;
    texts.setSize(1);
    texts.set(0, "a\0b"_s);
    EXPECT_EQ(texts[0], "a\0b"_s);
}

TEST(StringArrayTest, capacityIsWhatWasAskedForAndGrowsByWhatIsMissing) {
    StringArray texts;
    texts.reserve(2, 20);
    EXPECT_EQ(texts.countCapacity(), 2u);
    EXPECT_EQ(texts.capacity(), 20u);
    EXPECT_EQ(texts.unusedCapacity(), 20u);
    EXPECT_EQ(texts.size(), 0u);
    texts.reserve(1, 10);
    EXPECT_EQ(texts.countCapacity(), 2u);
    EXPECT_EQ(texts.capacity(), 20u);

    texts.setSize(2);
    texts.set(0, "123456789");
    EXPECT_EQ(texts.unusedCapacity(), 10u);
    texts.set(1, "123456789");
    EXPECT_EQ(texts.unusedCapacity(), 0u);
    EXPECT_EQ(texts.capacity(), 20u);
    texts.set(0, "1234");
    EXPECT_EQ(texts.unusedCapacity(), 5u);
    // In place of the old one, though the memory is full.
    texts.set(0, "123456789");
    EXPECT_EQ(texts.capacity(), 20u);
    texts.set(0, "123456789012");
    EXPECT_EQ(texts.capacity(), 23u);
    EXPECT_EQ(texts.unusedCapacity(), 0u);
    texts.set(0, "");
    EXPECT_EQ(texts.unusedCapacity(), 13u);
    texts.setSize(1);
    EXPECT_EQ(texts.unusedCapacity(), 23u);
    EXPECT_EQ(texts.countCapacity(), 2u);
    texts.setSize(5);
    EXPECT_EQ(texts.countCapacity(), 5u);
}

TEST(StringArrayTest, aTextMayComeFromTheArrayItself) {
    for(std::size_t reserved: {0, 1000}) {
        StringArray texts;
        texts.reserve(3, reserved);
        texts.setSize(3);
        texts.set(0, "the first of them");
        for(int i = 0; i != 20; ++i) {
            texts.set(1, texts[0]);
            texts.set(2, "");
            texts.set(2, texts[1].exceptPrefix(4));
        }
        texts.set(0, texts[0].exceptPrefix(4));
        EXPECT_EQ(texts[0], "first of them");
        EXPECT_EQ(texts[1], "the first of them");
        EXPECT_EQ(texts[2], "first of them");
    }
}

TEST(StringArrayTest, settingOneDoesNotMoveTheOthers) {
    // Amortised: of many sets of one text, few may find the others elsewhere.
    constexpr std::size_t count = 5000;
    StringArray texts;
    texts.setSize(count);
    for(std::size_t i = 0; i != count; ++i) texts.set(i, "an ordinary name");
    int moves = 0;
    const char* before = texts[0].data();
    for(int i = 0; i != 100000; ++i) {
        texts.set(1 + i % (count - 1), i & 1 ? "a name that is a little longer" : "short");
        if(texts[0].data() != before) ++moves;
        before = texts[0].data();
    }
    EXPECT_LE(moves, 40);
}

TEST(StringArrayTest, askingForOneMoreAgainAndAgainDoesNotMoveEverything) {
    StringArray texts;
    int moves = 0;
    for(std::size_t i = 0; i != 20000; ++i) {
        const char* before = i ? texts[0].data() : nullptr;
        texts.reserve(i + 1, texts.capacity() + 5);
        texts.setSize(i + 1);
        texts.set(i, "text");
        if(texts[0].data() != before) ++moves;
        ASSERT_EQ(texts.capacity(), (i + 1) * 5);
        ASSERT_EQ(texts.unusedCapacity(), 0u);
    }
    EXPECT_LE(moves, 40);
}

TEST(StringArrayTest, agreesWithAListOfStrings) {
    std::mt19937 random{2};
    StringArray texts;
    std::vector<std::string> expected;
    for(int step = 0; step != 20000; ++step) {
        if(expected.empty() || random() % 40 == 0) {
            const std::size_t size = random() % 50;
            expected.resize(size);
            texts.setSize(size);
        } else if(random() % 30 == 0) {
            texts.reserve(random() % 60, random() % 4000);
        } else {
            const std::size_t i = random() % expected.size();
            expected[i] = random() % 5 ? std::string(random() % 60, char('a' + random() % 26))
                                       : expected[random() % expected.size()];
            texts.set(i, {expected[i].data(), expected[i].size()});
        }
        ASSERT_EQ(texts.size(), expected.size());
        std::size_t occupied = 0;
        for(std::size_t i = 0; i != expected.size(); ++i) {
            ASSERT_EQ(str(texts[i]), expected[i]) << step;
            ASSERT_EQ(texts[i].data()[expected[i].size()], '\0');
            occupied += expected[i].empty() ? 0 : expected[i].size() + 1;
        }
        ASSERT_EQ(texts.capacity() - texts.unusedCapacity(), occupied);
    }
}

TEST(StringArrayDeathTest, abortsBeyondTheSize) {
    StringArray texts;
    texts.setSize(2);
    EXPECT_EXIT(texts[2], KilledBySignal(SIGABRT), HasSubstr("StringArray: there is no text 2 among 2"));
    EXPECT_EXIT(
        texts.set(2, "x"), KilledBySignal(SIGABRT), HasSubstr("StringArray::set(): there is no text 2 among 2"));
}

}
