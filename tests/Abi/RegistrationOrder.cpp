// Stands between the two resource groups in the list of sources, and so between their static initialisers. Tells on
// the debug output which of them are there while the library is loaded and while it is unloaded: the first one only,
// if they come in order and go in the reverse.

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Corrade/Utility/Resource.h>

#include "AbstractProof.h"

using namespace Corrade;

namespace VantrelProof {

namespace {

void report(const char* when) {
    Utility::Debug{} << when << Utility::Resource::hasGroup(PaletteGroup) << Utility::Resource::hasGroup(LayoutGroup);
}

const struct Witness {
    Witness() { report("load"); }
    ~Witness() { report("unload"); }
} witness;

}

}
