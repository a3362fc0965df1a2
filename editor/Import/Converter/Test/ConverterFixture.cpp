#include "Import/Converter/Test/ConverterFixture.h"

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <sstream>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Import/Converter/AssetFolder.h"

namespace VantrelImport::Test {

namespace {

const JsonValue& nothing() {
    static const JsonValue null;
    return null;
}

// Expects that nothing but execve() follows in the child.
int start(std::vector<std::string> arguments, int& output) {
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    std::vector<char*> pointers;
    for(std::string& argument: arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    // Where the address sanitizer is in the program, a crash is to be one all the same.
    std::string sanitizer = "ASAN_OPTIONS=handle_segv=0:handle_abort=0:handle_sigbus=0:handle_sigfpe=0";
    std::vector<char*> variables{sanitizer.data()};
    for(char** variable = environ; *variable; ++variable) variables.push_back(*variable);
    variables.push_back(nullptr);
    const int child = fork();
    if(child == 0) {
        const int null = open("/dev/null", O_RDWR);
        dup2(null, 0);
        dup2(ends[1], 1);
        dup2(null, 2);
        execve(pointers[0], pointers.data(), variables.data());
        _exit(127);
    }
    close(ends[1]);
    output = ends[0];
    return child;
}

std::string readAll(int file) {
    std::string text;
    char buffer[4096];
    for(ssize_t count = 0; (count = read(file, buffer, sizeof(buffer))) != 0;) {
        if(count < 0 && errno != EINTR) break;
        if(count > 0) text.append(buffer, std::size_t(count));
    }
    close(file);
    return text;
}

} // namespace

std::vector<std::string> ImportResult::texts(const std::string& word) const {
    std::vector<std::string> found;
    for(const std::string& line: lines)
        if(line.compare(0, word.size() + 1, word + ' ') == 0) found.push_back(line.substr(word.size() + 1));
    return found;
}

bool ImportResult::hasWarning(const std::string& part) const {
    for(const std::string& warning: texts("warning"))
        if(warning.find(part) != warning.npos) return true;
    return false;
}

std::string ImportResult::error() const {
    const std::vector<std::string> errors = texts("error");
    return errors.size() == 1 ? errors[0] : std::string{};
}

std::string ImportResult::text() const {
    std::string text = "status " + std::to_string(status) + '\n';
    for(const std::string& line: lines) text += line + '\n';
    return text;
}

const JsonValue& ImportResult::only(const char* section) const {
    if(!json.IsObject() || json[section].MemberCount() != 1) {
        ADD_FAILURE() << "not one of " << section << '\n' << text();
        return nothing();
    }
    return json[section].MemberBegin()->value;
}

const JsonValue& ImportResult::named(const char* section, const std::string& name) const {
    if(json.IsObject())
        for(const auto& entry: json[section].GetObject())
            if(entry.value["name"].GetString() == name) return entry.value;
    ADD_FAILURE() << "no " << name << " in " << section << '\n' << text();
    return nothing();
}

std::string ImportResult::idOf(const char* section, const std::string& name) const {
    if(json.IsObject())
        for(const auto& entry: json[section].GetObject())
            if(entry.value["name"].GetString() == name) return entry.name.GetString();
    ADD_FAILURE() << "no " << name << " in " << section << '\n' << text();
    return {};
}

std::string ImportResult::file(const JsonValue& entry) const {
    return entry.IsObject() ? VantrelTest::readFile(folder + '/' + entry["file"].GetString()) : std::string{};
}

const JsonValue& ImportResult::component(const std::string& object, const char* type) const {
    const JsonValue& entry = named("objects", object);
    if(entry.IsObject())
        for(const JsonValue& component: entry["components"].GetArray())
            if(component["type"].GetString() == std::string{type}) return component[type];
    ADD_FAILURE() << object << " has no " << type;
    return nothing();
}

ImportResult runConverter(
    const std::string& source, const std::string& below, const std::vector<std::string>& arguments) {
    static std::atomic<int> number{0};
    ImportResult result;
    result.folder = below + "/output" + std::to_string(number++);
    std::filesystem::create_directory(result.folder);
    std::vector<std::string> all{VANTREL_IMPORT_PROGRAM, "--source", source, "--output", result.folder};
    all.insert(all.end(), arguments.begin(), arguments.end());
    int output = -1;
    const int child = start(std::move(all), output);
    std::istringstream stream{readAll(output)};
    for(std::string line; std::getline(stream, line);) result.lines.push_back(line);
    while(waitpid(child, &result.status, 0) < 0 && errno == EINTR) {
    }
    const std::string json = VantrelTest::readFile(result.folder + "/import.json");
    if(!json.empty()) result.json.Parse(json.data(), json.size());
    return result;
}

std::vector<float> numbers(const JsonValue& list) {
    std::vector<float> values;
    if(list.IsArray())
        for(const JsonValue& value: list.GetArray()) values.push_back(value.GetFloat());
    return values;
}

std::string pngPixel() {
    const auto bytes = dataOfUri(PngUri);
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string{};
}

std::string tgaPixel(unsigned char red, unsigned char green, unsigned char blue) {
    std::string bytes(18, '\0');
    bytes[2] = 2;
    bytes[12] = bytes[14] = 1;
    bytes[16] = 24;
    return bytes + char(blue) + char(green) + char(red);
}

} // namespace VantrelImport::Test
