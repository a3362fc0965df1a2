#include "Import/Converter/LibraryFormats.h"

#include <algorithm>
#include <set>
#include <string_view>

#include <assimp/BaseImporter.h>
#include <assimp/Importer.hpp>

namespace VantrelImport {

namespace {

constexpr std::string_view Extensions[]{"obj", "fbx", "ply", "stl", "dae"};

} // namespace

bool isLibraryExtension(const std::string& extension) {
    return std::find(std::begin(Extensions), std::end(Extensions), extension) != std::end(Extensions);
}

void keepOneReader(Assimp::Importer& importer, const std::string& extension) {
    for(std::size_t i = importer.GetImporterCount(); i-- != 0;) {
        Assimp::BaseImporter* const reader = importer.GetImporter(i);
        std::set<std::string> known;
        reader->GetExtensionList(known);
        if(known.count(extension)) continue;
        importer.UnregisterLoader(reader);
        delete reader;
    }
}

} // namespace VantrelImport
