#include "Import/InsertImport.h"

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Assert.h>

#include "Data/PlacedFiles.h"
#include "Data/ProjectSession.h"
#include "Import/ImportPlan.h"
#include "Import/ImportedScene.h"

namespace VantrelEngine {

namespace {

constexpr const char* EnvironmentSetting = "/settings/rendering/environment";

std::string pointerTo(const ImportPlan::Entry& entry) {
    // Ids that are made here have nothing that a pointer would have to escape.
    return '/' + entry.section + '/' + entry.id;
}

// Before anything is done: an edit that is refused later would leave the others behind.
std::string whyRefused(const ImportPlan& plan, ProjectFile& project) {
    ProjectFile::EditGuard* const guard = project.editGuard();
    for(const ImportPlan::Entry& entry: plan.entries) {
        const std::string reason = guard ? guard->whyRefused(project, pointerTo(entry), entry.value) : std::string{};
        if(!reason.empty()) return entry.section + '/' + entry.id + ": " + reason;
    }
    return {};
}

std::string placeFiles(const ImportPlan& plan, const std::string& from, PlacedFiles& files) {
    for(const std::string& file: plan.files) {
        std::string error = files.add(from + "/files/" + file, ImportedFolder + file);
        if(!error.empty()) return error;
    }
    return {};
}

void recordEnvironment(const std::string& image, ProjectSession& session) {
    JsonAllocator& allocator = session.data().project().allocator();
    JsonValue value{rapidjson::kObjectType};
    value.AddMember("image", JsonValue{image.data(), rapidjson::SizeType(image.size()), allocator}, allocator)
        .AddMember("intensity", 1.0, allocator)
        .AddMember("rotation", 0.0, allocator)
        .AddMember("background", true, allocator);
    session.changes().recordWithParents(EnvironmentSetting, value, false);
}

void record(const ImportPlan& plan, ProjectSession& session) {
    if(plan.entries.empty() && plan.environment.empty()) return;
    ChangeManager& changes = session.changes();
    changes.beginGroup(ImportGesture, false);
    for(const ImportPlan::Entry& entry: plan.entries) changes.recordWithParents(pointerTo(entry), *entry.value, false);
    if(!plan.environment.empty()) recordEnvironment(plan.environment, session);
    changes.commit();
}

void select(const std::vector<std::string>& objects, ProjectSession& session) {
    if(objects.empty()) return;
    session.update();
    session.data().selection().clear();
    for(const std::string& id: objects) session.data().selectObject(session.compiler().objectOf(id), true);
}

} // namespace

InsertedImport insertImport(ImportedScene& scene, ProjectSession& session) {
    CORRADE_ASSERT(
        session.changes().group() < 0, "insertImport(): a group is open. Forgot commit()?", (InsertedImport{}));
    ProjectFile& project = session.data().project();
    ImportPlan plan = planImport(scene, project, session.data().objectIdMode == 1);
    if(plan.error.empty()) plan.error = whyRefused(plan, project);
    if(!plan.error.empty()) return {plan.error, {}, 0};

    const std::string folder = plan.files.empty() ? std::string{} : session.folder();
    if(!plan.files.empty() && folder.empty()) return {"the project has no folder for files", {}, 0};
    PlacedFiles files{folder};
    const std::string error = placeFiles(plan, scene.folder, files);
    if(!error.empty()) return {error, {}, 0};
    files.keep();
    record(plan, session);
    select(plan.roots, session);
    return {{}, plan.roots, plan.objectCount};
}

} // namespace VantrelEngine
