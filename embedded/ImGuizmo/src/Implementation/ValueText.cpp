#include "Implementation/ValueText.h"

#include <cmath>
#include <cstdio>

#include <Magnum/Math/Angle.h>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

typedef Handle::Kind Kind;

constexpr char Names[]{'X', 'Y', 'Z'};

// Without the sign that a value has which is shown as zero.
Double unsignedZero(Double value, Double resolution) { return std::abs(value) < 0.5 * resolution ? 0.0 : value; }

bool movesAlong(Handle handle, int axis) {
    if(handle.kind == Kind::MoveAxis) return handle.axis == axis;
    return handle.kind != Kind::MovePlane || handle.axis != axis;
}

ValueText moveText(const Drag& drag, const Motion& motion) {
    ValueText out{};
    std::size_t length = 0;
    for(int axis = 0; axis != 3; ++axis) {
        if(!movesAlong(drag.handle, axis) || length >= out.size()) continue;
        const Double way = unsignedZero(Math::dot(motion.displacement, drag.axes[std::size_t(axis)]), 0.001);
        length += std::size_t(
            std::snprintf(out.data() + length, out.size() - length, "%s%c %.3f", length ? "  " : "", Names[axis], way));
    }
    return out;
}

ValueText turnText(const Drag& drag, const Motion& motion) {
    ValueText out{};
    const Double angle = unsignedZero(Double(Math::Deg<Double>{Math::Rad<Double>{motion.angle}}), 0.1);
    if(drag.handle.kind == Kind::TurnAxis)
        std::snprintf(out.data(), out.size(), "%c %.1f\u00b0", Names[drag.handle.axis], angle);
    else
        std::snprintf(out.data(), out.size(), "%.1f\u00b0", angle);
    return out;
}

ValueText scaleText(const Drag& drag, const Motion& motion) {
    ValueText out{};
    const Double factor = motion.factors[std::size_t(drag.handle.axis)];
    if(drag.handle.kind == Kind::ScaleAxis)
        std::snprintf(out.data(), out.size(), "%c %.3f", Names[drag.handle.axis], factor);
    else
        std::snprintf(out.data(), out.size(), "%.3f", factor);
    return out;
}

} // namespace

ValueText valueText(const Drag& drag, const Motion& motion) {
    if(drag.handle.isMove()) return moveText(drag, motion);
    return drag.handle.isTurn() ? turnText(drag, motion) : scaleText(drag, motion);
}

}
