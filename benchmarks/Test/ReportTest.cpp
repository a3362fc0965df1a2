#include "Report.h"

#include <cmath>

#include <gtest/gtest.h>

#include "Comparison.h"

namespace {

using namespace VantrelBench;

TEST(ReportTest, timesCanBeComparedBetweenPrograms) {
    const std::string line = timeLine("open", "tree_cold_1000", 0.0125);
    EXPECT_EQ(line, R"({"verb":"open","case":"tree_cold_1000","figure_ns":1.25e+07})");
    EXPECT_EQ(figuresOf(line).at("tree_cold_1000"), 1.25e7);
}

TEST(ReportTest, limitsAreJudged) {
    EXPECT_EQ(limitLine("open", "tree", "exponent", 1.1, 1.15),
        R"({"verb":"open","case":"tree","exponent":1.1,"limit":1.15,"holds":true})");
    EXPECT_EQ(limitLine("open", "tree", "exponent", 1.2, 1.15),
        R"({"verb":"open","case":"tree","exponent":1.2,"limit":1.15,"holds":false})");
    // What could not be measured holds nothing.
    EXPECT_NE(limitLine("open", "tree", "exponent", std::nan(""), 1.15).find("\"holds\":false"), std::string::npos);
}

TEST(ReportTest, exactNumbersAreJudged) {
    EXPECT_EQ(exactLine("undo", "tree", "objects", 100, 100),
        R"({"verb":"undo","case":"tree","objects":100,"wanted":100,"holds":true})");
    EXPECT_EQ(exactLine("undo", "tree", "objects", 99, 100),
        R"({"verb":"undo","case":"tree","objects":99,"wanted":100,"holds":false})");
}

}
