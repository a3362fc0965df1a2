#include "Vantrel/EngineData/RapidJsonUtils.h"

#include <algorithm>

#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

using namespace Corrade;

std::size_t RapidJsonUtils::enumStringToValue(
    Containers::StringView text, Containers::ArrayView<const Containers::StringView> names) {
    const auto* const found = std::find(names.begin(), names.end(), text);
    if(found != names.end()) return std::size_t(found - names.begin());
    Utility::Warning line;
    line << "RapidJsonUtils::enumStringToValue():" << text << "is none of";
    for(const Containers::StringView name: names) line << name;
    return 0;
}

} // namespace VantrelEngine
