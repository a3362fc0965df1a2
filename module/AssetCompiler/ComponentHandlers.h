#pragma once

#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ResourceMaps.h>
#include <Vantrel/EngineData/ValueAccess.h>

#include "AssetCompiler/ObjectNode.h"

namespace VantrelEngine {

class AssetCompiler;

// One component of the document that is to be compiled, and what its handler needs.
struct ComponentTask {
    AssetCompiler& compiler;
    EditorData& data;
    Scene& scene;
    ObjectNode& node;
    // The component: "type", "active", and a member named after the type.
    const ValueAccess& json;
    // Among the components of the object.
    int position;
    // The runtime component to use again, or 65,535 to make one.
    Id component;

    Id object() const { return node.object; }
    // Whether the component is to work, by default it is.
    bool isActive() const { return json["active"].readValue().asBool(true, JsonObject::WhenMissing::Accept); }
    // Makes the component if there is none yet. False where the manager is full: then the handler stops.
    bool ensureComponent(ComponentManager& manager);
    // Says that a renderer has to look at the scene again in this respect.
    void changed(Aspect aspect) const;
    // Position of a name in a list. An unknown one stands in the list of problems and is read as the first.
    Magnum::UnsignedByte enumValue(Corrade::Containers::StringView name,
        Corrade::Containers::ArrayView<const Corrade::Containers::StringView> names) const;
    // Tells whoever looks at the list of problems. Whether it is news: a line is printed for those only, or dragging a
    // value of a component that does not work would print one each frame.
    bool problem(std::string reason) const;
    // Runtime index of a resource, 0 where it is not compiled. The object is compiled again when that changes.
    Id resource(ResourceKind kind, Corrade::Containers::StringView id) const;
};

// Each fills the runtime component from the document.
void compileCollision(ComponentTask& task);
void compileInput(ComponentTask& task);
void compileView(ComponentTask& task);
void compileLight(ComponentTask& task);
void compileMesh(ComponentTask& task);
// The type is the name of a script.
void compileJavaScript(ComponentTask& task);

// A type of component with properties of its own. Types that are not in the table are names of scripts.
struct ComponentType {
    Corrade::Containers::StringView name;
    // Null for a type that is known and that cannot be compiled yet.
    void (*compile)(ComponentTask&);
};

// Null for the name of a script.
const ComponentType* componentType(Corrade::Containers::StringView name);

} // namespace VantrelEngine
