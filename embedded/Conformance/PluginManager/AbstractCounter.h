#pragma once

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractPlugin.h>

// The interface of the plugins under test.
class AbstractCounter: public Corrade::PluginManager::AbstractPlugin {
public:
    static Corrade::Containers::StringView pluginInterface() {
        using namespace Corrade::Containers::Literals;
        return "org.vantrel.Conformance.AbstractCounter/1.0"_s;
    }
    // No metadata files.
    static Corrade::Containers::StringView pluginMetadataSuffix() { return {}; }

    using AbstractPlugin::AbstractPlugin;

    // One more with every call.
    virtual int next() = 0;
};
