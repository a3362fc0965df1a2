#include "Application/Settings.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EngineData/Json.h>
#include <rapidjson/error/en.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "Application/CommandLine.h"
#include "Application/RecentFiles.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
namespace fs = std::filesystem;

namespace {

const rapidjson::Value* member(const rapidjson::Value& object, const char* name) {
    if(!object.IsObject()) return nullptr;
    const auto found = object.FindMember(name);
    return found == object.MemberEnd() ? nullptr : &found->value;
}

void readNumber(const rapidjson::Value& object, const char* name, Float min, Float max, Float& number) {
    const rapidjson::Value* const value = member(object, name);
    if(value && value->IsNumber() && value->GetDouble() >= min && value->GetDouble() <= max)
        number = Float(value->GetDouble());
}

void readLength(const rapidjson::Value& object, const char* name, int& length) {
    const rapidjson::Value* const value = member(object, name);
    if(value && value->IsInt() && value->GetInt() >= 1 && value->GetInt() <= MaxWindowSize) length = value->GetInt();
}

void readFlag(const rapidjson::Value& object, const char* name, bool& flag) {
    const rapidjson::Value* const value = member(object, name);
    if(value && value->IsBool()) flag = value->GetBool();
}

void readRecentFiles(const rapidjson::Value& document, std::vector<std::string>& files) {
    const rapidjson::Value* const list = member(document, "recent");
    if(!list || !list->IsArray()) return;
    files.clear();
    for(const rapidjson::Value& file: list->GetArray())
        if(file.IsString() && file.GetStringLength() && files.size() != MaxRecentFiles)
            files.emplace_back(file.GetString(), file.GetStringLength());
}

void readPanes(const rapidjson::Value& document, PaneSizes& panes) {
    const rapidjson::Value* const section = member(document, "panes");
    if(!section) return;
    readNumber(*section, "leftWidth", 0.0f, MaxWindowSize, panes.leftWidth);
    readNumber(*section, "rightWidth", 0.0f, MaxWindowSize, panes.rightWidth);
    readNumber(*section, "bottomHeight", 0.0f, MaxWindowSize, panes.bottomHeight);
    for(const PanelInfo& panel: Panels) readFlag(*section, panel.key, panes[panel.panel]);
}

void readText(const rapidjson::Value& document, const char* name, std::string& text) {
    const rapidjson::Value* const value = member(document, name);
    if(value && value->IsString()) text.assign(value->GetString(), value->GetStringLength());
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

// Empty where there is none.
std::string userFolder(const char* name, const char* inHome) {
    const std::string folder = variable(name);
    // A relative one does not count.
    if(!folder.empty() && folder.front() == '/') return folder;
    const std::string home = variable("HOME");
    return home.empty() ? home : home + inHome;
}

using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void writePanes(Writer& writer, const PaneSizes& panes) {
    writer.Key("panes");
    writer.StartObject();
    writer.Key("leftWidth"), writer.Double(double(panes.leftWidth));
    writer.Key("rightWidth"), writer.Double(double(panes.rightWidth));
    writer.Key("bottomHeight"), writer.Double(double(panes.bottomHeight));
    for(const PanelInfo& panel: Panels) writer.Key(panel.key), writer.Bool(panes[panel.panel]);
    writer.EndObject();
}

std::string textOf(const Settings& settings) {
    rapidjson::StringBuffer buffer;
    Writer writer{buffer};
    writer.StartObject();
    writer.Key("fontScale"), writer.Double(double(settings.fontScale));
    writer.Key("width"), writer.Int(settings.windowSize.x());
    writer.Key("height"), writer.Int(settings.windowSize.y());
    writePanes(writer, settings.panes);
    if(!settings.docking.empty())
        writer.Key("docking"), writer.String(settings.docking.data(), unsigned(settings.docking.size()));
    writer.Key("recent");
    writer.StartArray();
    for(const std::string& file: settings.recentFiles) writer.String(file.data(), unsigned(file.size()));
    writer.EndArray();
    writer.EndObject();
    return std::string{buffer.GetString(), buffer.GetSize()} + "\n";
}

} // namespace

std::string settingsFile() {
    const std::string folder = userFolder("XDG_CONFIG_HOME", "/.config");
    return folder.empty() ? folder : folder + "/vantrel-editor/settings.json";
}

std::string cacheFolder() {
    const std::string folder = userFolder("XDG_CACHE_HOME", "/.cache");
    return folder.empty() ? folder : folder + "/vantrel";
}

std::string thumbnailFolder() {
    const std::string folder = cacheFolder();
    return folder.empty() ? folder : folder + "/thumbnails";
}

std::string marksFolder() {
    const std::string folder = userFolder("XDG_DATA_HOME", "/.local/share");
    return folder.empty() ? folder : folder + "/vantrel/marks";
}

Settings readSettings(const std::string& file, Settings settings) {
    std::error_code error;
    if(file.empty() || !fs::exists(file, error)) return settings;
    std::ifstream stream{file, std::ios::binary};
    const std::string text{std::istreambuf_iterator<char>{stream}, {}};
    rapidjson::Document document;
    // Goes as deep as the text says, hence without recursion.
    document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if(!stream || document.HasParseError() || !document.IsObject()) {
        Utility::Warning{} << "Settings:" << file.data() << "is not understood and will be written anew";
        return settings;
    }
    readNumber(document, "fontScale", 1.0f, 3.0f, settings.fontScale);
    readLength(document, "width", settings.windowSize.x());
    readLength(document, "height", settings.windowSize.y());
    readPanes(document, settings.panes);
    readText(document, "docking", settings.docking);
    readRecentFiles(document, settings.recentFiles);
    return settings;
}

std::string writeSettings(const std::string& file, const Settings& settings) {
    if(file.empty()) return {};
    std::error_code error;
    fs::create_directories(fs::path{file}.parent_path(), error);
    const std::string fresh = file + ".new";
    {
        std::ofstream stream{fresh, std::ios::binary | std::ios::trunc};
        stream << textOf(settings);
        if(!stream.flush()) return file + ": the settings cannot be written";
    }
    fs::rename(fresh, file, error);
    return error ? file + ": the settings cannot be written: " + error.message() : std::string{};
}

} // namespace VantrelEngine
