#pragma once

#include <functional>
#include <string>

#include <Magnum/Math/Vector2.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "Abi/Picture.h"
#include "Abi/RenderTarget.h"
#include "Data/ProjectSession.h"

namespace VantrelTest {

// A project as its own camera sees it, drawn by the renderer.
class GoldenProject {
public:
    // Needs a GL context. Every problem of the project or of its files is a failure of the test.
    explicit GoldenProject(const std::string& file, const Magnum::Vector2i& size);

    VantrelEngine::ProjectSession& session() { return _session; }
    VantrelEngine::WebGL2Renderer& renderer() { return _renderer; }

    // Of the document, by a pointer such as "/objects/lamp/components/0/active".
    void set(const char* pointer, const char* json);

    // Compiles what changed, and draws.
    VantrelProof::Picture draw();

private:
    void tellRenderer();
    void tellBloom();
    void tellImages();
    void tellPipelines();
    void tellMeshes();
    std::string source(const VantrelEngine::FileLink& link);
    VantrelEngine::Id camera();

    const Magnum::Vector2i _size;
    VantrelEngine::ProjectSession _session;
    VantrelEngine::WebGL2Renderer _renderer;
    VantrelProof::RenderTarget _target;
};

} // namespace VantrelTest
