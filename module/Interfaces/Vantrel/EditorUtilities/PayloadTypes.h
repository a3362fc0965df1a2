#pragma once

#include <cstdlib>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

// What the UI library calls the things that are dragged from one window to another. The data of each is a text with its
// zero byte: the id of the resource or object in the document, or the path of a file.
struct PayloadType {
    // The section of the document.
    const char* kind;
    const char* type;
};

constexpr PayloadType PayloadTypes[]{{"meshes", "DND_MESH"}, {"textures", "DND_TEXTURE"}, {"shaders", "DND_SHADER"},
    {"materials", "DND_MATERIAL"}, {"images", "DND_IMAGE"}, {"animations", "DND_ANIMATION"}, {"skins", "DND_SKIN"},
    {"pipelines", "DND_PIPELINE"}, {"objects", "DND_OBJECT"}, {"fonts", "DND_FONT"}};

// Of files, from the asset browser and from outside.
constexpr const char* FilePayloadType = "DND_ASSET_CELL";

// The type of a kind of the table. Any other kind is a mistake of the caller, and ends the process.
inline const char* payloadTypeOf(Corrade::Containers::StringView kind) {
    for(const PayloadType& payload: PayloadTypes)
        if(kind == payload.kind) return payload.type;
    Corrade::Utility::Error{} << "Ui::acceptDragDropResources(): resource type" << kind << "unsupported.";
    std::abort();
}

} // namespace VantrelEngine
