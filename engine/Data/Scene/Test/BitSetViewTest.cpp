#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Vantrel/EngineData/BitSetView.h>

namespace {

using testing::HasSubstr;
using testing::KilledBySignal;
using VantrelEngine::BitSetView;

TEST(BitSetViewTest, aDefaultOneIsEmpty) {
    BitSetView bits;
    EXPECT_EQ(bits.size(), 0u);
    EXPECT_EQ(bits.countSet(), 0u);
    EXPECT_EQ(bits.findFirstSet(), 0u);
    EXPECT_FALSE(bits.isSet(0));
    bits.clear();
}

TEST(BitSetViewTest, writesIntoTheWords) {
    Magnum::UnsignedLong words[2]{};
    BitSetView bits{words, 70};
    bits.set(0);
    bits.set(63);
    bits.set(64);
    EXPECT_EQ(words[0], 0x8000000000000001ull);
    EXPECT_EQ(words[1], 1u);
    bits.set(63, false);
    EXPECT_EQ(words[0], 1u);
    bits.clear();
    EXPECT_EQ(words[0] | words[1], 0u);
}

TEST(BitSetViewTest, theLastBitOfEverySizeIsFound) {
    for(std::size_t size: {1, 2, 63, 64, 65, 127, 128, 129, 65535}) {
        std::vector<Magnum::UnsignedLong> words(BitSetView::wordCount(size));
        BitSetView bits{{words.data(), words.size()}, size};
        EXPECT_EQ(bits.findFirstSet(), size);
        bits.set(size - 1);
        EXPECT_EQ(bits.findFirstSet(), size - 1);
        EXPECT_EQ(bits.findFirstSet(size - 1), size - 1);
        EXPECT_EQ(bits.findFirstSet(size), size);
        EXPECT_EQ(bits.findFirstSet(size + 1000), size);
        EXPECT_EQ(bits.countSet(), 1u);
        EXPECT_FALSE(bits.isSet(size));
    }
}

TEST(BitSetViewTest, agreesWithASet) {
    std::mt19937 random{1};
    Magnum::UnsignedLong words[5]{};
    BitSetView bits{words, 300};
    std::set<std::size_t> expected;
    for(int step = 0; step != 5000; ++step) {
        const std::size_t i = random() % 300;
        const bool value = random() % 3 == 0;
        bits.set(i, value);
        if(value)
            expected.insert(i);
        else
            expected.erase(i);
        const std::size_t from = random() % 310;
        const auto found = expected.lower_bound(from);
        ASSERT_EQ(bits.findFirstSet(from), found == expected.end() ? 300u : *found);
        ASSERT_EQ(bits.countSet(), expected.size());
        ASSERT_EQ(bits.isSet(from), expected.count(from) != 0);
    }
}

TEST(BitSetViewDeathTest, abortsOutOfRange) {
    Magnum::UnsignedLong words[1]{};
    EXPECT_EXIT((BitSetView{words, 10}.set(10)), KilledBySignal(SIGABRT),
        HasSubstr("BitSetView::set(): bit 10 out of range for 10 bits"));
    EXPECT_EXIT(
        (BitSetView{words, 65}), KilledBySignal(SIGABRT), HasSubstr("BitSetView: 1 words are too few for 65 bits"));
}

}
