#include "Import/Converter/Import.h"

#include <algorithm>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/GltfReader.h"
#include "Import/Converter/Images.h"
#include "Import/Converter/LibraryFormats.h"
#include "Import/Converter/LibraryReader.h"
#include "Import/Converter/ModelWriter.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

namespace {

bool isArchive(const std::vector<char>& bytes) { return bytes.size() >= 2 && bytes[0] == 'P' && bytes[1] == 'K'; }

bool isGltf(const std::string& extension) { return extension == "gltf" || extension == "glb"; }

bool isEmpty(const Model& model) {
    return model.meshes.empty() && model.animations.empty() &&
        std::none_of(
            model.nodes.begin(), model.nodes.end(), [](const Node& node) { return node.light || node.camera; });
}

void checkExtension(const std::string& extension) {
    if(isGltf(extension) || isImageExtension(extension) || isLibraryExtension(extension)) return;
    throw Unusable{"files of the type " + quoted('.' + extension) + " cannot be imported"};
}

} // namespace

void importFile(const std::string& source, const std::string& output, std::uint64_t maximumOutput, Messages& messages) {
    const AssetFolder folder{folderOf(source)};
    const std::string file = baseName(source), extension = extensionOf(file);
    const std::string name = nameOr(stemOf(file), "Imported");
    checkExtension(extension);
    messages.progress(0.0, "reading");
    std::string reason;
    auto bytes = folder.readModel(file, reason);
    if(!bytes) throw Unusable{reason};
    if(bytes->empty()) throw Unusable{"the file is empty"};
    if(isArchive(*bytes)) throw Unusable{"archives are not read"};
    messages.progress(0.1, "reading");

    OutputFolder result{output, maximumOutput};
    Model model;
    if(isImageExtension(extension)) {
        // By what it is called in a folder it is found again, so that it is not imported once more.
        auto image = usableImage(nameOr(file, name), std::move(*bytes), reason);
        if(!image) throw Unusable{reason};
        model.images.push_back(std::move(*image));
        writeImage(model, name, result);
    } else {
        if(isGltf(extension))
            readGltf(std::move(*bytes), folder, model, messages);
        else
            readWithLibrary(std::move(*bytes), file, folder, model, messages);
        if(isEmpty(model)) messages.warn("there is nothing in it but objects without components");
        writeModel(model, name, result, messages);
    }
    messages.progress(1.0, "done");
}

} // namespace VantrelImport
