#include "Magnum/Trade/Data.h"

#include "Corrade/Containers/EnumSet.hpp"
#include "Magnum/Implementation/EnumDebug.h"

namespace Magnum::Trade {

Debug& operator<<(Debug& debug, DataFlag value) {
    switch(value) {
    case DataFlag::Owned: return debug << "Trade::DataFlag::Owned";
    case DataFlag::Mutable: return debug << "Trade::DataFlag::Mutable";
    case DataFlag::ExternallyOwned: return debug << "Trade::DataFlag::ExternallyOwned";
    case DataFlag::Global: return debug << "Trade::DataFlag::Global";
    }
    return Magnum::Implementation::printUnknownEnum(debug, "Trade::DataFlag", value);
}

Debug& operator<<(Debug& debug, DataFlags value) {
    return Containers::enumSetDebugOutput(debug, value, "Trade::DataFlags{}",
        {DataFlag::Owned, DataFlag::ExternallyOwned, DataFlag::Global, DataFlag::Mutable});
}

}
