#pragma once

#include <gtest/gtest.h>

#include "Support/HeadlessContext.h"

namespace VantrelTest {

typedef HeadlessContext OffscreenContext;

// Test fixture: one context for all tests of a suite, and no GL error left behind by any of them.
class GlTest: public testing::Test {
public:
    static void SetUpTestSuite();
    static void TearDownTestSuite();

protected:
    void TearDown() override;
};

}
