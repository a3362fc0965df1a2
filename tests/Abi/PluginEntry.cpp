// The entry points of the plugin, by hand instead of CORRADE_PLUGIN_REGISTER(): without memory for an instance the
// answer is null, as the program has no use for exceptions out of a plugin.

#include <memory>
#include <new>

#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractManager.h>

#include "AbstractProof.h"
#include "ProofScene.h"

using namespace Corrade;

namespace VantrelProof {

namespace {

class Proof: public AbstractProof {
public:
    using AbstractProof::AbstractProof;

private:
    void draw(Magnum::GL::AbstractFramebuffer& framebuffer, const Magnum::Vector2i& size) override {
        if(!_scene) _scene = std::make_unique<ProofScene>();
        _scene->draw(framebuffer, size);
    }

    std::unique_ptr<ProofScene> _scene;
};

}

}

extern "C" {

CORRADE_PLUGIN_EXPORT int pluginVersion();
CORRADE_PLUGIN_EXPORT const char* pluginInterface();
CORRADE_PLUGIN_EXPORT void pluginInitializer();
CORRADE_PLUGIN_EXPORT void pluginFinalizer();
CORRADE_PLUGIN_EXPORT void* pluginInstancer(
    PluginManager::AbstractManager& manager, const Containers::StringView& plugin);

int pluginVersion() { return CORRADE_PLUGIN_VERSION; }

const char* pluginInterface() { return VantrelProof::InterfaceName; }

void pluginInitializer() { PluginManager::AbstractPlugin::initialize(); }

void pluginFinalizer() { PluginManager::AbstractPlugin::finalize(); }

void* pluginInstancer(PluginManager::AbstractManager& manager, const Containers::StringView& plugin) {
    return new(std::nothrow) VantrelProof::Proof{manager, plugin};
}
}
