#include "Import/Converter/AnimationRepair.h"

#include <algorithm>
#include <cmath>

namespace VantrelImport {

namespace {

bool isUsable(const float* value, unsigned components) {
    double square = 0.0;
    for(unsigned i = 0; i != components; ++i) {
        if(!std::isfinite(value[i])) return false;
        square += double(value[i]) * value[i];
    }
    return components != 4 || square > 1.0e-12;
}

} // namespace

bool repair(Channel& channel, const std::string& animation, Messages& messages) {
    const unsigned components = componentsOf(channel.path);
    std::size_t kept = 0;
    for(std::size_t i = 0; i != channel.keys.size(); ++i) {
        const float* const value = channel.values.data() + i * components;
        const bool isAscending = std::isfinite(channel.keys[i]) && (!kept || channel.keys[kept - 1] < channel.keys[i]);
        if(!isAscending || !isUsable(value, components)) continue;
        channel.keys[kept] = channel.keys[i];
        std::copy_n(value, components, channel.values.data() + kept * components);
        ++kept;
    }
    if(kept != channel.keys.size())
        messages.warn(animation + ": " + std::to_string(channel.keys.size() - kept) +
            " keys that do not ascend or are not finite are left out");
    channel.keys.resize(kept);
    channel.values.resize(kept * components);
    return kept != 0;
}

} // namespace VantrelImport
