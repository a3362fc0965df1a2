#pragma once

#include "Magnum/Magnum.h"

// The extensions that Context::isExtensionSupported() knows, named like the GL strings without their prefix.

namespace Magnum::GL::Extensions {

namespace ARB {
struct separate_shader_objects {
    enum : UnsignedInt { Index = 0 };
};
struct texture_storage {
    enum : UnsignedInt { Index = 1 };
};
struct shader_draw_parameters {
    enum : UnsignedInt { Index = 5 };
};
}

namespace EXT {
struct texture_filter_anisotropic {
    enum : UnsignedInt { Index = 2 };
};
}

namespace KHR {
struct debug {
    enum : UnsignedInt { Index = 3 };
};
struct parallel_shader_compile {
    enum : UnsignedInt { Index = 4 };
};
}

}
