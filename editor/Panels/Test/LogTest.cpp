#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Panels/LogFilter.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;

TEST(LogTest, KeepsTheLastLines) {
    Log log;
    for(std::size_t i = 0; i != Log::MaxLogLines + 5; ++i) log.add(Severity::Warning, std::to_string(i));
    ASSERT_EQ(log.lines().size(), Log::MaxLogLines);
    EXPECT_EQ(log.lines().front().text, "5");
    EXPECT_EQ(log.lines().back().text, std::to_string(Log::MaxLogLines + 4));
    EXPECT_EQ(log.count(Severity::Warning), Log::MaxLogLines);
    EXPECT_EQ(log.firstNumber(), 5u);
    EXPECT_EQ(log.line(7).text, "7");
    log.clear();
    EXPECT_TRUE(log.lines().empty());
    EXPECT_EQ(log.count(Severity::Warning), 0u);
    log.add(Severity::Error, "next");
    EXPECT_EQ(log.line(Log::MaxLogLines + 5).text, "next");
}

TEST(LogTest, OfDebugLinesTheUserIsNotTold) {
    Log log;
    EXPECT_EQ(log.message().text, "");
    log.add(Severity::Warning, "a");
    log.add(Severity::Debug, "b");
    EXPECT_EQ(log.message().text, "a");
    EXPECT_EQ(log.message().severity, Severity::Warning);
    EXPECT_EQ(log.lines().back().text, "b");
    log.clear();
    EXPECT_EQ(log.message().text, "");
}

TEST(LogFilterTest, ShowsWhatIsChosen) {
    Log log;
    LogFilter filter;
    LogChoice choice;
    const auto shown = [&] {
        filter.update(log, choice);
        std::vector<std::string> texts;
        for(const std::uint64_t number: filter.lines()) texts.push_back(log.line(number).text);
        return texts;
    };
    log.add(Severity::Information, "Opened a");
    log.add(Severity::Error, "Cannot open b");
    EXPECT_THAT(shown(), ElementsAre("Opened a", "Cannot open b"));
    log.add(Severity::Warning, "b is odd");
    EXPECT_THAT(shown(), ElementsAre("Opened a", "Cannot open b", "b is odd"));
    choice.isShown[std::size_t(Severity::Error)] = false;
    EXPECT_THAT(shown(), ElementsAre("Opened a", "b is odd"));
    choice.isShown = {true, true, true};
    choice.text = "OPEN";
    EXPECT_THAT(shown(), ElementsAre("Opened a", "Cannot open b"));
    log.clear();
    log.add(Severity::Error, "Reopened");
    EXPECT_THAT(shown(), ElementsAre("Reopened"));
    choice.text.clear();
    for(std::size_t i = 0; i != Log::MaxLogLines; ++i) log.add(Severity::Warning, "line");
    EXPECT_EQ(shown().size(), Log::MaxLogLines) << "what the log dropped is gone";
    EXPECT_EQ(filter.lines().front(), log.firstNumber());
}

} // namespace

} // namespace VantrelEngine
