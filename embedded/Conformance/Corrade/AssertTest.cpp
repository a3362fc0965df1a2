#include "Capture.h"

#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/DebugAssert.h>

#include <memory>

using namespace Corrade;
using Utility::Debug;
using Utility::Error;

namespace {

std::string location(const int line) { return std::string{__FILE__} + ":" + std::to_string(line); }

int checked(const int value) {
    CORRADE_ASSERT(value > 0, "checked(): expected more than" << 0 << "but got" << value, -1);
    return value;
}

void checkedWithoutResult(const int value) {
    CORRADE_ASSERT(value > 0, "checked(): got '" << Debug::nospace << value << Debug::nospace << "'", );
}

TEST(Assert, passes) { EXPECT_REPORTS("", EXPECT_EQ(checked(3), 3); checkedWithoutResult(1)); }

TEST(Assert, printsTheMessageAndAborts) {
    EXPECT_ABORTS("checked(): expected more than 0 but got -2", checked(-2));
    EXPECT_ABORTS("checked(): got '-2'", checkedWithoutResult(-2));
}

TEST(Assert, isSeenWhenErrorsAreRedirected) {
    EXPECT_ABORTS("checked(): expected more than 0 but got 0", {
        Error swallow{nullptr};
        checked(0);
    });
}

TEST(Assert, evaluatesTheConditionOnce) {
    int count = 0;
    const auto check = [&] { CORRADE_ASSERT(++count, "never", ); };
    check();
    EXPECT_EQ(count, 1);
    CORRADE_INTERNAL_ASSERT(++count);
    EXPECT_EQ(count, 2);
}

TEST(Assert, isOneStatement) {
    int otherwise = 0;
    const bool condition = true;
    if(!condition)
        CORRADE_ASSERT(condition, "never", );
    else
        otherwise = 1;
    EXPECT_EQ(otherwise, 1);
}

bool output(const bool succeed, int& calls) {
    ++calls;
    return succeed;
}

TEST(Assert, output) {
    int calls = 0;
    const auto check = [&](const bool succeed) {
        CORRADE_ASSERT_OUTPUT(output(succeed, calls), "no output, that was" << succeed, );
    };
    check(true);
    EXPECT_EQ(calls, 1);
    EXPECT_ABORTS("no output, that was false", check(false));
}

int unreachable(const int kind) {
    switch(kind) {
    case 0: return 7;
    default: CORRADE_ASSERT_UNREACHABLE("unknown kind" << kind, {});
    }
}

TEST(Assert, unreachable) {
    EXPECT_EQ(unreachable(0), 7);
    EXPECT_ABORTS("unknown kind 5", unreachable(5));
}

constexpr int half(const int value) {
    return CORRADE_CONSTEXPR_ASSERT(value % 2 == 0, "half():" << value << "is odd"), value / 2;
}

TEST(Assert, inConstantExpressions) {
    static_assert(half(6) == 3, "");
    EXPECT_EQ(half(8), 4);
    EXPECT_ABORTS("half(): 7 is odd", half(7));
}

/* Functions, as lines within the arguments of a macro are counted differently by different compilers. */
constexpr int FirstLine = __LINE__ + 1;
void assertEqual(int a) { CORRADE_INTERNAL_ASSERT(a == 2 && true); }
void assertOutput(bool succeed, int& calls) { CORRADE_INTERNAL_ASSERT_OUTPUT(output(succeed, calls)); }
const char* assertExpression(const char* value) { return CORRADE_INTERNAL_ASSERT_EXPRESSION(value); }

TEST(InternalAssert, printsTheConditionAndTheLocation) {
    assertEqual(2);
    EXPECT_ABORTS("Assertion a == 2 && true failed at " + location(FirstLine), assertEqual(1));
}

TEST(InternalAssert, isSeenWhenErrorsAreRedirected) {
    EXPECT_ABORTS("Assertion a == 2 && true failed at " + location(FirstLine), {
        Error swallow{nullptr};
        assertEqual(1);
    });
}

TEST(InternalAssert, output) {
    int calls = 0;
    assertOutput(true, calls);
    EXPECT_EQ(calls, 1);
    EXPECT_ABORTS("Assertion output(succeed, calls) failed at " + location(FirstLine + 1), assertOutput(false, calls));
}

TEST(InternalAssert, expression) {
    int value = 3;
    int& reference = CORRADE_INTERNAL_ASSERT_EXPRESSION(value);
    EXPECT_EQ(&reference, &value);
    const std::unique_ptr<int> moved = CORRADE_INTERNAL_ASSERT_EXPRESSION(std::make_unique<int>(5));
    EXPECT_EQ(*moved, 5);
    EXPECT_EQ(CORRADE_INTERNAL_ASSERT_EXPRESSION(1 + 1), 2);
}

TEST(InternalAssert, failedExpression) {
    EXPECT_STREQ(assertExpression("value"), "value");
    EXPECT_ABORTS("Assertion value failed at " + location(FirstLine + 2), assertExpression(nullptr));
}

constexpr int UnreachableLine = __LINE__ + 3;
int internallyUnreachable(const bool reached) {
    if(!reached) return 1;
    CORRADE_INTERNAL_ASSERT_UNREACHABLE();
}

TEST(InternalAssert, unreachable) {
    EXPECT_EQ(internallyUnreachable(false), 1);
    EXPECT_ABORTS("Reached unreachable code at " + location(UnreachableLine), internallyUnreachable(true));
}

/* Tests are built as debug builds in this respect. */
int debugChecked(const int value) {
    CORRADE_DEBUG_ASSERT(value > 0, "debugChecked():" << value, -1);
    return value;
}

constexpr int debugHalf(const int value) {
    return CORRADE_CONSTEXPR_DEBUG_ASSERT(value % 2 == 0, "debugHalf():" << value), value / 2;
}

TEST(DebugAssert, printsTheMessageAndAborts) {
    EXPECT_EQ(debugChecked(1), 1);
    EXPECT_ABORTS("debugChecked(): 0", debugChecked(0));
    static_assert(debugHalf(6) == 3, "");
    EXPECT_ABORTS("debugHalf(): 7", debugHalf(7));
}

}
