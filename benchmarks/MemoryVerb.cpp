#include <cstdio>
#include <fstream>
#include <sstream>

#include <VantrelHost/DocumentReader.h>
#include <VantrelHost/ResourceCompiler.h>
#include <malloc.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "GlCalls.h"
#include "GlMemory.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double ObjectLimit = 1500.0;

// How many bytes more the program has allocated afterwards.
template<class Function> double allocatedBy(Function&& function) {
    const std::size_t before = allocatedBytes();
    function();
    return double(allocatedBytes()) - double(before);
}

void printBytes(const std::string& name, const char* quantity, double bytes) {
    char line[256];
    std::snprintf(line, sizeof(line), R"({"verb":"memory","case":"%s","%s":%.10g})", name.data(), quantity, bytes);
    printLine(line);
}

// Of /proc/self/status, in bytes; 0 where the system has no such file.
double statusBytes(const std::string& key) {
    std::ifstream status{"/proc/self/status"};
    for(std::string line; std::getline(status, line);)
        if(line.compare(0, key.size() + 1, key + ":") == 0) {
            double kilobytes = 0.0;
            std::istringstream{line.substr(key.size() + 1)} >> kilobytes;
            return kilobytes * 1024.0;
        }
    return 0.0;
}

double documentBytes(const BenchProject& project) {
    JsonDocument document;
    return allocatedBy([&] { readDocument(project.path(), document); });
}

// The parts of a session, so that each can be made by itself.
double objectBytes(const BenchProject& project, double objects) {
    const double document = documentBytes(project) / objects;
    EditorData data;
    ProjectStore store{data.project()};
    const double opened = allocatedBy([&] { store.open(project.path()); }) / objects;
    // Made when a member is first looked for.
    const double index = allocatedBy([&] { data.project().member("objects", ""); }) / objects;
    std::unique_ptr<AssetCompiler> compiler;
    ResourceCompiler resources{data.project(), data.resources(), data.scene().resources(), data.scene().resourceMaps(),
        data.scene().revisions()};
    const double compiled = allocatedBy([&] {
        resources.compileAll();
        compiler = std::make_unique<AssetCompiler>(&data);
        compiler->compileAll(true);
    }) / objects;
    const double transformed = allocatedBy([&] { data.scene().main().computeAbsoluteTransformations(); }) / objects;
    const double compilerPart = -allocatedBy([&] { compiler.reset(); }) / objects;

    printBytes("document", "bytes_per_object", document);
    printBytes("index_and_checks", "bytes_per_object", opened - document + index);
    printBytes("compiler", "bytes_per_object", compilerPart);
    printBytes("scene", "bytes_per_object", compiled + transformed - compilerPart);
    return opened + index + compiled + transformed;
}

void peakOfOpening(const BenchProject& project, double objects) {
    malloc_trim(0);
    // Forgets the peak so far.
    std::ofstream{"/proc/self/clear_refs"} << 5;
    const double before = statusBytes("VmRSS");
    const std::unique_ptr<ProjectSession> session = project.open();
    printBytes("peak_of_opening", "bytes_per_object", (statusBytes("VmHWM") - before) / objects);
}

double changeBytes(ProjectSession& session, const std::vector<std::string>& paths) {
    return allocatedBy([&] {
        for(const std::string& path: paths)
            session.changes().recordVector3({path.data(), path.size()}, {1.0f, 2.0f, 3.0f}, false);
    }) / double(paths.size());
}

void bytesPerChange(const BenchProject& project, std::size_t count) {
    const std::unique_ptr<ProjectSession> session = project.open();
    std::vector<std::string> paths = spreadPaths(*session, count);
    for(std::string& path: paths) path += "/translation";
    // With what notes for the first time that the objects changed.
    printBytes("change_first", "bytes_per_change", changeBytes(*session, paths));
    session->update();
    printBytes("change_later", "bytes_per_change", changeBytes(*session, paths));
    // Bytes of one change as it lies in the log.
    printBytes("change_record", "bytes", double(sizeof(Change)));
}

// Of the view with a grid of as many objects, after a frame of 640 by 480 pixels.
void videoMemory(std::size_t objects) {
    if(!countGlCalls()) return;
    const BenchProject project{gridProject(objects)};
    BenchView view{{640, 480}};
    view.open(project.path());
    view.setPictureSize({640, 480});
    const GlMemory memory = GlMemory::now();
    printBytes("video_textures", "bytes", double(memory.textures));
    printBytes("video_buffers", "bytes", double(memory.buffers));
    printBytes("video_renderbuffers", "bytes", double(memory.renderbuffers));
}

}

void memory(std::size_t size) {
    const BenchProject project{projectOptions(size)};
    peakOfOpening(project, double(size));
    printLine(limitLine("memory", "all", "bytes_per_object", objectBytes(project, double(size)), ObjectLimit));
    bytesPerChange(project, size);
    videoMemory(size);
}

}
