#include "Data/JournalLines.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace VantrelEngine;

const std::vector<std::string> Lines{"{\"journal\":1}", "", "a", "a", std::string("zero\0inside", 11), "\xff\xfe",
    std::string(300, 'x'), "the last one"};

std::string journal() {
    std::string text;
    std::uint64_t checksum = 0;
    for(const std::string& line: Lines) addJournalLine(text, line, checksum);
    return text;
}

// How many of the lines are read; none of them may be another one than was written.
std::size_t countOf(const std::string& text) {
    const std::vector<JournalLine> read = readJournalLines(text);
    EXPECT_LE(read.size(), Lines.size());
    for(std::size_t i = 0; i != std::min(read.size(), Lines.size()); ++i) EXPECT_EQ(read[i].text, Lines[i]);
    return read.size();
}

std::size_t wholeLines(const std::string& text) { return std::size_t(std::count(text.begin(), text.end(), '\n')); }

TEST(JournalLinesTest, whatIsWrittenIsRead) {
    const std::string text = journal();
    EXPECT_EQ(countOf(text), Lines.size());
    EXPECT_EQ(readJournalLines(text).back().size, text.size());
    EXPECT_EQ(readJournalLines(text)[1].text, "");
    EXPECT_THAT(text, testing::MatchesRegex("[0-9a-f]{16} \\{\"journal\":1\\}\n(.|\n)*"));
    EXPECT_TRUE(readJournalLines("").empty());
}

TEST(JournalLinesTest, ofATextThatIsCutOffTheWholeLinesCount) {
    const std::string text = journal();
    for(std::size_t size = 0; size != text.size(); ++size)
        ASSERT_EQ(countOf(text.substr(0, size)), wholeLines(text.substr(0, size))) << size;
}

TEST(JournalLinesTest, ofADamagedTextTheLinesBeforeTheDamageCount) {
    const std::string text = journal();
    for(std::size_t i = 0; i != text.size(); ++i)
        for(int bit = 0; bit != 8; ++bit) {
            std::string damaged = text;
            damaged[i] ^= char(1 << bit);
            ASSERT_EQ(countOf(damaged), wholeLines(text.substr(0, i))) << i << ' ' << bit;
        }
}

TEST(JournalLinesTest, aLineThatIsMissingOrComesTwiceEndsIt) {
    const std::string text = journal();
    std::vector<std::size_t> starts{0};
    for(const JournalLine& line: readJournalLines(text)) starts.push_back(line.size);
    for(std::size_t i = 1; i + 1 != Lines.size(); ++i) {
        EXPECT_EQ(countOf(text.substr(0, starts[i]) + text.substr(starts[i + 1])), i);
        EXPECT_EQ(countOf(text.substr(0, starts[i + 1]) + text.substr(starts[i])), i + 1);
    }
}

} // namespace
