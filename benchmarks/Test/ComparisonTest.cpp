#include "Comparison.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Measure.h"

namespace {

using namespace VantrelBench;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(ComparisonTest, readsWhatARunPrints) {
    EXPECT_THAT(figuresOf(toJson({"math", "a", 12.5, 10.0, 1.25, 11}) + "\nnoise\n" +
                    toJson({"math", "b", 3e9, 1.0, 2.0, 11}) + "\n"),
        ElementsAre(Pair("a", 12.5), Pair("b", 3e9)));
    EXPECT_THAT(figuresOf(""), IsEmpty());
}

TEST(ComparisonTest, comparesRunByRun) {
    // The machine is twice as slow during the second pair: the ratio does not care.
    const auto comparisons = compare(
        {{{"a", 10.0}, {"ours", 1.0}}, {{"a", 20.0}}, {{"a", 11.0}}}, {{{"a", 5.0}}, {{"a", 10.0}}, {{"a", 10.0}}});
    ASSERT_EQ(comparisons.size(), 1);
    EXPECT_EQ(comparisons[0].name, "a");
    EXPECT_EQ(comparisons[0].figure, 11.0);
    EXPECT_EQ(comparisons[0].other, 10.0);
    EXPECT_EQ(comparisons[0].ratio, 2.0);
}

TEST(ComparisonTest, withoutPairsThereIsNothingToCompare) {
    EXPECT_THAT(compare({}, {}), IsEmpty());
    EXPECT_THAT(compare({{{"a", 1.0}}}, {}), IsEmpty());
}

}
