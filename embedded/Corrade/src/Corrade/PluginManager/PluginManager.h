#pragma once

// Forward declarations for the Corrade::PluginManager namespace.

namespace Corrade::PluginManager {

enum class LoadState : unsigned short;
class AbstractManager;
class AbstractPlugin;
class PluginMetadata;
template<class> class Manager;

namespace Implementation {
struct PluginEntry;
}

}
