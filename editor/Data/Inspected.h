#pragma once

#include <string>

namespace VantrelEngine {

// A resource that the inspector shows, by its section ("materials") and its id; without a kind it shows what is selected.
struct InspectedResource {
    std::string kind, id;
};

} // namespace VantrelEngine
