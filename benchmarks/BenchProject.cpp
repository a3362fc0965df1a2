#include "BenchProject.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include <Corrade/Utility/Debug.h>
#include <malloc.h>
#include <rapidjson/filewritestream.h>
#include <rapidjson/prettywriter.h>

#include "Support/JsonText.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelTools;

namespace {

[[noreturn]] void stop(const std::string& line) {
    std::fprintf(stderr, "vantrel-bench: %s\n", line.data());
    std::exit(1);
}

}

std::vector<std::size_t> sizesUpTo(std::size_t largest) {
    if(largest > 10000) return {1000, 10000, largest};
    return {std::max<std::size_t>(largest / 16, 1), std::max<std::size_t>(largest / 4, 2),
        std::max<std::size_t>(largest, 3)};
}

GeneratorOptions projectOptions(std::size_t count, Topology topology) {
    GeneratorOptions options;
    options.count = count;
    options.topology = topology;
    return options;
}

BenchProject::BenchProject(const GeneratorOptions& options): BenchProject{generateProject(options)} {}

BenchProject::BenchProject(const JsonValue& project) {
    // Without a name from now on, so that nothing stays behind, whatever ends the program.
    std::FILE* const file = std::tmpfile();
    if(!file) stop("a temporary file cannot be made");
    _file.reset(file);
    _path = "/proc/self/fd/" + std::to_string(fileno(file));
    char buffer[65536];
    rapidjson::FileWriteStream stream{file, buffer, sizeof(buffer)};
    rapidjson::PrettyWriter<rapidjson::FileWriteStream> writer{stream};
    writer.SetIndent(' ', 2);
    project.Accept(writer);
    if(std::fflush(file) != 0 || std::ferror(file)) stop("a temporary file cannot be written");
}

std::unique_ptr<ProjectSession> BenchProject::open() const {
    auto session = std::make_unique<ProjectSession>();
    const OpenedProject opened = session->open(_path);
    if(!opened.error.empty()) stop(opened.error);
    return session;
}

std::vector<std::string> spreadPaths(ProjectSession& session, std::size_t count) {
    const JsonValue& objects = *session.data().project().valueByPointer("/objects");
    const std::size_t all = objects.MemberCount();
    count = std::min(count, all);
    std::vector<std::string> paths;
    for(std::size_t i = 0; i != count; ++i) {
        const auto object = objects.MemberBegin() + std::ptrdiff_t(i * all / count);
        paths.push_back(std::string{"/objects/"} + object->name.GetString());
    }
    return paths;
}

std::string textOf(ProjectSession& session) { return VantrelTest::jsonText(session.data().project().projectFile()); }

std::size_t allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

Matrix4 draggedTo(std::size_t object, std::size_t frame) {
    return Matrix4::translation({float(object % 100), float(frame % 1000) * 0.25f, 1.0f}) *
        Matrix4::rotationY(Rad{float(frame % 64) * 0.1f}) * Matrix4::scaling({1.0f, 2.0f, 0.5f});
}

void dragFrame(ProjectSession& session, const std::vector<std::string>& paths, std::uint64_t key, std::size_t frame) {
    session.changes().beginGroup(key, frame != 0);
    for(std::size_t i = 0; i != paths.size(); ++i)
        session.changes().recordTransform({paths[i].data(), paths[i].size()}, draggedTo(i, frame), true);
    session.changes().commit();
    session.update();
}

}
