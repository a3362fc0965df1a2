#pragma once

#include <initializer_list>

#include "Corrade/Containers/ArrayView.h"
#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/Debug.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/AbstractShaderProgram.h"

namespace Magnum::Shaders::Implementation {

template<class FlagSet> class Configuration {
public:
    Configuration& setFlags(FlagSet flags) {
        _flags = flags;
        return *this;
    }
    FlagSet flags() const { return _flags; }

private:
    FlagSet _flags;
};

// What all shaders are built with.
class CORRADE_VISIBILITY_EXPORT Program: public GL::AbstractShaderProgram {
protected:
    struct Define {
        bool enabled;
        const char* name;
    };

    Program() = default;
    explicit Program(NoCreateT) noexcept: GL::AbstractShaderProgram{NoCreate} {}

    // Compiles and links GLSL 3.30 sources, the enabled names defined in all of them; no geometry source, no geometry
    // stage. The sources are part of the library, hence a failure aborts.
    void build(std::initializer_list<Define> defines, Containers::StringView vertex, Containers::StringView fragment,
        Containers::StringView geometry = {});

    // Gives a uniform its first value and returns its location: -1, which setUniform() ignores, when the shader as it
    // was built makes no use of the uniform.
    template<class T> Int initialized(Containers::StringView name, const T& value) {
        const Utility::Warning silent{nullptr};
        const Int location = uniformLocation(name);
        setUniform(location, value);
        return location;
    }

    // What a call expects the shader to have been created with.
    struct Feature {
        bool enabled;
        const char* call;
        const char* name;
    };
    static void expect(const Feature& feature);

    template<class Self, class T> static Self& set(Self& self, Int location, const T& value) {
        self.setUniform(location, value);
        return self;
    }
    template<class Self, class T> static Self& set(Self& self, const Feature& feature, Int location, const T& value) {
        expect(feature);
        return set(self, location, value);
    }
};

}
