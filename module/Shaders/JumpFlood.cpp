#include "Shaders/JumpFlood.h"

#include <algorithm>

#include <Magnum/Math/Vector2.h>

using namespace Magnum;

namespace VantrelEngine::Shaders {

Int jumpFloodSteps(const Vector2i& size, Float width) {
    // In this order a width that is not a number is as good as an endless one.
    const Float reach = std::min(Vector2{size}.length(), width);
    if(reach < 2.0f) return 0;
    Int steps = 0;
    for(UnsignedInt rest = UnsignedInt(reach) - 1; rest; rest >>= 1) ++steps;
    return steps;
}

UnsignedInt jumpFloodSpacing(Int steps, Int step) { return 1u << (steps - 1 - step); }

Int jumpFloodTexture(Int stepsDone) { return stepsDone & 1; }

}
