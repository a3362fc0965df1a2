#include "Application/ScriptParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ScriptCommand parseOne(const std::string& line) {
    const ParsedScript script = parseScript(line);
    EXPECT_EQ(script.error, "");
    EXPECT_EQ(script.commands.size(), 1);
    return script.commands.size() == 1 ? script.commands[0] : ScriptCommand{};
}

TEST(ScriptParserTest, GoodLines) {
    const struct {
        const char* line;
        ScriptVerb verb;
        std::vector<double> numbers;
        std::vector<std::string> words;
        unsigned modifiers;
    } cases[]{{"wait 10", ScriptVerb::Wait, {10}, {}, 0}, {"mouse 3.5 -4", ScriptVerb::Mouse, {3.5, -4}, {}, 0},
        {"\tmove  1\t2  ", ScriptVerb::Move, {1, 2}, {}, 0}, {"press left", ScriptVerb::Press, {0}, {}, 0},
        {"press middle shift ctrl", ScriptVerb::Press, {2}, {}, 3},
        {"release right alt super", ScriptVerb::Release, {1}, {}, 12},
        {"scroll -2 ctrl", ScriptVerb::Scroll, {-2}, {}, 2}, {"key w", ScriptVerb::Key, {87, 0}, {}, 0},
        {"key w repeat", ScriptVerb::Key, {87, 1}, {}, 0}, {"clipboard", ScriptVerb::Clipboard, {}, {}, 0},
        {"clipboard a  b", ScriptVerb::Clipboard, {}, {"a  b"}, 0},
        {"keyup LeftShift", ScriptVerb::KeyUp, {340}, {}, 0},
        {"type  two  words", ScriptVerb::Type, {}, {"two  words"}, 0},
        {"resize 800 600", ScriptVerb::Resize, {800, 600}, {}, 0}, {"scale 2", ScriptVerb::Scale, {2}, {}, 0},
        {"fontsize 1.5", ScriptVerb::FontSize, {1.5}, {}, 0}, {"focus off", ScriptVerb::Focus, {0}, {}, 0},
        {"select", ScriptVerb::Select, {}, {}, 0}, {"select a b", ScriptVerb::Select, {}, {"a", "b"}, 0},
        {"reload", ScriptVerb::Reload, {}, {}, 0}, {"reload x.so", ScriptVerb::Reload, {}, {"x.so"}, 0},
        {"open my file.json", ScriptVerb::Open, {}, {"my file.json"}, 0}, {"new", ScriptVerb::New, {}, {}, 0},
        {"record /a {\"b\": 1}", ScriptVerb::Edit, {}, {"record /a {\"b\": 1}"}, 0},
        {"undo", ScriptVerb::Undo, {}, {}, 0}, {"wait import", ScriptVerb::WaitForImport, {}, {}, 0},
        {"wait pictures", ScriptVerb::WaitForPictures, {}, {}, 0},
        {"import my file.glb", ScriptVerb::Import, {}, {"my file.glb"}, 0},
        {"drop my file.png 10 20", ScriptVerb::Drop, {10, 20}, {"my file.png"}, 0},
        {"screenshot a.png", ScriptVerb::Screenshot, {}, {"a.png"}, 0},
        {"idimage b.png", ScriptVerb::IdImage, {}, {"b.png"}, 0},
        {"thumbnail mesh esh a b.png", ScriptVerb::Thumbnail, {5}, {"esh", "a b.png"}, 0},
        {"redo", ScriptVerb::Redo, {}, {}, 0},
        {"dump undo  my log.txt", ScriptVerb::Dump, {}, {"undo", "my log.txt"}, 0},
        {"quit", ScriptVerb::Quit, {}, {}, 0}};
    for(const auto& testCase: cases) {
        SCOPED_TRACE(testCase.line);
        const ScriptCommand command = parseOne(testCase.line);
        EXPECT_EQ(command.verb, testCase.verb);
        EXPECT_EQ(command.numbers, testCase.numbers);
        EXPECT_EQ(command.words, testCase.words);
        EXPECT_EQ(command.modifiers, testCase.modifiers);
    }
}

TEST(ScriptParserTest, BadLines) {
    const struct {
        const char *line, *reason;
    } cases[]{{"wiat 5", "there is no such command"}, {"Wait 5", "there is no such command"},
        {"wait", "expected: wait FRAMES|import|pictures"}, {"wait 1 2", "expected: wait FRAMES|import|pictures"},
        {"wait x", "\"x\" is no number"}, {"wait 0", "\"0\" is not between 1 and 1000000"},
        {"wait 1.5", "\"1.5\" is no whole number"}, {"wait 1e9", "\"1e9\" is not between 1 and 1000000"},
        {"wait nan", "\"nan\" is no number"}, {"mouse 1", "expected: mouse X Y"}, {"mouse 1 2x", "\"2x\" is no number"},
        {"press top", "\"top\" is none of left, right, middle"},
        {"press left hyper", "\"hyper\" is none of shift, ctrl, alt, super"}, {"key Nothing", "\"Nothing\" is no key"},
        {"key", "expected: key NAME [repeat]"}, {"key W twice", "\"twice\" is not repeat"},
        {"resize 0 10", "\"0\" is not between 1 and 8192"}, {"scale 9", "\"9\" is not between 0 and 4"},
        {"focus maybe", "\"maybe\" is none of on, off"}, {"drop a.png 3", "expected: drop FILE X Y"},
        {"drop a.png 3 y", "\"y\" is no number"},
        {"dump picture a",
            "\"picture\" is none of document, selection, marks, undo, history, log, statistics, clipboard"},
        {"dump undo", "expected: dump document|selection|marks|undo|history|log|statistics|clipboard FILE"},
        {"quit now", "expected: quit"}};
    for(const auto& testCase: cases) {
        const ParsedScript script = parseScript(std::string{"# first\n\n  "} + testCase.line + "\nquit");
        EXPECT_EQ(script.error, std::string{"line 3: \""} + testCase.line + "\": " + testCase.reason);
        EXPECT_THAT(script.commands, IsEmpty());
    }
}

TEST(ScriptParserTest, BlankLinesAndRemarksCountAsLines) {
    const ParsedScript script = parseScript("\n# a remark\nwait 1\r\n\n   # another\nwait 2");
    ASSERT_EQ(script.error, "");
    ASSERT_EQ(script.commands.size(), 2);
    EXPECT_EQ(script.commands[0].line, 3);
    EXPECT_EQ(script.commands[0].text, "wait 1");
    EXPECT_EQ(script.commands[1].line, 6);
    EXPECT_THAT(parseScript("").commands, IsEmpty());
}

} // namespace

} // namespace VantrelEngine
