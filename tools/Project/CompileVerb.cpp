#include <chrono>
#include <cstdio>

#include <Vantrel/EditorData/EditorData.h>

#include "Data/ProjectSession.h"
#include "Project/Text.h"
#include "Project/Verbs.h"

namespace VantrelTools {

using namespace Corrade;
using namespace VantrelEngine;

namespace {

void printCount(const std::string& name, std::size_t count) { std::printf("%-18s %8zu\n", name.data(), count); }

void printTime(const char* stage, std::chrono::duration<double, std::milli> time) {
    std::printf("%-18s %11.2f ms\n", stage, time.count());
}

void printComponents(Scene& scene) {
    std::size_t all = 0;
    for(std::size_t i = 0; i != Scene::ManagerCount; ++i) all += scene.componentManager(i)->size();
    printCount("components", all);
    for(std::size_t i = 0; i != Scene::ManagerCount; ++i) {
        const ComponentManager& manager = *scene.componentManager(i);
        if(manager.size()) printCount("  " + std::string{manager.name().data(), manager.name().size()}, manager.size());
    }
}

// Those that have an index; others are only named by something.
std::size_t compiledCount(const IdMap<ResourceNode>& resources) {
    std::size_t count = 0;
    resources.forEach([&](const ResourceNode& resource) { count += resource.index != 0; });
    return count;
}

void printResources(ResourceMaps& maps) {
    std::size_t all = 0;
    for(std::size_t i = 0; i != ResourceKindCount; ++i) all += compiledCount(maps.of(ResourceKind(i)));
    printCount("resources", all);
    for(std::size_t i = 0; i != ResourceKindCount; ++i) {
        const Containers::StringView section = resourceSection(ResourceKind(i));
        if(const std::size_t count = compiledCount(maps.of(ResourceKind(i))))
            printCount("  " + std::string{section.data(), section.size()}, count);
    }
}

// Calls and tells how long that took.
template<class Function> std::chrono::duration<double, std::milli> timed(Function&& function) {
    const auto start = std::chrono::steady_clock::now();
    function();
    return std::chrono::steady_clock::now() - start;
}

}

int compile(const std::string& file, bool statistics) {
    ProjectSession session;
    OpenedProject opened;
    const auto readTime = timed([&] { opened = session.read(file); });
    if(!opened.error.empty()) return fail(opened.error);
    const auto resourceTime = timed([&] { session.compileResources(); });
    const auto objectTime = timed([&] { session.compileObjects(); });
    Scene& scene = session.data().scene().main();
    const auto transformationTime = timed([&] { scene.computeAbsoluteTransformations(); });
    if(!statistics) return Success;

    printCount("objects", scene.size() - 1);
    printComponents(scene);
    printResources(session.data().scene().resourceMaps());
    printTime("read and check", readTime);
    printTime("resources", resourceTime);
    printTime("objects", objectTime);
    printTime("transformations", transformationTime);
    return Success;
}

}
