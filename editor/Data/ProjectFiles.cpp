#include "Data/ProjectFiles.h"

#include <string_view>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <Vantrel/EngineData/ResourceMaps.h>

#include "ChangeManager.h"
#include "Data/PlacedFiles.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::string textMember(const JsonValue& object, const char* key, const char* missing) {
    const auto found = object.FindMember(key);
    if(found == object.MemberEnd()) return missing;
    return found->value.IsString() ? std::string{found->value.GetString(), found->value.GetStringLength()} : "";
}

void addFiles(const JsonValue& resource, bool isShader, std::set<std::string>& files) {
    if(!resource.IsObject() || !textMember(resource, "asset", isShader ? "default" : "").empty()) return;
    for(const char* const key: {"file", "vertex", "fragment"}) {
        std::string file = textMember(resource, key, "");
        if(!file.empty()) files.insert(std::move(file));
    }
}

void addSection(const JsonValue* section, bool isShader, std::set<std::string>& files) {
    if(!section || !section->IsObject()) return;
    for(auto entry = section->MemberBegin(); entry != section->MemberEnd(); ++entry)
        addFiles(entry->value, isShader, files);
}

// What a change of the log put in place or took away: a section, a resource, or the name of a file.
void addChanged(std::string_view path, const JsonValue& value, std::set<std::string>& files) {
    path.remove_prefix(1);
    const std::string_view section = path.substr(0, path.find('/'));
    if(resourceKindOf({section.data(), section.size()}) == ResourceKindCount) return;
    const bool isShader = section == "shaders";
    if(path.size() == section.size()) return addSection(&value, isShader, files);
    const std::size_t slash = path.find('/', section.size() + 1);
    if(slash == path.npos) return addFiles(value, isShader, files);
    const std::string_view key = path.substr(slash + 1);
    const bool isFile = key == "file" || (isShader && (key == "vertex" || key == "fragment"));
    if(isFile && value.IsString()) files.insert({value.GetString(), value.GetStringLength()});
}

} // namespace

std::set<std::string> filesOf(const ProjectFile& project) {
    std::set<std::string> files;
    for(std::size_t kind = 0; kind != ResourceKindCount; ++kind)
        addSection(
            project.section(resourceSection(ResourceKind(kind))), ResourceKind(kind) == ResourceKind::Shader, files);
    return files;
}

std::set<std::string> filesOf(const ChangeManager& changes) {
    std::set<std::string> files;
    for(const Change& change: changes.changes()) {
        const std::string_view path{change.path.data(), change.path.size()};
        if(path.empty()) continue;
        if(change.oldValue) addChanged(path, *change.oldValue, files);
        if(change.newValue) addChanged(path, *change.newValue, files);
    }
    return files;
}

CopiedFiles copyProjectFiles(
    const ProjectFile& project, const ChangeManager& changes, const std::string& from, PlacedFiles& to) {
    CopiedFiles copied;
    const std::set<std::string> files = filesOf(project);
    for(const std::string& file: files) {
        const std::string source = pathInside(from, file);
        if(source.empty()) {
            Utility::Warning{} << file.data() << Utility::Debug::nospace << ": the file is missing and not copied";
            continue;
        }
        copied.error = to.add(source, file);
        if(!copied.error.empty()) return copied;
    }
    for(const std::string& file: filesOf(changes)) {
        const std::string source = files.count(file) ? std::string{} : pathInside(from, file);
        if(source.empty()) continue;
        const std::string error = to.add(source, file);
        if(error.empty()) continue;
        Utility::Warning{} << error.data() << Utility::Debug::nospace << ": undo and redo will miss it";
        copied.isWhole = false;
    }
    to.flush();
    return copied;
}

} // namespace VantrelEngine
