#include "Capture.h"

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/DebugStl.h>

#include <cmath>
#include <iostream>
#include <map>
#include <thread>
#include <vector>

using namespace Corrade;
using namespace Corrade::Containers::Literals;
using Utility::Debug;
using Utility::Error;
using Utility::Warning;

namespace Shapes {

enum class Shape { Box, Sphere };

Debug& operator<<(Debug& debug, Shape shape) {
    return debug << "Shape::" << Debug::nospace << (shape == Shape::Box ? "Box" : "Sphere");
}

enum Side { Left = 3 };

struct Mass {
    int value;
};

Debug& operator<<(Debug& debug, const Mass& mass) { return debug << mass.value << Debug::nospace << "kg"; }

}

namespace {

using Shapes::Mass;
using Shapes::Shape;

TEST(Debug, separatesValuesByBlanksAndEndsTheLine) {
    EXPECT_PRINTS("a 1 2.5 bc true nullptr 120\n",
        Debug{} << "a" << 1 << 2.5f << "b" << Debug::nospace << "c" << true << nullptr << 'x');
    EXPECT_PRINTS("the size: 4 != 3\n", Debug{} << "the size:" << 4 << "!=" << 3);
}

TEST(Debug, printsNoLineWithoutValues) {
    EXPECT_PRINTS("", Debug{});
    EXPECT_PRINTS("", Debug{} << Debug::nospace);
    EXPECT_PRINTS("\n", Debug{} << "");
    EXPECT_PRINTS(" \n",
        Debug{} << ""
                << "");
    EXPECT_PRINTS(" a\n",
        Debug{} << ""
                << "a");
}

TEST(Debug, spacing) {
    EXPECT_PRINTS("\n", Debug{} << Debug::newline);
    EXPECT_PRINTS("\na\n", Debug{} << Debug::newline << "a");
    EXPECT_PRINTS("a\nb c\n",
        Debug{} << "a" << Debug::newline << "b"
                << "c");
    EXPECT_PRINTS("a\n\n", Debug{} << "a" << Debug::newline);
    EXPECT_PRINTS("a b\n",
        Debug{} << Debug::nospace << "a"
                << "b");
    EXPECT_PRINTS("ab c\n",
        Debug{} << "a" << Debug::nospace << "b"
                << "c");
    EXPECT_PRINTS("a\n", Debug{} << "a" << Debug::nospace);
    EXPECT_PRINTS("a b\n", Debug{} << "a" << Debug::space << "b");
    EXPECT_PRINTS("a b\n", Debug{} << "a" << Debug::nospace << Debug::space << "b");
    EXPECT_PRINTS("a\n b\n", Debug{} << "a" << Debug::newline << Debug::space << "b");
    EXPECT_PRINTS(" b\n", Debug{} << Debug::space << "b");
    EXPECT_PRINTS("a \n", Debug{} << "a" << Debug::space);
}

TEST(Debug, flagNoSpace) {
    EXPECT_PRINTS("ab cd\ne\n",
        Debug{Debug::Flag::NoSpace} << "a"
                                    << "b" << Debug::space << "c"
                                    << "d" << Debug::newline << "e");
}

TEST(Debug, flagNoNewlineAtTheEnd) {
    EXPECT_PRINTS("a b",
        Debug{Debug::Flag::NoNewlineAtTheEnd} << "a"
                                              << "b");
    EXPECT_PRINTS("a\nb", Debug{Debug::Flag::NoNewlineAtTheEnd} << "a" << Debug::newline << "b");
    EXPECT_PRINTS("", Debug{Debug::Flag::NoNewlineAtTheEnd});
    EXPECT_PRINTS("ab",
        Debug{Debug::Flag::NoNewlineAtTheEnd | Debug::Flag::NoSpace} << "a"
                                                                     << "b");
}

TEST(Debug, severalValuesThroughOneObject) {
    EXPECT_PRINTS("a b\n", Debug debug; debug << "a"; debug << "b");
    EXPECT_PRINTS("ab\n c\n", Debug debug; debug << "a"; Debug{} << "b"; debug << "c");
}

TEST(Debug, integers) {
    EXPECT_PRINTS("-3 200 -4 65535 97 -56\n",
        Debug{} << static_cast<signed char>(-3) << static_cast<unsigned char>(200) << short{-4}
                << static_cast<unsigned short>(65535) << u'a' << char(-56));
    EXPECT_PRINTS("-2147483648 4294967295\n", Debug{} << -2147483647 - 1 << 4294967295u);
    EXPECT_PRINTS("-5 5 -6 18446744073709551615\n", Debug{} << -5l << 5ul << -6ll << 18446744073709551615ull);
}

TEST(Debug, floatsHaveSixAndDoublesFifteenDigits) {
    EXPECT_PRINTS("0.1 0.333333 1e+10 1e-07 100000 1e+06 -0\n",
        Debug{} << 0.1f << 1.0f / 3 << 1e10f << 1e-7f << 100000.0f << 1000000.0f << -0.0f);
    EXPECT_PRINTS("0.1 0.333333333333333 123456789 1e+20\n", Debug{} << 0.1 << 1.0 / 3 << 123456789.0 << 1e20);
    EXPECT_PRINTS("0.333333333333333333\n", Debug{} << 1.0l / 3);
    EXPECT_PRINTS("nan inf -inf\n", Debug{} << std::nanf("") << HUGE_VALF << -HUGE_VAL);
}

TEST(Debug, pointers) {
    const int* const null = nullptr;
    EXPECT_PRINTS("0x0 0xab12 nullptr\n", Debug{} << null << reinterpret_cast<const Mass*>(0xab12) << nullptr);
}

TEST(Debug, strings) {
    const char* const null = nullptr;
    char array[]{'x', 'y', '\0'};
    char* const pointer = array;
    EXPECT_PRINTS("view string xy xy xy std\n",
        Debug{} << "view"_s << Containers::String{"string"} << array << pointer << Containers::MutableStringView{array}
                << std::string{"std"});
    EXPECT_PRINTS("\n", Debug{} << null);
    EXPECT_PRINTS(" x\n", Debug{} << Containers::StringView{} << "x");
    EXPECT_PRINTS(std::string("a\0b\n", 4), Debug{} << "a\0b"_s);
}

TEST(Debug, codePoints) {
    EXPECT_PRINTS("U+0061 U+00E9 U+1F600\n", Debug{} << U'a' << U'\u00e9' << U'\U0001f600');
    EXPECT_PRINTS("{U+0061, U+00E9} {}\n", Debug{} << U"a\u00e9" << U"");
}

TEST(Debug, lists) {
    EXPECT_PRINTS("{1, 2, 3} x\n", Debug{} << std::vector<int>{1, 2, 3} << "x");
    EXPECT_PRINTS("{}\n", Debug{} << std::vector<int>{});
    EXPECT_PRINTS("{a, b}\n", Debug{} << std::vector<Containers::StringView>{"a"_s, "b"_s});
    EXPECT_PRINTS("{a, b}\n", Debug{} << std::vector<std::string>{"a", "b"});
    EXPECT_PRINTS("{97, 98}\n", Debug{} << std::vector<char>{'a', 'b'});
    EXPECT_PRINTS("{0, 0}\n", Debug{} << Containers::Array<int>{ValueInit, 2});
    EXPECT_PRINTS("x{1, 2}\n", Debug{} << "x" << Debug::nospace << std::vector<int>{1, 2});
    EXPECT_PRINTS("x{1, 2} 3\n", Debug debug; debug << "x" << Debug::nospace << std::vector<int>{1, 2}; debug << 3);
    EXPECT_PRINTS("x{1, 2}\n", Debug{Debug::Flag::NoSpace} << "x" << std::vector<int>{1, 2});
}

TEST(Debug, listsOfListsAreOneALine) {
    EXPECT_PRINTS("{{1, 2},\n {3}}\n", Debug{} << std::vector<std::vector<int>>{{1, 2}, {3}});
    EXPECT_PRINTS(
        "{{{1, 2},\n {3}},\n {{4}}}\n", Debug{} << std::vector<std::vector<std::vector<int>>>{{{1, 2}, {3}}, {{4}}});
    EXPECT_PRINTS("12\n3\n", Debug{} << Debug::packed << std::vector<std::vector<int>>{{1, 2}, {3}});
}

TEST(Debug, packed) {
    const std::vector<int> list{1, 2};
    EXPECT_PRINTS("12 {1, 2}\n", Debug{} << Debug::packed << list << list);
    EXPECT_PRINTS("12 12\n", Debug{Debug::Flag::Packed} << list << list);
    EXPECT_PRINTS("\n", Debug{} << Debug::packed << std::vector<int>{});
}

TEST(Debug, hexAppliesToTheNextValue) {
    EXPECT_PRINTS("0xff 255\n", Debug{} << Debug::hex << 255 << 255);
    EXPECT_PRINTS("{0xa, 0x14} 30\n", Debug{} << Debug::hex << std::vector<int>{10, 20} << 30);
    EXPECT_PRINTS("a 10\n", Debug{} << Debug::hex << "a" << 10);
    EXPECT_PRINTS("a0xa 11\n", Debug{} << "a" << Debug::hex << Debug::nospace << 10 << 11);
    EXPECT_PRINTS("a\n0xa\n", Debug{} << "a" << Debug::hex << Debug::newline << 10);
}

TEST(Debug, flagHex) {
    EXPECT_PRINTS("0xff 0xffffffff 0x0 0xff 0x61 0x7 0xffff\n",
        Debug{Debug::Flag::Hex} << 255 << -1 << 0 << 255u << 'a' << static_cast<unsigned char>(7)
                                << static_cast<unsigned short>(65535));
    EXPECT_PRINTS("0xfffffffffffffff1 0xffffffffff\n", Debug{Debug::Flag::Hex} << -15ll << 0xffffffffffull);
    EXPECT_PRINTS("true 1.5 a nullptr U+0061\n", Debug{Debug::Flag::Hex} << true << 1.5f << "a" << nullptr << U'a');
}

TEST(Debug, typesWithOperators) {
    EXPECT_PRINTS("Shape::Sphere x\n", Debug{} << Shape::Sphere << "x");
    EXPECT_PRINTS("x 3kg\n", Debug debug; debug << "x" << Mass{3});
    EXPECT_PRINTS("{Shape::Box, Shape::Sphere}\n", Debug{} << std::vector<Shape>{Shape::Box, Shape::Sphere});
    EXPECT_PRINTS("{1kg, 2kg}\n", Debug{} << std::vector<Mass>{{1}, {2}});
    EXPECT_PRINTS("3\n", Debug{} << Shapes::Left);
}

TEST(Debug, operatorsCanAskForFlags) {
    EXPECT_PRINTS("\ntrue false false\n", Debug debug; debug << Debug::newline;
                  debug << (debug.immediateFlags() >= Debug::Flag::NoSpace);
                  debug << (debug.immediateFlags() >= Debug::Flag::NoSpace) << (debug.flags() >= Debug::Flag::NoSpace));
    EXPECT_PRINTS("true\n", Debug debug{Debug::Flag::Hex}; debug << (debug.immediateFlags() >= Debug::Flag::Hex));
    EXPECT_PRINTS("ab\n", Debug debug; debug.setFlags(debug.flags() | Debug::Flag::NoSpace); debug << "a"
                                                                                                   << "b");
}

TEST(Debug, colors) {
    EXPECT_PRINTS(
        "\033[0;31ma\033[0m b\n", Debug{} << Debug::color(Debug::Color::Red) << "a" << Debug::resetColor << "b");
    EXPECT_PRINTS("0\033[0;31m a\033[0;1;32m b\033[0;7;34m c\033[0m d\n",
        Debug{} << "0" << Debug::color(Debug::Color::Red) << "a" << Debug::boldColor(Debug::Color::Green) << "b"
                << Debug::invertedColor(Debug::Color::Blue) << "c" << Debug::resetColor << "d");
    EXPECT_PRINTS("\033[0;7;39mx\033[0m\n", Debug{} << Debug::invertedColor(Debug::Color::Default) << "x");
    EXPECT_PRINTS("0 a\n", Debug{} << "0" << Debug::resetColor << "a");
}

TEST(Debug, colorsOfAnOuterObjectAreRestored) {
    EXPECT_PRINTS("\033[0;31ma\033[0;1;32mb\033[0;31m\n c\033[0m\n", Debug debug;
                  debug << Debug::color(Debug::Color::Red) << "a";
                  Debug{} << Debug::boldColor(Debug::Color::Green) << "b"; debug << "c");
    EXPECT_PRINTS("\033[0;31mab\n\033[0m\n", Debug debug; debug << Debug::color(Debug::Color::Red) << "a";
                  Debug{} << "b");
}

TEST(Debug, disabledColorsPrintNothing) {
    EXPECT_PRINTS("0 a b c d\n",
        Debug{Debug::Flag::DisableColors}
            << "0" << Debug::color(Debug::Color::Red) << "a" << Debug::boldColor(Debug::Color::Green) << "b"
            << Debug::invertedColor(Debug::Color::Blue) << "c" << Debug::resetColor << "d");
}

TEST(Debug, greyLevelsAsColoredBlocks) {
    const unsigned char level = 200;
    EXPECT_PRINTS("\033[38;2;200;200;200m\033[48;2;200;200;200m\u2593\u2593\033[0m 200\n",
        Debug{} << Debug::color << level << level);
    EXPECT_PRINTS("\u2593\u2593 5\n", Debug{Debug::Flag::Color | Debug::Flag::DisableColors} << level << 5);

    const struct {
        int level;
        const char* block;
    } levels[]{{0, "  "}, {50, "  "}, {51, "\u2591\u2591"}, {102, "\u2592\u2592"}, {203, "\u2593\u2593"},
        {204, "\u2588\u2588"}, {255, "\u2588\u2588"}};
    for(const auto& i: levels)
        EXPECT_PRINTS(std::string{i.block} + "\n",
            Debug{Debug::Flag::Color | Debug::Flag::DisableColors} << static_cast<unsigned char>(i.level));
}

TEST(Debug, locationInTheSource) {
    const std::string here = std::string{__FILE__} + ":" + std::to_string(__LINE__ + 1);
    EXPECT_PRINTS(here + ": a b\n",
        !Debug{} << "a"
                 << "b");
    EXPECT_PRINTS(std::string{__FILE__} + ":" + std::to_string(__LINE__) + "\n", !Debug{});
    EXPECT_PRINTS(std::string{__FILE__} + ":" + std::to_string(__LINE__) + ": ab\n",
        !Debug{Debug::Flag::NoSpace} << "a"
                                     << "b");
    EXPECT_PRINTS(std::string{__FILE__} + ":" + std::to_string(__LINE__) + ": {1}\n", !Debug{} << std::vector<int>{1});
    EXPECT_REPORTS(std::string{__FILE__} + ":" + std::to_string(__LINE__) + ": a\n", !Error{} << "a");
}

TEST(DebugRedirection, isGlobalNestedAndRestored) {
    std::ostringstream outer, inner;
    std::ostream* const before = Debug::output();
    {
        Debug redirectOuter{&outer};
        Debug{} << "outer";
        {
            Debug redirectInner{&inner};
            EXPECT_EQ(Debug::output(), &inner);
            Debug{} << "inner";
        }
        EXPECT_EQ(Debug::output(), &outer);
        Debug{} << "outer again";
    }
    EXPECT_EQ(Debug::output(), before);
    EXPECT_EQ(outer.str(), "outer\nouter again\n");
    EXPECT_EQ(inner.str(), "inner\n");
}

TEST(DebugRedirection, theRedirectingObjectPrintsToItsTarget) {
    std::ostringstream out;
    {
        Debug{&out} << "a"
                    << "b";
    }
    EXPECT_EQ(out.str(), "a b\n");
}

TEST(DebugRedirection, nullSwallows) {
    EXPECT_PRINTS("seen\n",
        {
            Debug swallow{nullptr};
            EXPECT_EQ(Debug::output(), nullptr);
            Debug{} << "lost" << std::vector<int>{1} << Debug::newline << Debug::color(Debug::Color::Red);
        } Debug{}
            << "seen");
}

TEST(DebugRedirection, toAString) {
    Containers::String text = "before ";
    {
        Debug redirect{&text};
        Debug{} << "a" << 1;
    }
    EXPECT_EQ(text, "before a 1\n");
}

TEST(DebugRedirection, outputsAreSeparate) {
    std::ostringstream debug, warning, error;
    {
        Debug redirectDebug{&debug};
        Warning redirectWarning{&warning};
        Error redirectError{&error};
        Debug{} << "d";
        Warning{} << "w";
        Error{} << "e";
        {
            Warning swallow{nullptr};
            Warning{} << "lost";
            Error{} << "seen";
        }
    }
    EXPECT_EQ(debug.str(), "d\n");
    EXPECT_EQ(warning.str(), "w\n");
    EXPECT_EQ(error.str(), "e\nseen\n");
}

TEST(DebugRedirection, toStringsOfWarningAndError) {
    Containers::String warning, error;
    {
        Warning redirectWarning{&warning};
        Error redirectError{&error, Error::Flag::NoNewlineAtTheEnd};
        Warning{} << "w";
        redirectError << "e";
    }
    EXPECT_EQ(warning, "w\n");
    EXPECT_EQ(error, "e");
}

TEST(DebugRedirection, isOfOneThread) {
    std::ostringstream out;
    std::ostream* inThread = nullptr;
    {
        Debug redirect{&out};
        std::thread{[&] { inThread = Debug::output(); }}.join();
    }
    EXPECT_EQ(inThread, Debug::defaultOutput());
}

TEST(DebugRedirection, defaultOutputs) {
    std::ostringstream out;
    Debug redirectDebug{&out};
    Warning redirectWarning{&out};
    Error redirectError{&out};
    EXPECT_EQ(Debug::defaultOutput(), &std::cout);
    EXPECT_EQ(Warning::defaultOutput(), &std::cerr);
    EXPECT_EQ(Error::defaultOutput(), &std::cerr);
    EXPECT_EQ(Warning::output(), &out);
    EXPECT_EQ(Error::output(), &out);
    EXPECT_FALSE(Debug::isTty());
    EXPECT_FALSE(Warning::isTty());
    EXPECT_FALSE(Error::isTty());
}

}
