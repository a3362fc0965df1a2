#include "Utilities/PasteObjects.h"

#include <algorithm>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "AssetCompiler.h"
#include "ChangeManager.h"
#include "Import/ConverterLines.h"
#include "Utilities/ClipOrigin.h"
#include "Utilities/PastePlan.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// Lines; a text from elsewhere may name anything.
constexpr std::size_t MaxTold = 100;

std::string pointerTo(const PastePlan::Entry& entry) {
    // New ids have nothing that a pointer would have to escape.
    return '/' + entry.section + '/' + entry.id;
}

// Before anything is done: an edit that is refused later would leave the others behind.
std::string whyRefused(const PastePlan& plan, ProjectFile& project) {
    ProjectFile::EditGuard* const guard = project.editGuard();
    for(const PastePlan::Entry& entry: plan.entries) {
        const std::string reason = guard ? guard->whyRefused(project, pointerTo(entry), entry.value) : std::string{};
        if(!reason.empty()) return entry.section + '/' + entry.id + ": " + shownText(reason);
    }
    return {};
}

void record(const PastePlan& plan, ChangeManager& changes) {
    changes.beginGroup();
    for(const PastePlan::Entry& entry: plan.entries) changes.recordWithParents(pointerTo(entry), *entry.value, false);
    changes.commit();
}

// What is named, and what is to be said of it.
void tell(const std::vector<std::string>& named, const char* what) {
    const std::size_t told = std::min(named.size(), MaxTold);
    for(std::size_t i = 0; i != told; ++i)
        Utility::Warning{} << "What was pasted names" << shownText(named[i]).data() << Utility::Debug::nospace << ","
                           << what;
    if(told != named.size()) Utility::Warning{} << "What was pasted names" << named.size() - told << "more," << what;
}

StringArray objectsOf(const PastePlan& plan) {
    StringArray names;
    std::size_t bytes = 0;
    for(const PastePlan::Entry& entry: plan.entries) bytes += entry.id.size() + 1;
    names.reserve(plan.objectCount, bytes);
    names.setSize(plan.objectCount);
    std::size_t i = 0;
    for(const PastePlan::Entry& entry: plan.entries)
        if(entry.section == "objects") names.set(i++, entry.id);
    return names;
}

std::string idOf(const EditorData& data, Id object) {
    const Containers::StringView id = data.scene().main().objectIds.nameOf(object);
    return {id.data(), id.size()};
}

} // namespace

std::string pasteObjects(
    JsonDocument& clip, ClipSource source, PastePlace place, SharedState& state, StringArray& names) {
    EditorData& data = *state.data;
    std::string parent;
    if(place == PastePlace::BelowFirstSelected) {
        const std::optional<Id> first = data.firstSelectedObject();
        if(!first) return "no object is selected to paste below";
        parent = idOf(data, *first);
    }
    ClipOrigin origin{clip};
    const bool isOther = source == ClipSource::Text && !origin.isProject(data);
    const PastePlan plan = planPaste(clip, data, *state.assetCompiler, parent, isOther ? &origin : nullptr);
    std::string error = plan.error.empty() ? whyRefused(plan, data.project()) : plan.error;
    if(!error.empty() || plan.entries.empty()) return error;
    record(plan, *state.changeManager);
    tell(plan.missing, "which the project does not have");
    tell(plan.leftOut, "which is of another project and left out");
    names = objectsOf(plan);
    return {};
}

} // namespace VantrelEngine
