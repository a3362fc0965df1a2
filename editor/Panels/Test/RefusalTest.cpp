#include <cmath>

#include <gtest/gtest.h>

#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/Refusal.h"

namespace VantrelEngine {

namespace {

constexpr SchemaKey Plain{"k", "K", KeyKind::Number, "0", ""};

std::string refused(const SchemaKey& key, const char* json) {
    JsonDocument value;
    EXPECT_EQ(parseJson(json, value), "") << json;
    return whyRefused(key, value);
}

TEST(RefusalTest, NumbersOutOfTheirRange) {
    EXPECT_EQ(refused(Plain, "-1e30"), "");
    EXPECT_EQ(refused(Plain.range(0, 1), "1"), "");
    EXPECT_EQ(refused(Plain.range(0, 1), "1.5"), "1.5 is not from 0 to 1");
    EXPECT_EQ(refused(Plain.range(0), "-2"), "-2 is not 0 or more");
    EXPECT_EQ(refused(Plain.between(0), "0"), "0 is not above 0");
    EXPECT_EQ(refused(Plain.between(0, 180), "180"), "180 is not between 0 and 180");
    EXPECT_EQ(refused(Plain.between(0, 180), "179.9"), "");
}

TEST(RefusalTest, NumbersThatAreNone) {
    EXPECT_EQ(whyNumberRefused(Plain, INFINITY), "the number is not finite");
    EXPECT_EQ(whyNumberRefused(Plain, NAN), "the number is not finite");
    EXPECT_EQ(refused(Plain, "1e39"), "the number is too large for a float");
    EXPECT_EQ(refused({"far", "", KeyKind::NumberOrInfinity, "1", ""}, "1e39"), "");
    EXPECT_EQ(refused(Plain, "\"5\""), "expected is a number");
    EXPECT_EQ(refused({"k", "", KeyKind::WholeNumber, "1", ""}, "1.5"), "expected is a whole number");
    EXPECT_EQ(refused({"k", "", KeyKind::Flags, "1", ""}, "-1"), "expected is a whole number that is not negative");
}

TEST(RefusalTest, ScalingsOfZero) {
    const SchemaKey scaling = SchemaKey{"k", "", KeyKind::Vector, "[1, 1, 1]", ""}.of(3).neverZero();
    EXPECT_EQ(refused(scaling, "[1, -1, 0.0001]"), "");
    EXPECT_EQ(refused(scaling, "[1, 0, 1]"), "a factor of zero leaves nothing to be seen, take a small one");
    EXPECT_EQ(refused(scaling, "[1, -0.0, 1]"), "a factor of zero leaves nothing to be seen, take a small one");
}

TEST(RefusalTest, ArraysOfOtherSizes) {
    const SchemaKey vector = SchemaKey{"k", "", KeyKind::Vector, "[]", ""}.of(3);
    EXPECT_EQ(refused(vector, "[1, 2]"), "expected are 3 numbers");
    EXPECT_EQ(refused(vector, "[1, 2, \"x\"]"), "expected are 3 numbers");
    const SchemaKey color = SchemaKey{"k", "", KeyKind::Color, "[]", ""}.of(4);
    EXPECT_EQ(refused(color, "[1, 2, 3]"), "");
    EXPECT_EQ(refused(color, "[1, 2]"), "expected are 3 or 4 numbers");
    EXPECT_EQ(refused({"k", "", KeyKind::Rotation, "[]", ""}, "[0, 0, 0, 0]"), "a quaternion is not zero");
    EXPECT_EQ(refused({"k", "", KeyKind::References, "[]", ""}, "[\"a\", 5]"), "expected is an array of ids");
}

TEST(RefusalTest, TextsThatAreNoChoice) {
    const SchemaKey choice = SchemaKey{"k", "", KeyKind::Choice, "\"a\"", ""}.choices("a|bc");
    EXPECT_EQ(refused(choice, "\"bc\""), "");
    EXPECT_EQ(refused(choice, "\"b\""), "expected is one of the choices");
    EXPECT_EQ(splitChoices("a|bc"), (std::vector<std::string>{"a", "bc"}));
}

} // namespace

} // namespace VantrelEngine
