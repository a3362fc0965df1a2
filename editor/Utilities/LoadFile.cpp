#include "Vantrel/EditorUtilities/LoadFile.h"

#include <cstring>
#include <filesystem>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <Vantrel/EngineData/ResourceManager.h>

#include "Data/ProjectSession.h"
#include "Import/ImportKinds.h"
#include "Import/ImportQueue.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
namespace fs = std::filesystem;

namespace {

std::string nameOf(const std::string& path) { return fs::path{path}.filename().string(); }

bool hasBytesOf(const std::string& path, const FileLink& link, const ResourceManager& files) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    if(error || link.file.empty()) return false;
    // Of a file that has another size nothing is read.
    std::string reason;
    const std::optional<Containers::Array<char>> present = files.read(link, std::size_t(size), reason);
    if(!present || present->size() != size) return false;
    ResourceManager folder;
    folder.setProjectFolder(fs::path{path}.parent_path().string());
    const std::optional<Containers::Array<char>> wanted = folder.read({{}, nameOf(path)}, std::size_t(size), reason);
    return wanted && wanted->size() == size && std::memcmp(wanted->data(), present->data(), std::size_t(size)) == 0;
}

// By the file's name, or that with a number: "bricks.png 2".
bool isNamed(const std::string& name, const std::string& file) {
    if(name.compare(0, file.size(), file) != 0) return false;
    const std::string rest = name.substr(file.size());
    return rest.empty() || (rest.size() > 1 && rest[0] == ' ' && rest.find_first_not_of("0123456789", 1) == rest.npos);
}

const JsonValue* memberOf(const JsonValue& object, const char* key) {
    if(!object.IsObject()) return nullptr;
    const auto found = object.FindMember(key);
    return found == object.MemberEnd() || !found->value.IsString() ? nullptr : &found->value;
}

ImportQueue* queueOf(VantrelEditor& editor, Containers::StringView path) {
    ImportQueue* const queue = editor.state().imports;
    if(!queue) Utility::Error{} << path << Utility::Debug::nospace << ": nothing can be imported here";
    return queue;
}

} // namespace

void loadFile(Containers::StringView path, VantrelEditor& editor, LoadMode mode, bool keepOpen) {
    CORRADE_ASSERT(mode == LoadMode::Import && !keepOpen, "loadFile(): there is no other mode yet", );
    if(ImportQueue* const queue = queueOf(editor, path))
        queue->add(path, ImportInto::OpenProject, editor.state().viewPointer.place);
}

bool isImagePath(Containers::StringView path) { return isImageFile(path); }

bool isModelPath(Containers::StringView path) { return isModelFile(path); }

std::optional<Range3D> importedBounds(Containers::StringView path, VantrelEditor& editor) {
    const ImportQueue* const queue = editor.state().imports;
    return queue ? queue->boundsOf(path) : std::optional<Range3D>{};
}

bool isImageLoaded(Containers::StringView path, VantrelEditor& editor) {
    return !textureOfImage(path, editor).isEmpty();
}

Containers::String textureOfImage(Containers::StringView path, VantrelEditor& editor) {
    ImportQueue* const queue = editor.state().imports;
    if(!queue) return {};
    EditorData& data = queue->session().data();
    const std::string name = nameOf(path);
    const JsonValue* const textures = data.project().section("textures");
    if(!textures || !textures->IsObject()) return {};
    for(auto texture = textures->MemberBegin(); texture != textures->MemberEnd(); ++texture) {
        const JsonValue* const textureName = memberOf(texture->value, "name");
        const JsonValue* const image = memberOf(texture->value, "image");
        if(!textureName || !image || !isNamed(textureName->GetString(), name)) continue;
        const FileLink link = data.project().fileLinkForResource("images", image->GetString());
        if(hasBytesOf(path, link, data.resources()))
            return Containers::String{texture->name.GetString(), texture->name.GetStringLength()};
    }
    return {};
}

bool loadImage(Containers::StringView path, VantrelEditor& editor, bool quiet) {
    CORRADE_ASSERT(!quiet, "loadImage(): there is no other way yet", {});
    ImportQueue* const queue = queueOf(editor, path);
    if(!queue) return false;
    if(!isImagePath(path)) {
        Utility::Error{} << path << Utility::Debug::nospace << ": this is no image";
        return false;
    }
    return queue->importNow(path).error.empty();
}

} // namespace VantrelEngine
