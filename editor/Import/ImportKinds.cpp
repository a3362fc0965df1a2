#include "Import/ImportKinds.h"

#include <algorithm>
#include <cctype>

namespace VantrelEngine {

namespace {

std::string lowerSuffix(const std::string& path) {
    const std::size_t dot = path.find_last_of("./");
    if(dot == path.npos || path[dot] == '/') return {};
    std::string suffix = path.substr(dot);
    for(char& c: suffix) c = char(std::tolower(static_cast<unsigned char>(c)));
    return suffix;
}

bool isOneOf(const std::vector<std::string>& suffixes, const std::string& path) {
    return std::find(suffixes.begin(), suffixes.end(), lowerSuffix(path)) != suffixes.end();
}

} // namespace

const std::vector<std::string>& modelSuffixes() {
    static const std::vector<std::string> suffixes{".gltf", ".glb", ".obj", ".fbx", ".ply", ".stl", ".dae"};
    return suffixes;
}

const std::vector<std::string>& imageSuffixes() {
    static const std::vector<std::string> suffixes{".png", ".jpg", ".jpeg", ".tga", ".bmp", ".hdr"};
    return suffixes;
}

std::vector<std::string> importedSuffixes() {
    std::vector<std::string> suffixes = modelSuffixes();
    suffixes.insert(suffixes.end(), imageSuffixes().begin(), imageSuffixes().end());
    return suffixes;
}

bool isImageFile(const std::string& path) { return isOneOf(imageSuffixes(), path); }

bool isModelFile(const std::string& path) { return isOneOf(modelSuffixes(), path); }

bool isImportable(const std::string& path) { return isModelFile(path) || isImageFile(path); }

} // namespace VantrelEngine
