#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/ResourceHandlers.h"

namespace VantrelEngine {

using namespace Corrade;

Id ResourceContext::use(ResourceNode& user, const ResourceEntry& entry, ResourceKind kind, Containers::StringView id) {
    if(id.isEmpty()) return 0;
    ResourceNode& used = maps.node(kind, id);
    user.use(used);
    if(!used.index) entry.report(std::string{resourceSection(kind)} + '/' + std::string{id} + " is not there");
    return used.index;
}

} // namespace VantrelEngine
