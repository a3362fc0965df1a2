#include "Vantrel/EditorUtilities/Objects.h"

#include <algorithm>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EngineData/ValueAccess.h>

#include "AssetCompiler.h"
#include "ChangeManager.h"
#include "Utilities/EditState.h"
#include "Utilities/SelectedObjects.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Pointers to those that the document has, the last one of the document first: little has to move up then, and undo puts
// them back in their order.
std::vector<std::string> pointersLastFirst(const ProjectFile& project, const std::vector<std::string>& ids) {
    struct Member {
        const JsonValue* value;
        const std::string* id;
    };
    std::vector<Member> members;
    for(const std::string& id: ids)
        if(const JsonValue* const value = project.member("objects", {id.data(), id.size()}))
            members.push_back({value, &id});
    // Members stand one behind the other in memory.
    std::sort(members.begin(), members.end(), [](const Member& a, const Member& b) { return a.value > b.value; });
    std::vector<std::string> pointers;
    const ValueAccess objects = ValueAccess{project}["objects"];
    for(const Member& member: members)
        pointers.push_back(objects.withValue({member.id->data(), member.id->size()}, *member.value).path());
    return pointers;
}

// Nobody selected those: they go with what is above them.
void tellLocked(const EditorData& data, const std::vector<Id>& objects) {
    std::size_t count = 0;
    for(const Id object: objects) count += data.marks().isLocked(object);
    if(count)
        Utility::Warning{} << "Deleted" << count << (count == 1 ? "locked object" : "locked objects")
                           << "with what was above; undo brings back all";
}

} // namespace

void deleteSelectedObjects(VantrelEditor& editor) {
    SharedState& state = editor.state();
    if(!canEdit(state)) return;
    const EditorData& data = upToDate(state);
    const std::vector<Id> objects = selectedTrees(data);
    const std::vector<std::string> pointers = pointersLastFirst(data.project(), idsOf(data, objects));
    if(pointers.empty()) return;
    tellLocked(data, objects);
    state.changeManager->beginGroup();
    for(const std::string& pointer: pointers)
        state.changeManager->recordChange({pointer.data(), pointer.size()}, nullptr, false);
    state.changeManager->commit();
}

void selectObjects(VantrelEditor& editor, const StringArray& names, bool additive, bool tellsMissing) {
    EditorData& data = *editor.state().data;
    if(!additive) data.selection().clear();
    for(std::size_t i = 0; i != names.size(); ++i) {
        const Id object = editor.state().assetCompiler->objectOf(names[i]);
        if(object != RootObject)
            data.selectObject(object, true);
        else if(tellsMissing)
            Utility::Warning{} << "The scene has no object" << names[i] << Utility::Debug::nospace
                               << ", it cannot be selected";
    }
}

void compileAndSelect(VantrelEditor& editor, const StringArray& names) {
    if(!names.size()) return;
    Containers::Array<Containers::StringView> ids{ValueInit, names.size()};
    for(std::size_t i = 0; i != names.size(); ++i) ids[i] = names[i];
    editor.state().assetCompiler->compileObjects(ids, true);
    selectObjects(editor, names, false, true);
}

} // namespace VantrelEngine
