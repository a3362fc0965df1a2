#include "Renderer/PostProcess/FullScreenProgram.h"

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

#include "Renderer/DefaultAssets/DefaultAssets.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

FullScreenProgram::FullScreenProgram(Containers::StringView fragmentFile) {
    GL::Shader vertex{GL::Version::GL330, GL::Shader::Type::Vertex};
    vertex.addSource(defaultAsset("FullScreenTriangle.vert"));
    GL::Shader fragment{GL::Version::GL330, GL::Shader::Type::Fragment};
    fragment.addSource(defaultAsset(fragmentFile));
    CORRADE_INTERNAL_ASSERT_OUTPUT(vertex.compile() && fragment.compile());
    attachShader(vertex);
    attachShader(fragment);
    CORRADE_INTERNAL_ASSERT_OUTPUT(link());
    setLabel(fragmentFile);
    _triangle.setCount(3).setLabel(fragmentFile);
}

FullScreenProgram& FullScreenProgram::setTextureUnit(Containers::StringView name, Int unit) {
    setUniform(uniformLocation(name), unit);
    return *this;
}

} // namespace VantrelEngine
