#include "Data/MarksKeeper.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Vantrel/EngineData/Json.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "Data/ProjectSession.h"

namespace VantrelEngine {

using namespace Corrade;
namespace fs = std::filesystem;

namespace {

constexpr struct {
    ObjectMark mark;
    const char* key;
} Keys[]{{ObjectMark::Hidden, "hidden"}, {ObjectMark::Locked, "locked"}};

// FNV-1a, which no other file has to agree with.
std::uint64_t hashOf(const std::string& text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for(const char letter: text) hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001b3u;
    return hash;
}

void readIds(const rapidjson::Value& document, const char* key, ObjectMark mark, ProjectSession& session) {
    const auto list = document.FindMember(key);
    if(list == document.MemberEnd() || !list->value.IsArray()) return;
    for(const rapidjson::Value& id: list->value.GetArray()) {
        if(!id.IsString()) continue;
        const Id object = session.compiler().objectOf({id.GetString(), id.GetStringLength()});
        if(object != RootObject) session.data().marks().setMarked(mark, object, true);
    }
}

std::string textOf(const ObjectMarks& marks, const std::string& project) {
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer{buffer};
    writer.StartObject();
    writer.Key("project"), writer.String(project.data(), unsigned(project.size()));
    for(const auto& key: Keys) {
        writer.Key(key.key);
        writer.StartArray();
        for(const std::string& id: marks.ids(key.mark)) writer.String(id.data(), unsigned(id.size()));
        writer.EndArray();
    }
    writer.EndObject();
    return std::string{buffer.GetString(), buffer.GetSize()} + "\n";
}

} // namespace

std::string MarksKeeper::fileOf(const std::string& project) const {
    char name[32];
    std::snprintf(name, sizeof name, "/%016llx.json", static_cast<unsigned long long>(hashOf(project)));
    return _folder + name;
}

void MarksKeeper::update(ProjectSession& session) {
    if(_folder.empty()) return;
    EditorData& data = session.data();
    const bool isOther = _project != data.projectNumber;
    if(!isOther && _path == session.path() && _revision == data.marks().revision()) return;
    _project = data.projectNumber;
    _path = session.path();
    if(isOther)
        read(session, _path);
    else
        write(data.marks());
    _revision = data.marks().revision();
}

void MarksKeeper::copy(ProjectSession& session, const std::string& from) {
    if(_folder.empty()) return;
    EditorData& data = session.data();
    _project = data.projectNumber;
    _path = session.path();
    read(session, from);
    write(data.marks());
    _revision = data.marks().revision();
}

void MarksKeeper::read(ProjectSession& session, const std::string& of) const {
    std::error_code error;
    const std::string file = fileOf(of);
    if(of.empty() || !fs::exists(file, error)) return;
    std::ifstream stream{file, std::ios::binary};
    const std::string text{std::istreambuf_iterator<char>{stream}, {}};
    rapidjson::Document document;
    // Goes as deep as the text says, hence without recursion.
    document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if(!stream || document.HasParseError() || !document.IsObject()) {
        Utility::Warning{} << "What is hidden and locked is not understood:" << file.data();
        return;
    }
    // Another project with the same number is not this one.
    const auto project = document.FindMember("project");
    if(project == document.MemberEnd() || !project->value.IsString() || of != project->value.GetString()) return;
    for(const auto& key: Keys) readIds(document, key.key, key.mark, session);
}

void MarksKeeper::write(const ObjectMarks& marks) const {
    if(_path.empty()) return;
    const std::string file = fileOf(_path), fresh = file + ".new";
    std::error_code error;
    fs::create_directories(_folder, error);
    {
        std::ofstream stream{fresh, std::ios::binary | std::ios::trunc};
        stream << textOf(marks, _path);
        if(!stream.flush()) error = std::make_error_code(std::errc::io_error);
    }
    if(!error) fs::rename(fresh, file, error);
    if(error)
        Utility::Warning{} << "What is hidden and locked cannot be kept:" << file.data() << error.message().data();
}

} // namespace VantrelEngine
