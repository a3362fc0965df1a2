#pragma once

#include <map>
#include <string>
#include <vector>

#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

namespace VantrelTest {

// What was asked of the renderer that this executable has in place of the real one, which has one instance at a time.
struct RendererRecorder {
    // "function argument argument", in order.
    static std::vector<std::string> calls;
    // What it answers: whether the layout changed, one answer a call, false when they are used up; whether there is room
    // for images; and the tiles that it knows.
    static std::vector<bool> layoutAnswers;
    static bool hasRoom;
    static std::map<std::uint64_t, Magnum::UnsignedInt> tiles;
    // Sources of pipelines by their index, and the values that materials were given.
    static std::map<VantrelEngine::Id, std::string> vertexSources, fragmentSources;
    static std::map<VantrelEngine::Id, VantrelEngine::SceneMaterial> materials;

    static void reset();
    static std::vector<std::string> takeCalls();
};

} // namespace VantrelTest
