// Plays a converter that does what its source says, in the first word:
//
//     scene NAME COUNT [SCALING]  a scene that keeps all rules: an object with so many below it
//     document JSON         import.json as it stands in the rest of the file, beside some files
//     say TEXT              the rest of the file on the standard output, and the end
//     status NUMBER, slow SECONDS, crash, hang, flood, orphan FILE

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

void write(const fs::path& file, const std::string& contents) {
    fs::create_directories(file.parent_path());
    std::ofstream{file, std::ios::binary} << contents;
}

// One pixel of a colour that depends on the name.
std::string bitmap(const std::string& name) {
    std::string file{"BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30};
    file += std::string(24, '\0');
    const std::size_t hash = std::hash<std::string>{}(name);
    for(int i = 0; i != 4; ++i) file += char(i < 3 ? hash >> (8 * i) : 0);
    return file;
}

std::string hex(const std::string& name) {
    std::ostringstream text;
    text << std::hex << std::hash<std::string>{}(name);
    return std::string(64 - text.str().size(), '0') + text.str();
}

std::string place(double height, double scaling) {
    const std::string number = std::to_string(scaling);
    return R"("translation": [0, )" + std::to_string(height) + R"(, 0], "rotation": [0, 0, 0, 1], "scaling": [)" +
        number + ", " + number + ", " + number + "]";
}

std::string sceneDocument(const std::string& name, int count, double scaling) {
    std::ostringstream json;
    json << R"({"format": 1, "name": ")" << name << R"(",
"images": {"0": {"name": ")"
         << name << R"(.bmp", "file": "files/)" << hex(name) << R"(.bmp"}},
"textures": {"0": {"name": ")"
         << name << R"(.bmp", "image": "0"}},
"shaders": {"s": {"name": "Flat", "stage": "mesh", "variant": 1, "vertex": "Dynamic.vert", "fragment": "Flat.frag",
  "parameters": [{"name": "color", "type": "color", "default": [1, 1, 1, 1]},
    {"name": "colorTexture", "type": "texture"}]}},
"pipelines": {"p": {"name": "Flat", "shader": "s", "features": []}},
"materials": {"m": {"name": "Paint", "pipeline": "p", "Flat": {"color": [1, 0.5, 0, 1], "colorTexture": "0"}}},
"meshes": {"c": {"name": "Cube", "primitive": "cube"}},
"skins": {"k": {"name": "Bones", "joints": ["root"]}},
"objects": {"root": {"name": ")"
         << name << R"(", "parent": "", )" << place(0.0, scaling) << "}";
    for(int i = 0; i != count; ++i)
        json << ",\n\"n" << i << R"(": {"name": "Part", "parent": "root", )" << place(4.0, 1.0)
             << R"(, "skin": "k", "components": [
  {"type": "mesh", "mesh": {"mesh": "c", "material": "m"}}]})";
    json << "}}";
    return json.str();
}

void say(const std::string& text) { std::cout << text << std::flush; }

int end() {
    say("done\n");
    return 0;
}

void slow(double seconds) {
    for(int i = 0; i != 20; ++i) {
        say("progress " + std::to_string(i / 20.0) + " step " + std::to_string(i) + "\n");
        std::this_thread::sleep_for(std::chrono::duration<double>{seconds / 20});
    }
}

}

int main(int argc, char** argv) {
    std::string source, output;
    for(int i = 1; i + 1 < argc; ++i) {
        if(argv[i] == std::string{"--source"}) source = argv[i + 1];
        if(argv[i] == std::string{"--output"}) output = argv[i + 1];
    }
    std::ifstream stream{source, std::ios::binary};
    std::string verb, name;
    stream >> verb;
    if(verb == "scene") {
        int count = 0;
        double scaling = 1.0;
        stream >> name >> count;
        if(!(stream >> scaling)) scaling = 1.0;
        say("progress 0.25 reading\nprogress 0.5 writing\nwarning a part was left out\n");
        write(output + "/files/" + hex(name) + ".bmp", bitmap(name));
        write(output + "/import.json", sceneDocument(name, count, scaling));
        return end();
    }
    if(verb == "document") {
        write(output + "/files/a.bmp", bitmap("a"));
        write(output + "/outside.bmp", bitmap("a"));
        fs::create_symlink("/etc/passwd", output + "/files/link.bmp");
        fs::create_directory(output + "/files/folder.bmp");
        mkfifo((output + "/files/pipe.bmp").data(), 0600);
        write(output + "/import.json", {std::istreambuf_iterator<char>{stream}, {}});
        return end();
    }
    if(verb == "say") {
        stream.get();
        say({std::istreambuf_iterator<char>{stream}, {}});
        return 0;
    }
    double number = 0.0;
    if(verb == "status") return stream >> number, int(number);
    if(verb == "slow") {
        stream >> number;
        slow(number);
        write(output + "/import.json", sceneDocument("slow", 1, 1.0));
        write(output + "/files/" + hex("slow") + ".bmp", bitmap("slow"));
        return end();
    }
    if(verb == "crash") {
        // A sanitizer would make an exit of it.
        std::signal(SIGSEGV, SIG_DFL);
        std::raise(SIGSEGV);
    }
    if(verb == "hang") {
        std::signal(SIGTERM, SIG_IGN);
        while(true) pause();
    }
    if(verb == "flood")
        while(true) say(std::string(5000, 'x'));
    if(verb == "orphan") {
        // Somebody who stays behind, and holds the output.
        stream >> name;
        const pid_t child = fork();
        if(!child)
            while(true) pause();
        write(name, std::to_string(child));
        return 3;
    }
    return 1;
}
