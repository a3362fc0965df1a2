#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/IdMap.h"
#include "Vantrel/EngineData/Types.h"

namespace VantrelEngine {

// In the order in which they lean on each other: a texture on its image, a pipeline on its shader, a material on its
// pipeline and its textures.
enum class ResourceKind : std::uint8_t { Image, Texture, Shader, Pipeline, Material, Mesh, Skin, Animation, Font };
constexpr std::size_t ResourceKindCount = 9;

// The top-level key of the document under which the resources of a kind stand: "images", ...
CORRADE_VISIBILITY_EXPORT Corrade::Containers::StringView resourceSection(ResourceKind kind);
// ResourceKindCount for a key that names no kind.
CORRADE_VISIBILITY_EXPORT std::size_t resourceKindOf(Corrade::Containers::StringView section);

class ResourceNode;

// What uses resources, and what has to be compiled again when one of them changes: an object of the scene, or another
// resource.
class CORRADE_VISIBILITY_EXPORT ResourceUser {
public:
    ResourceUser(const ResourceUser&) = delete;
    ResourceUser& operator=(const ResourceUser&) = delete;

    // Whether it is a resource; else it is an object.
    bool isResource() const { return _isResource; }

    // Notes a use; several of the same resource are several uses. Amortised constant time.
    void use(ResourceNode& resource);
    // Forgets all uses. Costs a step for each.
    void forgetUses();
    std::size_t useCount() const { return _uses.size(); }

    // The id string in the document.
    const std::string id;

protected:
    explicit ResourceUser(std::string id, bool isResource): id{std::move(id)}, _isResource{isResource} {}
    ~ResourceUser() { forgetUses(); }

private:
    friend ResourceNode;

    // A resource, and the place among its users.
    struct Use {
        ResourceNode* resource;
        std::uint32_t position;
    };

    std::vector<Use> _uses;
    const bool _isResource;
};

// A resource that the document has, or that something names.
class CORRADE_VISIBILITY_EXPORT ResourceNode: public ResourceUser {
public:
    explicit ResourceNode(std::string id): ResourceUser{std::move(id), true} {}
    ~ResourceNode();

    // Calls with each user; one that uses the resource twice comes twice.
    template<class Function> void forEachUser(Function&& function) const {
        for(const User& user: _users) function(*user.user);
    }
    std::size_t userCount() const { return _users.size(); }

    // Place in the scene's list of resources of this kind; 0 where the resource is not compiled.
    Id index = 0;
    ResourceKind kind = ResourceKind::Image;

private:
    friend ResourceUser;

    // A user, and the place among its uses.
    struct User {
        ResourceUser* user;
        std::uint32_t position;
    };

    std::vector<User> _users;
};

// From id strings to runtime indices, by kind. Naming an id that is not there adds it with index 0, so that who uses a
// resource that comes later is found.
class CORRADE_VISIBILITY_EXPORT ResourceMaps {
public:
    ResourceNode& node(ResourceKind kind, Corrade::Containers::StringView id) {
        ResourceNode& node = _maps[std::size_t(kind)][id];
        node.kind = kind;
        return node;
    }
    ResourceNode* find(ResourceKind kind, Corrade::Containers::StringView id) const {
        return _maps[std::size_t(kind)].find(id);
    }
    const IdMap<ResourceNode>& of(ResourceKind kind) const { return _maps[std::size_t(kind)]; }
    IdMap<ResourceNode>& of(ResourceKind kind) { return _maps[std::size_t(kind)]; }

private:
    IdMap<ResourceNode> _maps[ResourceKindCount];
};

} // namespace VantrelEngine
