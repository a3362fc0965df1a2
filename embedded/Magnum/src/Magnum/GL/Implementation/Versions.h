#pragma once

#include "Magnum/GL/GL.h"

namespace Magnum::GL::Implementation {

// One of the enumerators, None excepted.
bool isKnownVersion(Version version);

}
