#include "Vantrel/EngineData/ResourceMaps.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Containers::Literals;

namespace {

constexpr Containers::StringView Sections[ResourceKindCount]{"images"_s, "textures"_s, "shaders"_s, "pipelines"_s,
    "materials"_s, "meshes"_s, "skins"_s, "animations"_s, "fonts"_s};

} // namespace

Containers::StringView resourceSection(ResourceKind kind) { return Sections[std::size_t(kind)]; }

std::size_t resourceKindOf(Containers::StringView section) {
    std::size_t kind = 0;
    while(kind != ResourceKindCount && Sections[kind] != section) ++kind;
    return kind;
}

void ResourceUser::use(ResourceNode& resource) {
    _uses.push_back({&resource, std::uint32_t(resource._users.size())});
    resource._users.push_back({this, std::uint32_t(_uses.size() - 1)});
}

// The two halves of a use know each other's place. One half is taken out by putting the last of its list there, whose
// other half is told.

void ResourceUser::forgetUses() {
    while(!_uses.empty()) {
        const Use use = _uses.back();
        _uses.pop_back();
        auto& users = use.resource->_users;
        if(use.position != users.size() - 1) {
            users[use.position] = users.back();
            users[use.position].user->_uses[users[use.position].position].position = use.position;
        }
        users.pop_back();
    }
}

ResourceNode::~ResourceNode() {
    while(!_users.empty()) {
        const User user = _users.back();
        _users.pop_back();
        auto& uses = user.user->_uses;
        if(user.position != uses.size() - 1) {
            uses[user.position] = uses.back();
            uses[user.position].resource->_users[uses[user.position].position].position = user.position;
        }
        uses.pop_back();
    }
}

} // namespace VantrelEngine
