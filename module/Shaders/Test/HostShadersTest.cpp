#include <Corrade/Containers/StringIterable.h>
#include <Corrade/Utility/Resource.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Shaders/ShaderResources.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine::Shaders;
using testing::KilledBySignal;
using Utility::Resource;

typedef VantrelTest::GlTest HostShadersTest;
typedef VantrelTest::GlTest HostShadersDeathTest;

GL::Shader triangle() { return loadShader(GL::Shader::Type::Vertex, ShaderGroup::Engine, "FullscreenTriangle.vert"); }

TEST_F(HostShadersTest, theGroupIsKnownOnlyWhileItIsReadFrom) {
    EXPECT_FALSE(Resource::hasGroup("VantrelEngineShaders"));
    for(int i = 0; i != 2; ++i) {
        EXPECT_TRUE(triangle().compile());
        EXPECT_FALSE(Resource::hasGroup("VantrelEngineShaders"));
    }
}

TEST_F(HostShadersTest, whatThePluginHasRegisteredStays) {
    const unsigned int positions[]{23, 13};
    Utility::Implementation::ResourceGroup plugins{};
    plugins.name = "VantrelEngineShaders";
    plugins.count = 1;
    plugins.positions = positions;
    plugins.filenames = reinterpret_cast<const unsigned char*>("FullscreenTriangle.vert");
    plugins.data = reinterpret_cast<const unsigned char*>("void main() {");
    Resource::registerData(plugins);

    const GL::Shader shader = triangle();
    EXPECT_EQ(shader.sources().back(), Containers::StringView{"void main() {"});
    EXPECT_TRUE(Resource::hasGroup("VantrelEngineShaders"));

    Resource::unregisterData(plugins);
    EXPECT_FALSE(Resource::hasGroup("VantrelEngineShaders"));
}

TEST_F(HostShadersDeathTest, theEditorsShadersAreThePluginsAlone) {
    EXPECT_EXIT(loadShader(GL::Shader::Type::Fragment, ShaderGroup::Editor, "OutlineInit.frag"),
        KilledBySignal(SIGABRT), "registerShaderGroup\\(\\): the host has the engine group only");
}

}
