#include "Import/InsertImport.h"

#include <algorithm>
#include <chrono>

#include <Corrade/Containers/StringStl.h>
#include <VantrelHost/ResourceCompiler.h>

#include "Data/PlacedFiles.h"
#include "Data/ProjectSession.h"
#include "Import/ImportPlan.h"
#include "Import/PlaceImport.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr const char* EnvironmentSetting = "/settings/rendering/environment";
constexpr const char* NoFolder = "the project has no folder for files";

// Where each part begins on the way from 0 to 1.
constexpr float PlacingBegins = 0.2f;
constexpr float CompilingBegins = 0.4f;

// How long a wait is.
constexpr std::chrono::milliseconds WaitTime{20};

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

std::string placeFiles(const std::set<std::string>& names, const std::string& from, PlacedFiles& files) {
    for(const std::string& name: names) {
        std::string error = files.add(from + "/files/" + name, ImportedFolder + name, PlacedFiles::Source::Given);
        if(!error.empty()) return error;
    }
    files.flush();
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
    session.data().selection().clear();
    for(const std::string& id: objects) session.data().selectObject(session.compiler().objectOf(id), true);
}

} // namespace

InsertImport::InsertImport(ProjectSession& session, std::string folder, ImportInto into,
    const std::optional<Vector3>& place, ImportOnTrial onTrial):
    _session(session),
    _into{into}, _place{place}, _onTrial{onTrial}, _work{std::async(std::launch::async,
                                                       [this, folder] { return readImportedScene(folder, _scene); })} {}

InsertImport::~InsertImport() {
    if(_files) _files->cancel();
    if(_work.valid()) _work.wait();
}

bool InsertImport::isReady() const { return _work.wait_for(std::chrono::seconds{0}) == std::future_status::ready; }

void InsertImport::wait() {
    if(_work.valid()) _work.wait_for(WaitTime);
}

bool InsertImport::waitsForChanges() const {
    if(_stage != Stage::Placing || (_work.valid() && !isReady())) return false;
    const ChangeManager& changes = _session.changes();
    return changes.group() >= 0 || (_onTrial == ImportOnTrial::Waits && changes.trial() != Trial::None);
}

bool InsertImport::step(double seconds) {
    switch(_stage) {
    case Stage::Reading: return !isReady() || beginFiles();
    case Stage::Placing:
        if((_work.valid() && !isReady()) || waitsForChanges()) return true;
        return insert() && compile(seconds);
    case Stage::Compiling: return compile(seconds);
    case Stage::Done: break;
    }
    return false;
}

bool InsertImport::fail(std::string error) {
    _result.error = std::move(error);
    _files.reset();
    _stage = Stage::Done;
    return false;
}

bool InsertImport::beginFiles() {
    std::string error = _work.get();
    if(!error.empty()) return fail(std::move(error));
    if(_into == ImportInto::NewProject) _session.startNew();
    _stage = Stage::Placing;
    place();
    return true;
}

void InsertImport::place() {
    const std::set<std::string> names = filesOf(_scene);
    if(names.empty()) return;
    _folder = _session.folder();
    _files = std::make_unique<PlacedFiles>(_folder);
    _work = std::async(std::launch::async,
        [this, names] { return _folder.empty() ? std::string{NoFolder} : placeFiles(names, _scene.folder, *_files); });
}

// True where there is something to be compiled, or where it has to go on later.
bool InsertImport::insert() {
    std::string error = _work.valid() ? _work.get() : std::string{};
    if(!error.empty()) return fail(std::move(error));
    // The project was saved elsewhere meanwhile.
    if(_files && _session.folder() != _folder) return place(), true;
    ProjectFile& project = _session.data().project();
    const ImportPlan plan = planImport(_scene, project, _session.data().objectIdMode == 1);
    error = plan.error.empty() ? whyRefused(plan, project) : plan.error;
    if(!error.empty()) return fail(std::move(error));
    if(_files) _files->keep();
    record(plan, _session);
    _result = {{}, plan.roots, plan.objectCount, {}};
    _session.beginUpdate();
    _resourceCount = _session.resourceCompiler().remainingCount();
    _stage = Stage::Compiling;
    return true;
}

bool InsertImport::compile(double seconds) {
    if(_stage != Stage::Compiling) return _stage != Stage::Done;
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>{seconds};
    do {
        if(_session.updateNext()) continue;
        complete();
        return false;
    } while(std::chrono::steady_clock::now() < end);
    return true;
}

void InsertImport::complete() {
    _result.bounds = boundsOf(_result.roots, _session);
    if(_place && !_result.roots.empty()) placeImport(_result.roots, _result.bounds, *_place, _session);
    select(_result.roots, _session);
    _stage = Stage::Done;
}

float InsertImport::fraction() const {
    if(_stage == Stage::Reading) return 0.0f;
    if(_stage == Stage::Placing) return PlacingBegins;
    if(_stage == Stage::Done) return 1.0f;
    const std::size_t remaining = std::min(_session.resourceCompiler().remainingCount(), _resourceCount);
    const float done = _resourceCount ? 1.0f - float(remaining) / float(_resourceCount) : 1.0f;
    return CompilingBegins + (1.0f - CompilingBegins) * done;
}

const char* InsertImport::doing() const {
    switch(_stage) {
    case Stage::Reading: return "checking";
    case Stage::Placing: return "storing files";
    case Stage::Compiling: return "compiling resources";
    case Stage::Done: break;
    }
    return "done";
}

} // namespace VantrelEngine
