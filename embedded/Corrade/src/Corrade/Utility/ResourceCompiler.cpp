/*
corrade-rc NAME INPUT.conf OUTPUT.cpp

Writes a unit that registers the group of files which the configuration lists:

    group=name of the group
    [file]
    filename=path, relative to the configuration
    alias=name in the group, if it should be different
    nullTerminated=true, to have a zero byte behind the contents
    align=power of two up to 128, alignment of the contents in memory

The last two are defaults for all files when given before the first [file].
*/

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace {

struct File {
    std::string filename;
    std::string name;
    std::string contents;
    bool nullTerminated = false;
    unsigned long alignment = 1;
};

struct Group {
    std::string name;
    std::vector<File> files;
};

[[noreturn]] void fail(const std::string& message) {
    std::fprintf(stderr, "corrade-rc: %s\n", message.c_str());
    std::exit(1);
}

std::string read(const std::string& filename, const std::string& description) {
    errno = 0;
    struct stat status;
    if(stat(filename.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) errno = EISDIR;
    std::ifstream in{filename, std::ios::binary};
    std::ostringstream contents;
    if(!errno && in && (in.peek() == std::ifstream::traits_type::eof() || contents << in.rdbuf()))
        return contents.str();
    fail("cannot read " + description + " " + filename + ": " + std::strerror(errno));
}

std::string trimmed(const std::string& text) {
    const char* const blanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == std::string::npos ? std::string{} : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string unquoted(const std::string& text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"' ? text.substr(1, text.size() - 2) : text;
}

bool isTrue(const std::string& value) { return value == "true" || value == "yes" || value == "y" || value == "1"; }

unsigned long parseAlignment(const std::string& value) {
    const unsigned long alignment = std::strtoul(value.c_str(), nullptr, 10);
    if(!alignment || alignment > 128 || alignment & (alignment - 1))
        fail("alignment has to be a power of two between 1 and 128, got " + value);
    return alignment;
}

void setFileOption(File& file, const std::string& key, const std::string& value) {
    if(key == "filename")
        file.filename = value;
    else if(key == "alias")
        file.name = value;
    else if(key == "nullTerminated")
        file.nullTerminated = isTrue(value);
    else if(key == "align")
        file.alignment = parseAlignment(value);
}

Group parse(const std::string& filename) {
    Group group;
    File defaults;
    /* Options of sections other than [file] have no meaning. */
    File ignored;
    File* file = &defaults;
    std::istringstream in{read(filename, "configuration")};
    std::string line;
    for(int number = 1; std::getline(in, line); ++number) {
        line = trimmed(line);
        if(line.empty() || line[0] == '#' || line[0] == ';') continue;
        const std::string where = filename + ":" + std::to_string(number) + ": ";
        if(line[0] == '[') {
            if(line.back() != ']') fail(where + "section without a closing bracket");
            if(line == "[file]") group.files.push_back(defaults);
            file = line == "[file]" ? &group.files.back() : &ignored;
            continue;
        }
        const std::size_t equals = line.find('=');
        if(equals == std::string::npos) fail(where + "neither a section nor an assignment");
        const std::string key = trimmed(line.substr(0, equals));
        const std::string value = unquoted(trimmed(line.substr(equals + 1)));
        if(file == &defaults && key == "group")
            group.name = value;
        else
            setFileOption(*file, key, value);
    }
    if(group.name.empty()) fail(filename + ": the group has no name");
    return group;
}

void readFiles(Group& group, const std::string& directory) {
    for(File& file: group.files) {
        if(file.filename.empty()) fail("a file in group " + group.name + " has no file name");
        if(file.name.empty()) file.name = file.filename;
        file.contents = read(file.filename[0] == '/' ? file.filename : directory + file.filename, "file");
    }
    std::sort(group.files.begin(), group.files.end(), [](const File& a, const File& b) { return a.name < b.name; });
}

/* Makes the contents longer by their padding; returns by how much for each file. */
std::vector<std::size_t> pad(std::vector<File>& files) {
    std::vector<std::size_t> paddings;
    std::size_t offset = 0;
    for(std::size_t i = 0; i != files.size(); ++i) {
        std::size_t padding = files[i].nullTerminated;
        const std::size_t nextAlignment = i + 1 != files.size() ? files[i + 1].alignment : 1;
        const std::size_t end = offset + files[i].contents.size() + padding;
        padding += (nextAlignment - end % nextAlignment) % nextAlignment;
        files[i].contents.append(padding, '\0');
        paddings.push_back(padding);
        offset += files[i].contents.size();
    }
    return paddings;
}

/* A string literal compiles many times faster than a list of numbers. */
void appendLiteral(std::string& out, const std::string& bytes) {
    static constexpr std::size_t BytesPerLine = 4096;
    for(std::size_t i = 0; i != bytes.size(); ++i) {
        if(i % BytesPerLine == 0) out += i ? "\"\n    \"" : "\n    \"";
        const unsigned char byte = static_cast<unsigned char>(bytes[i]);
        if(byte >= ' ' && byte < 0x7f && byte != '"' && byte != '\\' && byte != '?')
            out += char(byte);
        else {
            const char escaped[]{'\\', char('0' + (byte >> 6)), char('0' + (byte >> 3 & 7)), char('0' + (byte & 7))};
            out.append(escaped, sizeof(escaped));
        }
    }
    out += bytes.empty() ? "\n    \"\"" : "\"";
}

std::string generate(const std::string& symbol, Group& group) {
    const std::vector<std::size_t> paddings = pad(group.files);
    std::string names, data, positions;
    unsigned long alignment = 1;
    for(std::size_t i = 0; i != group.files.size(); ++i) {
        names += group.files[i].name;
        data += group.files[i].contents;
        alignment = std::max(alignment, group.files[i].alignment);
        if(names.size() >= 1 << 24 || data.size() >= 1ull << 32) fail("group " + group.name + " is too large");
        positions +=
            "    " + std::to_string(names.size() | paddings[i] << 24) + "u, " + std::to_string(data.size()) + "u,\n";
    }

    std::string out = "/* Written by corrade-rc, changes will be lost. */\n\n"
                      "#include \"Corrade/Utility/Macros.h\"\n"
                      "#include \"Corrade/Utility/Resource.h\"\n\n"
                      "#if CORRADE_RESOURCE_VERSION != 2\n"
                      "#error this file has version 2 of the resource layout, which is not what the library expects\n"
                      "#endif\n\n"
                      "#pragma GCC diagnostic ignored \"-Woverlength-strings\"\n\n"
                      "namespace {\n\n"
                      "const unsigned int positions[]{\n" +
        (positions.empty() ? "    0u\n" : positions) + "};\n\nconst unsigned char filenames[] =";
    appendLiteral(out, names);
    out += ";\n\nalignas(" + std::to_string(alignment) + ") const unsigned char data[] =";
    appendLiteral(out, data);
    out += ";\n\nCorrade::Utility::Implementation::ResourceGroup group;\n\n}\n\n";

    const std::string initializer = "corradeResourceInitializer_" + symbol;
    const std::string finalizer = "corradeResourceFinalizer_" + symbol;
    out += "int " + initializer + "();\nint " + initializer + "() {\n    group.name =";
    appendLiteral(out, group.name);
    out += ";\n    group.count = " + std::to_string(group.files.size()) +
        ";\n    group.positions = positions;\n    group.filenames = filenames;\n    group.data = data;\n"
        "    Corrade::Utility::Resource::registerData(group);\n    return 1;\n}\n\n"
        "int " +
        finalizer + "();\nint " + finalizer +
        "() {\n"
        "    Corrade::Utility::Resource::unregisterData(group);\n    return 1;\n}\n\n"
        "CORRADE_AUTOMATIC_INITIALIZER(" +
        initializer +
        ")\n"
        "CORRADE_AUTOMATIC_FINALIZER(" +
        finalizer + ")\n";
    return out;
}

}

int main(const int argc, const char* const* const argv) {
    if(argc != 4) fail("expected three arguments: NAME INPUT.conf OUTPUT.cpp");
    const std::string input = argv[2];
    Group group = parse(input);
    readFiles(group, input.substr(0, input.rfind('/') + 1));

    std::ofstream out{argv[3], std::ios::binary};
    out << generate(argv[1], group);
    out.close();
    if(!out) {
        const std::string reason = std::strerror(errno);
        std::remove(argv[3]);
        fail(std::string{"cannot write "} + argv[3] + ": " + reason);
    }
}
