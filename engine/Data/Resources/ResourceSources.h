#pragma once

#include <string>
#include <vector>

#include <Vantrel/EngineData/FileLink.h>
#include <Vantrel/EngineData/ResourceMaps.h>

namespace VantrelEngine {

// What the contents of a resource were made from.
struct ResourceSource {
    FileLink link;
    // Of a mesh without a file.
    std::string shape;

    bool operator==(const ResourceSource& other) const {
        return link.asset == other.link.asset && link.file == other.link.file && shape == other.shape;
    }
    bool isNone() const { return link.file.empty() && shape.empty(); }
};

// The sources of the resources that are compiled, so that none is read again when something else of the resource was
// edited. None for a resource whose source could not be used.
class ResourceSources {
public:
    // While this is set all are read again.
    void setReadingAgain(bool again) { _isReadingAgain = again; }

    bool isCurrent(const ResourceNode& node, const ResourceSource& source) const {
        return !_isReadingAgain && !source.isNone() && of(node) == source;
    }
    // Whether the contents are those of a source.
    bool has(const ResourceNode& node) const { return !of(node).isNone(); }

    void set(const ResourceNode& node, ResourceSource source) {
        auto& sources = _sources[std::size_t(node.kind)];
        if(sources.size() <= node.index) sources.resize(node.index + std::size_t{1});
        sources[node.index] = std::move(source);
    }

private:
    const ResourceSource& of(const ResourceNode& node) const {
        static const ResourceSource none;
        const auto& sources = _sources[std::size_t(node.kind)];
        return node.index < sources.size() ? sources[node.index] : none;
    }

    std::vector<ResourceSource> _sources[ResourceKindCount];
    bool _isReadingAgain = false;
};

} // namespace VantrelEngine
