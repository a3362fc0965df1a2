#pragma once

#include <string>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "Thumbnails/ThumbnailPixels.h"

namespace VantrelEngine {

class ResourceManager;

// A small scene with one thing in it, a camera and a sun, and the renderer that draws it. Has in video memory only what
// the picture at hand takes, its images made small.
class ThumbnailStage {
public:
    // Needs a GL context. Pixels along an edge; the resources are those that are drawn of, and outlive it as the files do.
    explicit ThumbnailStage(const SceneResources& resources, const ResourceManager& files, Magnum::Int edge);

    // Of a mesh with triangles, in plain grey; of a material with a pipeline, on a sphere. What the renderer has to say
    // about either is not told here: who draws the scene tells it.
    ThumbnailPixels drawMesh(Id mesh);
    ThumbnailPixels drawMaterial(Id material);

private:
    // What is drawn, with indices of its own: of each list the first is none.
    struct Subject {
        ScenePipeline pipeline;
        std::string vertexSource, fragmentSource;
        SceneMaterial material;
        std::vector<SceneTexture> textures;
        std::vector<SceneImage> images;
    };

    Subject plainSubject() const;
    Subject subjectOf(Id material) const;
    void takeTexture(Subject& subject, Id& texture) const;
    ThumbnailPixels draw(const SceneMesh& mesh, const Subject& subject);
    void tell(const SceneMesh& mesh, const Subject& subject);
    void tellImages(const Subject& subject);
    void aimAt(const SceneMesh& mesh);
    ThumbnailPixels render();

    const SceneResources& _resources;
    const ResourceManager& _files;
    const Magnum::Int _edge;
    SceneMesh _sphere;
    Scene _scene;
    WebGL2Renderer _renderer;
    Id _cameraObject, _camera, _component;
    Magnum::GL::Renderbuffer _colorMS, _depthMS, _color;
    Magnum::GL::Framebuffer _framebufferMS, _framebuffer;
};

} // namespace VantrelEngine
