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

TEST(MeasureTest, medianOfAsManyRunsAsAreAskedFor) {
    double next = 0.0;
    EXPECT_EQ(medianSeconds([&] { return next += 1.0; }, {0.0, 0.0, 5}), 3.0);
    EXPECT_EQ(next, 5.0);
    next = 0.0;
    // A budget of time goes on beyond that.
    medianSeconds([&] { return next += 1.0; }, {0.01, 0.0, 1});
    EXPECT_GT(next, 1.0);
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

TEST(MeasureTest, workMayTimeItself) {
    double figure = 3.0;
    const Result result = measureTimedPairs(
        "verb", "case", [&] { return figure++; }, [] { return 2.0; }, {0.0, 0.0, 3});
    EXPECT_EQ(result.pairs, 3);
    EXPECT_EQ(result.figure, 4e9);
    EXPECT_EQ(result.floor, 2e9);
    EXPECT_EQ(result.ratio, 2.0);
}

TEST(MeasureTest, theLineThroughPointsIsTheBestOne) {
    const Line line = lineThrough({1, 2, 5}, {5, 7, 13});
    EXPECT_NEAR(line.start, 3.0, 1e-12);
    EXPECT_NEAR(line.slope, 2.0, 1e-12);
    // Two points above each other are met in their middle.
    const Line between = lineThrough({0, 1, 1}, {1, 2, 4});
    EXPECT_NEAR(between.start, 1.0, 1e-12);
    EXPECT_NEAR(between.slope, 2.0, 1e-12);
}

TEST(MeasureTest, theExponentIsThatOfThePowerLaw) {
    EXPECT_NEAR(exponentOf({10, 100, 1000}, {0.3, 3.0, 30.0}), 1.0, 1e-12);
    EXPECT_NEAR(exponentOf({10, 100, 1000}, {7.0, 7.0, 7.0}), 0.0, 1e-12);
    EXPECT_NEAR(exponentOf({2, 3, 5, 50}, {4.0, 9.0, 25.0, 2500.0}), 2.0, 1e-12);
    // The line through the logarithms 0, 1, 2 that lies closest to 0, 1, 1 rises by one half.
    EXPECT_NEAR(exponentOf({1, 10, 100}, {1.0, 10.0, 10.0}), 0.5, 1e-12);
}

TEST(MeasureTest, growthIsTheMedianOfRoundsOverAllSizes) {
    std::vector<std::size_t> order;
    int round = 0;
    const Growth growth = measureGrowth({10, 100},
        [&](std::size_t size) {
            order.push_back(size);
            // One round is disturbed.
            return round++ / 2 == 1 ? 1000.0 : double(size * size);
        },
        {0.0, 0.0, 3});
    EXPECT_EQ(order, (std::vector<std::size_t>{10, 100, 10, 100, 10, 100}));
    EXPECT_EQ(growth.sizes, (std::vector<double>{10.0, 100.0}));
    EXPECT_EQ(growth.seconds, (std::vector<double>{100.0, 10000.0}));
    EXPECT_NEAR(growth.exponent, 2.0, 1e-12);
}

}
