#include "Magnum/GL/Version.h"

#include "Corrade/Utility/Debug.h"
#include "Magnum/GL/Implementation/Versions.h"

namespace Magnum::GL {

bool Implementation::isKnownVersion(Version version) {
    switch(version) {
    case Version::GL210:
    case Version::GL300:
    case Version::GL310:
    case Version::GL320:
    case Version::GL330:
    case Version::GL400:
    case Version::GL410:
    case Version::GL420:
    case Version::GL430:
    case Version::GL440:
    case Version::GL450:
    case Version::GL460: return true;
    case Version::None: break;
    }
    return false;
}

Debug& operator<<(Debug& debug, Version value) {
    if(value == Version::None) return debug << "None";
    if(!Implementation::isKnownVersion(value))
        return debug << "Invalid(" << Debug::nospace << Debug::hex << UnsignedInt(value) << Debug::nospace << ")";
    return debug << "OpenGL" << Int(value) / 100 << Debug::nospace << "." << Debug::nospace << Int(value) % 100 / 10;
}

}
