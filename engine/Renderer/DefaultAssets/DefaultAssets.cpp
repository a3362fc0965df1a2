#include "Renderer/DefaultAssets/DefaultAssets.h"

#include <Corrade/Utility/Algorithms.h>
#include <Corrade/Utility/Resource.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr const char* Group = "VantrelDefaultAssets";

} // namespace

std::optional<Containers::Array<char>> DefaultAssets::get(
    Containers::StringView file, std::size_t limit, std::string& reason) const {
    const Utility::Resource files{Group};
    if(!files.hasFile(file)) {
        reason = "the engine has no such file";
        return {};
    }
    const Containers::ArrayView<const char> contents = files.getRaw(file);
    if(contents.size() > limit) {
        reason = "the file has " + std::to_string(contents.size()) + " bytes, more than " + std::to_string(limit);
        return {};
    }
    Containers::Array<char> copy{NoInit, contents.size()};
    Utility::copy(contents, copy);
    return copy;
}

Containers::StringView defaultAsset(Containers::StringView file) { return Utility::Resource{Group}.getString(file); }

} // namespace VantrelEngine
