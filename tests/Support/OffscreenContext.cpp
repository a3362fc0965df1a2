#include "Support/OffscreenContext.h"

#include <Magnum/GL/Renderer.h>

namespace VantrelTest {

namespace {

std::unique_ptr<OffscreenContext> suiteContext;

}

void GlTest::SetUpTestSuite() {
    // A child of a death test starts over instead of inheriting a context whose threads are gone.
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    suiteContext = std::make_unique<OffscreenContext>();
}

void GlTest::TearDownTestSuite() { suiteContext.reset(); }

void GlTest::TearDown() { EXPECT_EQ(Magnum::GL::Renderer::error(), Magnum::GL::Renderer::Error::NoError); }

}
