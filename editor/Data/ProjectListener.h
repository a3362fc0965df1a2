#pragma once

#include <Corrade/Utility/VisibilityMacros.h>

#include "ChangeManager.h"

namespace VantrelEngine {

class AssetCompiler;
class EditorData;
class ResourceCompiler;

// Hears of each change of the project document and notes what has to be compiled again: these objects, these resources,
// these settings. Compiles nothing by itself, so that many changes of a thing between two frames cost one compilation.
class CORRADE_VISIBILITY_EXPORT ProjectListener final: public ChangeListener {
public:
    explicit ProjectListener(EditorData& data, AssetCompiler& objects, ResourceCompiler& resources);

    // For each top-level key that something is compiled from. Not owned by the manager; the caller compiles its listeners.
    void registerWith(ChangeManager& changes);

    void onChange(const Change& change,
        Corrade::Containers::ArrayView<const Corrade::Containers::StringView> components) override;

private:
    void onObjectChange(Corrade::Containers::ArrayView<const Corrade::Containers::StringView> components);
    void onResourceChange(
        std::size_t kind, Corrade::Containers::ArrayView<const Corrade::Containers::StringView> components);

    EditorData& _data;
    AssetCompiler& _objects;
    ResourceCompiler& _resources;
};

} // namespace VantrelEngine
