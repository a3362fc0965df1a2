#include "Utils/Assert.h"

#include <sstream>

#include <Corrade/Utility/Debug.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Eq;
using testing::KilledBySignal;

TEST(AssertTest, aTrueExpressionIsEvaluatedOnceAndGoesOn) {
    int evaluated = 0;
    VANTREL_ASSERT(++evaluated > 0, "Views/SceneView", 1);
    VANTREL_ASSERT_SPELLED(++evaluated > 0, "spelled", "Views/SceneView", 1);
    EXPECT_EQ(evaluated, 2);
}

TEST(AssertDeathTest, namesExpressionUnitAndLine) {
    const int* window = nullptr;
    EXPECT_EXIT(VANTREL_ASSERT(window, "Views/SceneView", 1971), KilledBySignal(SIGABRT),
        Eq("Assertion window failed at Views/SceneView:1971\n"));
}

TEST(AssertDeathTest, whiteSpaceOfTheExpressionIsOneBlank) {
    const int last = -1;
    // clang-format off
    EXPECT_EXIT(VANTREL_ASSERT(last   >= 0
        && last < 3, "ChangeManager", 375), KilledBySignal(SIGABRT),
        Eq("Assertion last >= 0 && last < 3 failed at ChangeManager:375\n"));
    // clang-format on
}

TEST(AssertDeathTest, aSpelledExpressionReplacesTheCode) {
    EXPECT_EXIT(VANTREL_ASSERT_SPELLED(1 + 1 == 3, "vp.product() != 0", "Shaders/Outline", 140),
        KilledBySignal(SIGABRT), Eq("Assertion vp.product() != 0 failed at Shaders/Outline:140\n"));
}

TEST(AssertDeathTest, unreachable) {
    EXPECT_EXIT(VANTREL_UNREACHABLE("Views/SceneView", 1372), KilledBySignal(SIGABRT),
        Eq("Reached unreachable code at Views/SceneView:1372\n"));
}

TEST(AssertDeathTest, isNotSwallowedByRedirection) {
    EXPECT_EXIT(
        {
            std::ostringstream redirected;
            Corrade::Utility::Error redirection{&redirected};
            VANTREL_ASSERT(false, "Unit", 1);
        },
        KilledBySignal(SIGABRT), Eq("Assertion false failed at Unit:1\n"));
}

}
