#include <Magnum/GL/Context.h>
#include <Magnum/GL/Version.h>

#include "Support/OffscreenContext.h"

using namespace Magnum;

namespace {

struct ContextTest: VantrelTest::GlTest {};

TEST_F(ContextTest, supportsTheRequestedVersion) {
    EXPECT_TRUE(GL::Context::current().isVersionSupported(GL::Version::GL330));
    EXPECT_EQ(GL::Context::current().supportedVersion({GL::Version::GL330}), GL::Version::GL330);
}

}
