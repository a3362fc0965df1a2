#include "Magnum/Animation/Interpolation.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/Implementation/EnumDebug.h"

namespace Magnum::Animation {

Debug& operator<<(Debug& debug, Interpolation value) {
    static constexpr const char* Names[]{"Constant", "Linear", "Spline", "Custom"};
    return Magnum::Implementation::printEnum(debug, "Animation::Interpolation", Names, 0, value);
}

Debug& operator<<(Debug& debug, Extrapolation value) {
    static constexpr const char* Names[]{"Extrapolated", "Constant", "DefaultConstructed"};
    return Magnum::Implementation::printEnum(debug, "Animation::Extrapolation", Names, 0, value);
}

bool Implementation::isLinear(Interpolation interpolation) {
    CORRADE_ASSERT(interpolation == Interpolation::Linear || interpolation == Interpolation::Constant,
        "Animation::interpolatorFor(): can't deduce interpolator function for" << interpolation, {});
    return interpolation == Interpolation::Linear;
}

}
