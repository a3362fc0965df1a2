#pragma once

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractPlugin.h>
#include <Magnum/GL/GL.h>
#include <Magnum/Magnum.h>

namespace VantrelProof {

// What the two libraries and the program agree on.
constexpr char InterfaceName[] = "org.vantrel.proof.AbstractModule/1.1";
constexpr char PluginName[] = "VantrelProofPlugin";
constexpr char PaletteGroup[] = "VantrelProofPalette";
constexpr char LayoutGroup[] = "VantrelProofLayout";

// The interface of the plugin: something that draws a picture with the GL context that is current. Created, used and
// deleted while the same context is current.
class AbstractProof: public Corrade::PluginManager::AbstractPlugin {
public:
    static Corrade::Containers::StringView pluginInterface() {
        return {InterfaceName, sizeof(InterfaceName) - 1, Corrade::Containers::StringViewFlag::Global};
    }
    // Next to the program, wherever that is.
    static Corrade::Containers::Array<Corrade::Containers::String> pluginSearchPaths() {
        return Corrade::Containers::Array<Corrade::Containers::String>{Corrade::InPlaceInit, {"../lib/proof"}};
    }
    // There are no metadata files.
    static Corrade::Containers::StringView pluginMetadataSuffix() { return {}; }

    using AbstractPlugin::AbstractPlugin;

    // Fills `framebuffer` of `size` pixels, colour and depth.
    virtual void draw(Magnum::GL::AbstractFramebuffer& framebuffer, const Magnum::Vector2i& size) = 0;
};

}
