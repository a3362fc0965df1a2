#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace VantrelEngine {

class ProjectFile;

// A kind of resource as the panel shows it.
struct ResourceTab {
    // The section of the document.
    const char* section;
    const char* title;
};
constexpr ResourceTab ResourceTabs[]{{"materials", "Materials"}, {"textures", "Textures"}, {"images", "Images"},
    {"meshes", "Meshes"}, {"pipelines", "Pipelines"}, {"shaders", "Shaders"}, {"animations", "Animations"},
    {"skins", "Skins"}, {"fonts", "Fonts"}};

// A resource of the document; valid until the next change.
struct ResourceRow {
    std::string id, name;
};

std::size_t resourceCount(const ProjectFile& project, const char* section);
// The one at a position of its section, in constant time. Its name is its id where it has none.
ResourceRow resourceAt(const ProjectFile& project, const char* section, std::size_t position);
// Positions of those whose name or id holds the text, upper and lower case alike. Linear.
std::vector<std::size_t> searchResources(const ProjectFile& project, const char* section, const std::string& text);
// The id of the image of a texture; empty where it has none.
std::string imageOfTexture(const ProjectFile& project, const std::string& texture);

} // namespace VantrelEngine
