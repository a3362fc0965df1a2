#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/FileLink.h"

namespace VantrelEngine {

// Where the files of an asset come from: a folder, or what is compiled in.
class CORRADE_VISIBILITY_EXPORT Resource {
public:
    virtual ~Resource();

    // The whole file. None where it cannot be had; reason then says why, in words that continue "NAME: ". A file of more
    // bytes than the limit is not read.
    virtual std::optional<Corrade::Containers::Array<char>> get(
        Corrade::Containers::StringView file, std::size_t limit, std::string& reason) const = 0;
};

// Finds the files that the document refers to.
class CORRADE_VISIBILITY_EXPORT ResourceManager {
public:
    // No files at all, until a folder is set or an asset is added.
    explicit ResourceManager();
    ~ResourceManager();
    ResourceManager(const ResourceManager&) = delete;
    ResourceManager& operator=(const ResourceManager&) = delete;

    // Where the files of the project are; asset "". Links cannot lead out of it, symbolic ones included.
    void setProjectFolder(std::string folder);
    // The project has no files.
    void forgetProjectFolder();
    // Takes the place of an asset of this name.
    void addAsset(std::string name, std::unique_ptr<Resource> files);

    // Null for an asset that is not known.
    const Resource* resolveLink(const FileLink& link) const;

    // The whole file of a link, see Resource::get().
    std::optional<Corrade::Containers::Array<char>> read(
        const FileLink& link, std::size_t limit, std::string& reason) const;

private:
    struct State;
    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
