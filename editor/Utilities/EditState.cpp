#include "Utilities/EditState.h"

#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "AssetCompiler.h"
#include "ChangeManager.h"

namespace VantrelEngine {

bool canEdit(const SharedState& state) {
    return state.changeManager->group() < 0 && state.changeManager->trial() == Trial::None;
}

EditorData& upToDate(SharedState& state) {
    if(state.assetCompiler->isPending()) state.assetCompiler->compilePending();
    return *state.data;
}

std::vector<std::string> idsOf(const EditorData& data, const std::vector<Id>& objects) {
    std::vector<std::string> ids;
    ids.reserve(objects.size());
    for(const Id object: objects) {
        const auto id = data.scene().main().objectIds.nameOf(object);
        ids.emplace_back(id.data(), id.size());
    }
    return ids;
}

} // namespace VantrelEngine
