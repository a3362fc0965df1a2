#include "Magnum/Shaders/Program.h"

#include "Corrade/Containers/String.h"
#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/Shader.h"
#include "Magnum/GL/Version.h"

namespace Magnum::Shaders::Implementation {

void Program::build(const std::initializer_list<Define> defines, const Containers::StringView vertex,
    const Containers::StringView fragment, const Containers::StringView geometry) {
    const auto attach = [&](GL::Shader::Type type, Containers::StringView source) {
        GL::Shader shader{GL::Version::GL330, type};
        for(const Define& define: defines)
            if(define.enabled) shader.addSource("#define " + Containers::StringView{define.name} + "\n");
        shader.addSource(source);
        CORRADE_INTERNAL_ASSERT_OUTPUT(shader.compile());
        attachShader(shader);
    };
    attach(GL::Shader::Type::Vertex, vertex);
    if(geometry) attach(GL::Shader::Type::Geometry, geometry);
    attach(GL::Shader::Type::Fragment, fragment);
    CORRADE_INTERNAL_ASSERT_OUTPUT(link());
}

void Program::expect(const Feature& feature) {
    CORRADE_ASSERT(feature.enabled,
        "Shaders::" << Utility::Debug::nospace << feature.call << Utility::Debug::nospace
                    << "(): the shader was not created with" << feature.name << "enabled", );
}

}
