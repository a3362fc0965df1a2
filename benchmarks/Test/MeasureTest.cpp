#include "Measure.h"

#include <chrono>

#include <gtest/gtest.h>

namespace {

using namespace VantrelBench;

TEST(MeasureTest, medianIsTheLowerMiddle) {
    EXPECT_EQ(median({3.0}), 3.0);
    EXPECT_EQ(median({9.0, 1.0, 5.0}), 5.0);
    EXPECT_EQ(median({4.0, 1.0, 3.0, 2.0}), 2.0);
}

TEST(MeasureTest, writesOneLineOfJson) {
    EXPECT_EQ(toJson({"math", "a_case", 12.5, 10.0, 1.25, 11}),
        R"({"verb":"math","case":"a_case","figure_ns":12.5,"floor_ns":10,"ratio":1.25,"pairs":11})");
}

// Work whose length is exact: it waits for a count, not for the clock.
void work(int amount) {
    for(volatile int i = 0; i < amount; i = i + 1) {
    }
}

TEST(MeasureTest, theRatioIsThatOfTheWork) {
    const Budget budget{0.2, 1e-4, 11};
    const Result result = measurePairs(
        "verb", "case", [] { work(20000); }, [] { work(2000); }, budget);
    EXPECT_GE(result.pairs, 11);
    // Ten times the work, on a machine that may be busy: only the order of magnitude is asked.
    EXPECT_GT(result.ratio, 3.0);
    EXPECT_GT(result.figure, result.floor);
}

TEST(MeasureTest, runsTheMinimumOfPairsWhateverTheBudget) {
    int figures = 0, floors = 0;
    const Result result = measurePairs(
        "verb", "case", [&] { ++figures; }, [&] { ++floors; }, {0.0, 0.0, 7});
    EXPECT_EQ(result.pairs, 7);
    // One run to calibrate, then one a sample.
    EXPECT_EQ(figures, 8);
    EXPECT_EQ(floors, 8);
}

}
