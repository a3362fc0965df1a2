#include <gtest/gtest.h>

#include "Panels/Log.h"

namespace VantrelEngine {

namespace {

TEST(LogTest, KeepsTheLastLines) {
    Log log;
    for(std::size_t i = 0; i != Log::MaxLogLines + 5; ++i) log.add(Severity::Warning, std::to_string(i));
    ASSERT_EQ(log.lines().size(), Log::MaxLogLines);
    EXPECT_EQ(log.lines().front().text, "5");
    EXPECT_EQ(log.lines().back().text, std::to_string(Log::MaxLogLines + 4));
    log.clear();
    EXPECT_TRUE(log.lines().empty());
}

} // namespace

} // namespace VantrelEngine
