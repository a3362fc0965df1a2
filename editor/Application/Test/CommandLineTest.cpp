#include "Application/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

using namespace Magnum;
using testing::HasSubstr;

struct Outcome {
    std::optional<CommandLine> line;
    int status = -1;
    std::string complaint;
};

Outcome read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "vantrel-editor");
    Outcome outcome;
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    outcome.line = readCommandLine(int(arguments.size()), arguments.data(), outcome.status);
    outcome.complaint = testing::internal::GetCapturedStderr() + testing::internal::GetCapturedStdout();
    return outcome;
}

TEST(CommandLineTest, Defaults) {
    const Outcome outcome = read({});
    ASSERT_TRUE(outcome.line);
    EXPECT_EQ(outcome.line->project, "");
    EXPECT_FALSE(outcome.line->isHeadless);
    EXPECT_EQ(outcome.line->size, (Vector2i{1440, 900}));
}

TEST(CommandLineTest, HeadlessRun) {
    const Outcome outcome = read({"--headless", "a.json", "--frames", "7", "--screenshot", "out.png", "--size",
        "640x480", "--scale", "2", "--script", "s.txt", "--font-size", "1.5", "--module", "m.so"});
    ASSERT_TRUE(outcome.line) << outcome.complaint;
    EXPECT_TRUE(outcome.line->isHeadless);
    EXPECT_EQ(outcome.line->project, "a.json");
    EXPECT_EQ(outcome.line->frameCount, 7);
    EXPECT_EQ(outcome.line->screenshot, "out.png");
    EXPECT_EQ(outcome.line->script, "s.txt");
    EXPECT_EQ(outcome.line->module, "m.so");
    EXPECT_EQ(outcome.line->size, (Vector2i{640, 480}));
    EXPECT_EQ(outcome.line->scale, 2.0f);
    EXPECT_EQ(outcome.line->fontScale, 1.5f);
}

TEST(CommandLineTest, Journals) {
    EXPECT_FALSE(read({"--headless", "a"}).line->keepsJournals);
    EXPECT_FALSE(read({}).line->recover);
    const Outcome outcome = read({"--headless", "a", "--journal", "--recover", "yes"});
    ASSERT_TRUE(outcome.line) << outcome.complaint;
    EXPECT_TRUE(outcome.line->keepsJournals);
    EXPECT_EQ(outcome.line->recover, Recover::BringBack);
    EXPECT_EQ(read({"--recover", "no"}).line->recover, Recover::PutAside);
    EXPECT_EQ(read({"--recover", "ask"}).line->recover, Recover::Ask);
}

TEST(CommandLineTest, Help) {
    const Outcome outcome = read({"--help"});
    EXPECT_FALSE(outcome.line);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.complaint, HasSubstr("--screenshot"));
}

TEST(CommandLineTest, Mistakes) {
    const struct {
        std::vector<const char*> arguments;
        const char* complaint;
    } cases[]{{{"--nonsense"}, "--nonsense"}, {{"a.json", "b.json"}, "b.json"},
        {{"--headless"}, "--headless needs a project or a script"},
        {{"--frames", "3"}, "--frames goes with --headless only"},
        {{"--screenshot", "x"}, "--screenshot goes with --headless only"},
        {{"--headless", "a", "--frames", "0"}, "--frames"}, {{"--headless", "a", "--scale", "100"}, "--scale"},
        {{"--headless", "a", "--size", "8192x8192", "--scale", "1.5"}, "--size times --scale is more than 67108864"},
        {{"--journal"}, "--journal goes with --headless only"}, {{"--recover", "maybe"}, "--recover"},
        {{"--headless", "a", "--recover", "yes"}, "--recover without a window goes with --journal only"},
        {{"--size", "10"}, "\"10\" is no size"}, {{"--font-size", "4"}, "--font-size"}};
    for(const auto& testCase: cases) {
        const Outcome outcome = read(testCase.arguments);
        EXPECT_FALSE(outcome.line) << testCase.complaint;
        EXPECT_EQ(outcome.status, 2) << testCase.complaint;
        EXPECT_THAT(outcome.complaint, HasSubstr(testCase.complaint));
    }
}

TEST(CommandLineTest, TheLargestPicture) {
    EXPECT_TRUE(read({"--headless", "a", "--size", "8192x8192"}).line);
    EXPECT_TRUE(read({"--headless", "a", "--size", "4096x4096", "--scale", "2"}).line);
}

TEST(CommandLineTest, Sizes) {
    EXPECT_EQ(parseSize("1x1"), (Vector2i{1, 1}));
    EXPECT_EQ(parseSize("8192x1"), (Vector2i{8192, 1}));
    for(const char* const text:
        {"", "x", "1", "1x", "x1", "0x1", "1x0", "-1x1", "1x8193", "1x1x1", "1 x 1", "1x1 ", "99999999999x1"})
        EXPECT_FALSE(parseSize(text)) << text;
}

} // namespace

} // namespace VantrelEngine
