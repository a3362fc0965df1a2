#include "Import/ImportedScene.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <unordered_map>
#include <unordered_set>

#include <Vantrel/EngineData/Types.h>
#include <VantrelHost/DocumentProblem.h>
#include <VantrelHost/DocumentReader.h>
#include <sys/stat.h>

#include "Data/Project/DocumentCheck.h"
#include "Data/Project/KnownKeys.h"
#include "Import/ConverterLines.h"
#include "Import/References.h"

namespace VantrelEngine {

const char* const ImportedSections[9]{
    "images", "textures", "shaders", "pipelines", "materials", "meshes", "skins", "animations", "objects"};

namespace {

constexpr int Format = 1;
// Bytes of the document, and of each file: what a project may have of them.
constexpr off_t MaxDocument = off_t{1} << 28;
constexpr off_t MaxImage = off_t{256} << 20;
constexpr off_t MaxFile = off_t{1} << 30;
constexpr std::size_t MaxResources = 65534;
constexpr std::size_t MaxFileName = 200;
constexpr const char* FileFolder = "files/";

std::string whyNoFile(const std::string& path, off_t limit) {
    struct stat status;
    if(lstat(path.data(), &status) != 0) return "there is no such file";
    if(!S_ISREG(status.st_mode)) return "this is not a regular file";
    return status.st_size > limit ? "the file is too large" : std::string{};
}

bool isPlainName(const std::string& name) {
    return !name.empty() && name.size() <= MaxFileName && name[0] != '.' &&
        std::all_of(name.begin(), name.end(),
            [](unsigned char c) { return c < 0x80 && (std::isalnum(c) || c == '.' || c == '_' || c == '-'); });
}

// Checks a document that keeps the rules of every project.
class Check {
public:
    explicit Check(ImportedScene& scene): _scene{scene}, _document{scene.document} {}

    // Empty, or the place and the reason.
    std::string run() {
        for(const char* const section: ImportedSections) {
            std::string error = collect(section);
            if(!error.empty()) return error;
        }
        for(const char* const section: ImportedSections) {
            JsonValue& entries = *memberOf(_document, section);
            for(auto entry = entries.MemberBegin(); entry != entries.MemberEnd(); ++entry) {
                const std::string error = checkEntry(section, entry->value);
                if(!error.empty()) return section + ("/" + shownText(textOf(entry->name))) + ": " + error;
            }
        }
        return checkEnvironment();
    }

private:
    std::string collect(const char* section) {
        if(!memberOf(_document, section))
            _document.AddMember(
                rapidjson::StringRef(section), JsonValue{rapidjson::kObjectType}, _document.GetAllocator());
        const JsonValue& entries = *memberOf(_document, section);
        if(entries.MemberCount() > (std::strcmp(section, "objects") == 0 ? MaxObjects : MaxResources))
            return std::string{section} + ": these are more than a project can have";
        for(auto entry = entries.MemberBegin(); entry != entries.MemberEnd(); ++entry) {
            if(!entry->name.GetStringLength()) return std::string{section} + ": an id is empty";
            _ids[section].insert(textOf(entry->name));
        }
        return {};
    }

    std::string checkEntry(const std::string& section, JsonValue& entry) {
        if(!entry.IsObject()) return "not an object";
        const JsonValue* const name = memberOf(entry, "name");
        if(!name || !name->IsString()) return "there is no name";
        std::string error = section == "objects" ? checkComponents(entry) : checkFiles(section, entry);
        if(!error.empty()) return error;
        for(const Reference& reference: referencesOf(_document, section, entry))
            if(!_ids[reference.section].count(textOf(*reference.id)))
                return "there is no \"" + shownText(textOf(*reference.id)) + "\" among the " + reference.section;
        return {};
    }

    static std::string checkComponents(const JsonValue& object) {
        const JsonValue* const components = memberOf(object, "components");
        if(!components) return {};
        for(const JsonValue& component: components->GetArray())
            if(componentKeys(textMember(component, "type")).isEmpty())
                return "there is no component type \"" + shownText(textMember(component, "type")) + "\"";
        return {};
    }

    std::string checkFiles(const std::string& section, const JsonValue& entry) const {
        const std::string asset = textMember(entry, "asset");
        if(section == "shaders") return asset.empty() || asset == "default" ? std::string{} : "its files are unknown";
        const JsonValue* const file = memberOf(entry, "file");
        if(!file) return {};
        const std::string name = textOf(*file);
        const std::size_t start = std::strlen(FileFolder);
        if(!asset.empty() || name.compare(0, start, FileFolder) != 0 || !isPlainName(name.substr(start)))
            return "the file is named in a wrong way";
        return whyNoFile(_scene.folder + "/" + name, section == "images" ? MaxImage : MaxFile);
    }

    std::string checkEnvironment() {
        _scene.environment = textMember(_document, "environment");
        const bool isKnown = _scene.environment.empty() || _ids["images"].count(_scene.environment);
        return isKnown ? std::string{} : "environment: there is no such image";
    }

    ImportedScene& _scene;
    JsonDocument& _document;
    std::unordered_map<std::string, std::unordered_set<std::string>> _ids;
};

std::string readDocumentOf(const std::string& folder, JsonDocument& document) {
    const std::string path = folder + "/" + ImportFileName;
    std::string error = whyNoFile(path, MaxDocument);
    if(error.empty()) error = readDocument(path, document);
    if(!error.empty()) return error.compare(0, path.size() + 2, path + ": ") ? error : error.substr(path.size() + 2);
    const JsonValue* const format = memberOf(document, "format");
    if(!format || !format->IsInt() || format->GetInt() != Format) return "its format is another one";
    const std::vector<DocumentProblem> problems = checkDocument(document);
    return problems.empty() ? std::string{} : shownText(lineOf(problems.front()));
}

} // namespace

std::string readImportedScene(const std::string& folder, ImportedScene& scene) {
    scene.folder = folder;
    std::string error = readDocumentOf(folder, scene.document);
    if(error.empty()) error = Check{scene}.run();
    if(!error.empty()) return "what the converter made cannot be used: " + error;
    scene.name = shownText(textMember(scene.document, "name"));
    return {};
}

} // namespace VantrelEngine
