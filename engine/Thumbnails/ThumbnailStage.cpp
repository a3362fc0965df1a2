#include "Thumbnails/ThumbnailStage.h"

#include <utility>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Range.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Vantrel/EngineData/ResourceManager.h>

#include "Thumbnails/ImageThumbnail.h"
#include "Thumbnails/ThumbnailContent.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
using namespace Math::Literals;

namespace {

constexpr Int Samples = 4;
// Texels: a picture of a hundred pixels shows no more.
constexpr Int LongestImageEdge = 256;
constexpr Deg FieldOfView{30.0f};
// Of the sphere around a mesh, beside it.
constexpr Float Margin = 1.04f;

const Color4 Background{0.19f, 1.0f};
const Vector4 PlainColor{0.72f, 0.73f, 0.75f, 1.0f}, PlainRoughness{0.7f, 0.0f, 0.0f, 0.0f};
// Red, green, blue, intensity.
const Vector4 SunColor{1.0f, 0.97f, 0.92f, 2.6f};

Quaternion cameraRotation() {
    return Quaternion::rotation(35.0_degf, Vector3::yAxis()) * Quaternion::rotation(-25.0_degf, Vector3::xAxis());
}

// Over the camera's left shoulder.
Quaternion sunRotation() { return Quaternion::rotation(50.0_degf, Vector3::xAxis()); }

template<class T> Containers::ArrayView<const T> view(const std::vector<T>& list) { return {list.data(), list.size()}; }

SceneMesh sphere() {
    SceneMesh mesh;
    mesh.id = "sphere";
    mesh.data = Primitives::uvSphereSolid(
        32, 64, Primitives::UVSphereFlag::TextureCoordinates | Primitives::UVSphereFlag::Tangents);
    mesh.bounds = {Vector3{-1.0f}, Vector3{1.0f}};
    mesh.radius = 1.0f;
    return mesh;
}

GL::Renderbuffer renderbuffer(Int samples, GL::RenderbufferFormat format, Int edge) {
    GL::Renderbuffer result;
    result.setLabel("Thumbnail");
    if(samples)
        result.setStorageMultisample(samples, format, Vector2i{edge});
    else
        result.setStorage(format, Vector2i{edge});
    return result;
}

} // namespace

ThumbnailStage::ThumbnailStage(const SceneResources& resources, const ResourceManager& files, Int edge):
    _resources(resources),
    _files(files), _edge{edge}, _sphere{sphere()}, _colorMS{renderbuffer(Samples, GL::RenderbufferFormat::RGBA8, edge)},
    _depthMS{renderbuffer(Samples, GL::RenderbufferFormat::Depth24Stencil8, edge)}, _color{renderbuffer(0,
                                                                                        GL::RenderbufferFormat::RGBA8,
                                                                                        edge)},
    _framebufferMS{{{}, Vector2i{edge}}}, _framebuffer{{{}, Vector2i{edge}}} {
    _framebufferMS.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _colorMS)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, _depthMS)
        .setLabel("Thumbnail");
    _framebuffer.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _color).setLabel("Thumbnail");

    _cameraObject = _scene.addObject(RootObject);
    _camera = _scene.views.addComponent(_cameraObject);
    _scene.views.viewport(_camera) = {{}, Vector2i{edge}};
    _scene.views.targetFramebuffer(_camera) = &_framebufferMS;
    _scene.views.activate(_camera);
    _renderer.setViewportSize(_camera, Vector2i{edge});

    const Id sun = _scene.addObject(RootObject), light = _scene.lights.addComponent(sun);
    _scene.localTransformation(sun) = DualQuaternion::from(sunRotation(), {});
    _scene.lights.color(light) = SunColor;
    _scene.lights.setLightType(light, LightType::Sun);
    _scene.lights.activate(light);

    _component = _scene.meshes.addComponent(_scene.addObject(RootObject));
    _scene.meshes.mesh(_component) = 0;
    _scene.meshes.material(_component) = 1;
    _scene.meshes.setGroup(_component, 1, 0);
    _scene.meshes.activate(_component);
}

ThumbnailStage::Subject ThumbnailStage::plainSubject() const {
    Subject subject;
    subject.vertexSource = thumbnailShader(_files, {"default", "Dynamic.vert"});
    subject.fragmentSource = thumbnailShader(_files, {"default", "Lit.frag"});
    subject.pipeline.id = subject.pipeline.name = "Thumbnail";
    // Of a mesh that is open, the inside is seen, too.
    subject.pipeline.header.flags |= PipelineHeader::DoubleSided;
    subject.pipeline.parameters = {
        {"baseColor", ParameterType::Color, PlainColor}, {"roughness", ParameterType::Float, PlainRoughness}};
    subject.material.id = "thumbnail";
    subject.material.values = {PlainColor, PlainRoughness};
    subject.material.textures = {0, 0};
    return subject;
}

ThumbnailStage::Subject ThumbnailStage::subjectOf(Id material) const {
    Subject subject;
    subject.material = _resources.materials[material];
    subject.pipeline = _resources.pipelines[subject.material.pipeline];
    const SceneShader& shader = _resources.shaders[subject.pipeline.shader];
    std::string defines;
    for(const std::string& feature: subject.pipeline.features) defines += "#define " + feature + "\n";
    // A text has no sphere.
    if(shader.header.stage == ShaderStage::Mesh) {
        subject.vertexSource = defines + thumbnailShader(_files, shader.vertex);
        subject.fragmentSource = defines + thumbnailShader(_files, shader.fragment);
    }
    for(Id& texture: subject.material.textures) takeTexture(subject, texture);
    return subject;
}

// Puts the texture, with its image, into the subject, and tells under which index.
void ThumbnailStage::takeTexture(Subject& subject, Id& texture) const {
    const Id from = std::exchange(texture, Id{0});
    if(!from || from >= _resources.textures.size()) return;
    const Id image = _resources.textures[from].header.image;
    if(image >= _resources.images.size() || !_resources.images[image].pixels) return;
    subject.images.push_back(reducedImage(_resources.images[image], LongestImageEdge));
    SceneTexture taken = _resources.textures[from];
    taken.header.image = Id(subject.images.size());
    taken.header.texture = texture = Id(subject.textures.size() + 1);
    subject.textures.push_back(std::move(taken));
}

ThumbnailPixels ThumbnailStage::drawMesh(Id mesh) { return draw(_resources.meshes[mesh], plainSubject()); }

ThumbnailPixels ThumbnailStage::drawMaterial(Id material) { return draw(_sphere, subjectOf(material)); }

ThumbnailPixels ThumbnailStage::draw(const SceneMesh& mesh, const Subject& subject) {
    const Utility::Warning noWarnings{nullptr};
    const Utility::Error noErrors{nullptr};
    tell(mesh, subject);
    aimAt(mesh);
    return render();
}

void ThumbnailStage::tell(const SceneMesh& mesh, const Subject& subject) {
    _renderer.setLayoutFlags(_resources.meshLayoutFlags | LayoutNormal | LayoutTangent | LayoutTextureCoordinates);
    tellImages(subject);
    _renderer.clearShaders();
    _renderer.addPipeline(1, subject.pipeline, subject.vertexSource, subject.fragmentSource);
    const Containers::ArrayView<const SceneMesh> meshes{&mesh, 1};
    _renderer.prepareBatches(meshes, _scene.texts);
    _renderer.updateMeshes(meshes);
    std::vector<Draw> draws;
    for(std::size_t group = 0; group != _scene.meshes.groupsCount(); ++group)
        draws.push_back({Draw::Kind::Meshes, _scene.meshes.groupPipeline(group), Id(group), false});
    _renderer.prepareDrawsList(view(draws));
    std::vector<SceneMaterial> materials(2);
    materials[1] = subject.material;
    materials[1].pipeline = 1;
    std::vector<ScenePipeline> pipelines(2);
    pipelines[1] = subject.pipeline;
    _renderer.updateMaterials(view(materials), view(pipelines));
}

void ThumbnailStage::tellImages(const Subject& subject) {
    _renderer.clearImages();
    _renderer.setTextureAtlasSize(Vector2i{2 * LongestImageEdge});
    for(std::size_t i = 0; i != subject.images.size(); ++i)
        if(_renderer.reserveImage(Id(i + 1), subject.images[i].header.size))
            _renderer.textureAtlas().setImage(_renderer.textureAtlas().textureCount(), subject.images[i]);
    for(const SceneTexture& texture: subject.textures) _renderer.setImageForTexture(texture, texture.header.image);
    _renderer.prepareImages();
}

void ThumbnailStage::aimAt(const SceneMesh& mesh) {
    const Float radius = mesh.radius > 0.0f ? mesh.radius * Margin : 1.0f;
    const Float distance = radius / Math::sin(FieldOfView * 0.5f);
    const Vector3 eye = mesh.bounds.center() + cameraRotation().transformVectorNormalized(Vector3::zAxis(distance));
    _scene.localTransformation(_cameraObject) = DualQuaternion::from(cameraRotation(), eye);
    _scene.setDirty(_cameraObject);
    _scene.views.projectionMatrix(_camera) =
        Matrix4::perspectiveProjection(FieldOfView, 1.0f, distance - radius, distance + radius);
}

ThumbnailPixels ThumbnailStage::render() {
    _scene.computeAbsoluteTransformations();
    _scene.views.update();
    _renderer.updateMeshVisibility(_scene, _scene.views.cullingMatrix(_camera));
    _renderer.updateLights(_scene);
    RendererState{}.apply();
    _framebufferMS.clearColor(0, Background).clearDepthStencil(1.0f, 0).bind();
    _renderer.render(_scene.views, _scene);
    _scene.resetChanged();
    RendererState{}.apply();
    GL::AbstractFramebuffer::blit(_framebufferMS, _framebuffer, {{}, Vector2i{_edge}}, GL::FramebufferBlit::Color);
    const Image2D image = _framebuffer.read({{}, Vector2i{_edge}}, {PixelFormat::RGBA8Unorm});
    const auto* const pixels = reinterpret_cast<const Color4ub*>(image.data().data());
    ThumbnailPixels result{pixels, pixels + _edge * _edge};
    for(Color4ub& pixel: result) pixel.a() = 255;
    return result;
}

} // namespace VantrelEngine
