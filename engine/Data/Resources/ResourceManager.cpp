#include "Vantrel/EngineData/ResourceManager.h"

#include <map>

#include "Data/Resources/FolderResource.h"

namespace VantrelEngine {

using namespace Corrade;

struct ResourceManager::State {
    std::map<std::string, std::unique_ptr<Resource>> assets;
};

Resource::~Resource() = default;

ResourceManager::ResourceManager(): _state{std::make_unique<State>()} {}

ResourceManager::~ResourceManager() = default;

void ResourceManager::setProjectFolder(std::string folder) {
    addAsset({}, std::make_unique<FolderResource>(std::move(folder)));
}

void ResourceManager::forgetProjectFolder() { _state->assets.erase(std::string{}); }

void ResourceManager::addAsset(std::string name, std::unique_ptr<Resource> files) {
    _state->assets[std::move(name)] = std::move(files);
}

const Resource* ResourceManager::resolveLink(const FileLink& link) const {
    const auto found = _state->assets.find(link.asset);
    return found == _state->assets.end() ? nullptr : found->second.get();
}

std::optional<Containers::Array<char>> ResourceManager::read(
    const FileLink& link, std::size_t limit, std::string& reason) const {
    if(const Resource* const files = resolveLink(link))
        return files->get({link.file.data(), link.file.size()}, limit, reason);
    reason = link.asset.empty() ? "the project has no folder" : "there is no asset \"" + link.asset + '"';
    return {};
}

} // namespace VantrelEngine
