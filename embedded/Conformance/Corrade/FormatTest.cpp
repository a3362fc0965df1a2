#include "Capture.h"

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Format.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <random>

using namespace Corrade;
using Utility::format;
using Utility::formatInto;

namespace {

enum Side { Left = 3 };

TEST(Format, literalText) {
    EXPECT_EQ(format(""), "");
    EXPECT_EQ(format("text", 1), "text");
    EXPECT_EQ(format("{{"), "{");
    EXPECT_EQ(format("}}"), "}");
    EXPECT_EQ(format("a{{b}}c{}", 3), "a{b}c3");
    EXPECT_EQ(format("{{{}}}", 1), "{1}");
}

TEST(Format, order) {
    EXPECT_EQ(format("{} {} {}", 1, 2, 3), "1 2 3");
    EXPECT_EQ(format("{0} {1} {0} {{}}", 1, 2), "1 2 1 {}");
    EXPECT_EQ(format("{1} {}", 1, 2, 3), "2 3");
    EXPECT_EQ(format("{} {1} {}", 1, 2, 3), "1 2 3");
    EXPECT_EQ(format("{}{0}{}", 1, 2), "112");
    EXPECT_EQ(format("{00}", 4), "4");
}

TEST(Format, missingArgumentsLeaveThePlaceholder) {
    EXPECT_EQ(format("{}"), "{}");
    EXPECT_EQ(format("{} {}", 1), "1 {}");
    EXPECT_EQ(format("{5}", 1), "{5}");
    EXPECT_EQ(format("{5:x}", 1), "{5:x}");
    EXPECT_EQ(format("{:.3x}"), "{:.3x}");
}

TEST(Format, integers) {
    EXPECT_EQ(format("{} {} {}", -2147483647 - 1, 4294967295u, 0), "-2147483648 4294967295 0");
    EXPECT_EQ(format("{} {}", -9223372036854775807ll - 1, 18446744073709551615ull),
        "-9223372036854775808 18446744073709551615");
    EXPECT_EQ(format("{} {} {} {}", static_cast<signed char>(-3), static_cast<unsigned char>(200), short{-7},
                  static_cast<unsigned short>(65535)),
        "-3 200 -7 65535");
    EXPECT_EQ(format("{} {}", -5l, 5ul), "-5 5");
    EXPECT_EQ(format("{} {}", 'a', Left), "97 3");
    EXPECT_EQ(format("{} {}", true, false), "1 0");
}

TEST(Format, typesOfIntegers) {
    EXPECT_EQ(format("{:x}", 255), "ff");
    EXPECT_EQ(format("{:o} {:d} {:x} {:X}", 8, 9, 255, 255), "10 9 ff FF");
    EXPECT_EQ(format("{:x} {:o} {:x}", -1, -1, -1ll), "ffffffff 37777777777 ffffffffffffffff");
    EXPECT_EQ(format("{:c}{:c}{:c}", 65, 'b', 67u), "AbC");
    EXPECT_EQ(format("{:d} {:x}", 'a', 'a'), "97 61");
    EXPECT_EQ(format("{:d}", true), "1");
}

TEST(Format, precisionOfIntegersIsTheNumberOfDigits) {
    EXPECT_EQ(format("{:.5} {:.5x} {:.5d} {:.1}", 42, 255, -42, 123), "00042 000ff -00042 123");
    EXPECT_EQ(format("[{:.0}]", 0), "[]");
    EXPECT_EQ(format("{:.300}", 7), (std::string(299, '0') + "7").data());
}

TEST(Format, floats) {
    EXPECT_EQ(format("{} {} {} {} {}", 0.125f, 7.5f, 1.0f, 25.0f, 0.05f), "0.125 7.5 1 25 0.05");
    EXPECT_EQ(format("{} {} {}", 1.0f / 3, 1.0 / 3, 1.0l / 3), "0.333333 0.333333333333333 0.333333333333333333");
    EXPECT_EQ(
        format("{:.10} {:.10} {:.10}", 70 / 238.0, 56 / 238.0, 28 / 238.0), "0.2941176471 0.2352941176 0.1176470588");
    EXPECT_EQ(format("{:.10} {:.3}", 1.0, 3.14159f), "1 3.14");
    EXPECT_EQ(format("{} {} {:F}", std::nan(""), -HUGE_VAL, HUGE_VALF), "nan -inf INF");
}

TEST(Format, typesOfFloats) {
    EXPECT_EQ(format("{:.3f}", 1.5), "1.500");
    EXPECT_EQ(format("{:.0f} {:.1e}", 2.5, 3.25), "2 3.2e+00");
    EXPECT_EQ(
        format("{:g} {:G} {:.2e} {:.2E} {:f}", 1.5, 1.5e20, 1.5, 1.5, 1.5f), "1.5 1.5E+20 1.50e+00 1.50E+00 1.500000");
    EXPECT_EQ(format("{:f} {:e}", 1.0 / 3, 1.0 / 3), "0.333333333333333 3.333333333333333e-01");
    EXPECT_EQ(format("{0:.1e} {0}", 3.25), "3.2e+00 3.25");
}

/* The same digits that the C library prints, for values of all magnitudes. */
TEST(Format, floatsAgainstTheCLibrary) {
    std::mt19937_64 random{3};
    for(int i = 0; i != 5000; ++i) {
        const double value = std::ldexp(double(std::int64_t(random())), int(random() % 600) - 330);
        const float single = float(std::ldexp(double(std::int32_t(random())), int(random() % 200) - 130));
        char expected[2048];
        std::snprintf(
            expected, sizeof(expected), "%.15g %.6g %.3f %.10e %.17g", value, double(single), value, value, value);
        ASSERT_EQ(format("{} {} {:.3f} {:.10e} {:.17}", value, single, value, value, value), expected);
    }
}

TEST(Format, longResults) {
    char expected[2048];
    std::snprintf(expected, sizeof(expected), "%.30f %.300g", DBL_MAX, 1.0 / 3);
    EXPECT_EQ(format("{:.30f} {:.300}", DBL_MAX, 1.0 / 3), expected);

    const std::string text(5000, 'x');
    EXPECT_EQ(format("{} {} {}", 1, text.data(), 2), ("1 " + text + " 2").data());
}

TEST(Format, strings) {
    char array[]{'c', 'h', '\0'};
    const char* const null = nullptr;
    EXPECT_EQ(format("{} {} {} {} {}", "a", array, Containers::StringView{"view"}, Containers::String{"string"},
                  Containers::MutableStringView{array}),
        "a ch view string ch");
    EXPECT_EQ(format("[{}{}]", null, Containers::StringView{}), "[]");
    EXPECT_EQ(format("{:.2} {:.10}", "abc", "abc"), "ab abc");
    EXPECT_EQ(format("{}", Containers::StringView{"a\0b", 3}), (Containers::StringView{"a\0b", 3}));
}

TEST(FormatInto, writesAndReturnsTheSize) {
    char buffer[16];
    std::fill_n(buffer, 16, '#');
    EXPECT_EQ(formatInto(Containers::MutableStringView{buffer, 16}, "{} {}", 12, "ab"), 5u);
    /* Only text behind a number is certain not to be followed by a terminator. */
    EXPECT_EQ(std::string(buffer, 7), "12 ab##");
    EXPECT_EQ(formatInto(Containers::MutableStringView{buffer, 4}, "{}x", 12), 3u);
    EXPECT_EQ(formatInto(Containers::MutableStringView{buffer, 3}, "{}", "abc"), 3u);
    EXPECT_EQ(std::string(buffer, 3), "abc");
    EXPECT_EQ(formatInto(buffer, "{}{}", 7, "array"), 6u);
    EXPECT_EQ(std::string(buffer, 6), "7array");
}

TEST(FormatInto, nullMeasures) {
    EXPECT_EQ(formatInto(Containers::MutableStringView{nullptr}, "{} {} {:.3f}", 12, "ab", 1.5f), 11u);
}

TEST(FormatInto, tooSmallBuffer) {
    char buffer[4];
    const Containers::MutableStringView view{buffer, 3};
    EXPECT_ABORTS(
        "Utility::formatInto(): buffer too small, expected at least 4 but got 3", formatInto(view, "{}", 1234));
    EXPECT_ABORTS("Utility::formatInto(): buffer too small, expected at least 4 but got 3", formatInto(view, "abcd"));
    EXPECT_ABORTS(
        "Utility::formatInto(): buffer too small, expected at least 4 but got 3", formatInto(view, "{}", "abcd"));
}

TEST(FormatAsserts, patterns) {
    const struct {
        const char* pattern;
        const char* message;
    } cases[]{
        {"}", "mismatched }"},
        {"a}b", "mismatched }"},
        {"{}}", "mismatched }"},
        {"{:}}", "mismatched }"},
        {"x{{}", "mismatched }"},
        {"{", "unexpected end of format string"},
        {"{0", "unexpected end of format string"},
        {"{0:", "unexpected end of format string"},
        {"{:.", "invalid type specifier: ."},
        {"{:.3", "unexpected end of format string"},
        {"{:.3x", "unexpected end of format string"},
        {"{}{", "unexpected end of format string"},
        {"{a}", "unknown placeholder content: a"},
        {"{ }", "unknown placeholder content:  "},
        {"{0a}", "unknown placeholder content: a"},
        {"{-1}", "unknown placeholder content: -"},
        {"{0.3}", "unknown placeholder content: ."},
        {"{:xx}", "unknown placeholder content: x"},
        {"{:.3xx}", "unknown placeholder content: x"},
        {"{:.}", "invalid character in precision specifier: }"},
        {"{:.a}", "invalid character in precision specifier: a"},
        {"{:.-3}", "invalid character in precision specifier: -"},
        {"{:z}", "invalid type specifier: z"},
        {"{:1}", "invalid type specifier: 1"},
        {"{:.3z}", "invalid type specifier: z"},
        {"{5:z}", "invalid type specifier: z"},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.pattern);
        EXPECT_ABORTS(std::string{"Utility::format(): "} + i.message, format(i.pattern, 1));
    }
}

TEST(FormatAsserts, typesThatDoNotFit) {
    EXPECT_ABORTS("Utility::format(): character type used for a 64-bit value", format("{:c}", 1ll));
    EXPECT_ABORTS("Utility::format(): character type used for a 64-bit value", format("{:c}", 1ull));
    EXPECT_ABORTS("Utility::format(): character type used for a 64-bit value", format("{:c}", 1l));
    EXPECT_ABORTS("Utility::format(): character type used for a boolean value", format("{:c}", true));
    EXPECT_ABORTS("Utility::format(): character type used for a floating-point value", format("{:c}", 1.0f));
    EXPECT_ABORTS("Utility::format(): character type used for a floating-point value", format("{:c}", 1.0));
    EXPECT_ABORTS("Utility::format(): character type used for a floating-point value", format("{:c}", 1.0l));
    EXPECT_ABORTS("Utility::format(): floating-point type used for an integral value", format("{:f}", 1));
    EXPECT_ABORTS("Utility::format(): floating-point type used for an integral value", format("{:g}", 'a'));
    EXPECT_ABORTS("Utility::format(): floating-point type used for an integral value", format("{:e}", true));
    EXPECT_ABORTS("Utility::format(): floating-point type used for an integral value", format("{:G}", 1ull));
    EXPECT_ABORTS("Utility::format(): integral type used for a floating-point value", format("{:x}", 1.0));
    EXPECT_ABORTS("Utility::format(): integral type used for a floating-point value", format("{:d}", 1.0f));
    EXPECT_ABORTS("Utility::format(): integral type used for a floating-point value", format("{:o}", 1.0l));
    EXPECT_ABORTS("Utility::format(): type specifier can't be used for a string value", format("{:d}", "s"));
    EXPECT_ABORTS("Utility::format(): type specifier can't be used for a string value", format("{:c}", "s"));
    EXPECT_ABORTS("Utility::format(): type specifier can't be used for a string value", format("{:g}", "s"));
}

}
