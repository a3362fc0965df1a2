#include <cstdlib>
#include <new>

#include "Renderer/Test/RendererFixture.h"

namespace {

// Counts while it is wanted, all threads.
std::size_t allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if(void* const memory = std::malloc(size ? size : 1)) return memory;
    std::abort();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

using namespace VantrelTest;

namespace {

struct AllocationTest: RendererTest {};

// A frame in which meshes move, come into sight and go, once as many were there before.
TEST_F(AllocationTest, framesAllocateNothing) {
    const Id pipelines[]{
        addPipeline("Plain"), addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend)};
    const Id meshes[]{addMesh(square()), addMesh(shapeMesh(MeshShape::Cube))};
    std::vector<Id> objects;
    for(int i = 0; i != 500; ++i)
        objects.push_back(add(meshes[i % 2], addMaterial(pipelines[i / 2 % 2], {1.0f, 0.5f, 0.0f, 0.5f}),
            {Float(i % 25) - 12.0f, Float(i / 25) - 10.0f, Float(i % 7)}));
    const Id lamp = scene.lights.addComponent(scene.addObject(RootObject));
    scene.lights.setLightType(lamp, LightType::Sun);
    scene.lights.parameters(lamp).z() = 1.0f;
    scene.lights.shadowRange(lamp) = 30.0f;
    scene.lights.shadowParameters(lamp) = {0.0f, 0.0f, 1.0f, 2.0f};
    scene.lights.activate(lamp);
    tell();
    UnsignedLong words[8]{};
    for(UnsignedLong& word: words) word = 0x5555555555555555u;
    // At first all of it is seen, and then what is seen changes.
    const auto draw = [&](int number) {
        scene.localTransformation(cameraObject) = DualQuaternion::translation({Float(number % 5) * 0.5f, 0.0f, 20.0f});
        scene.setDirty(cameraObject);
        for(int i = 0; i != 50; ++i)
            move(objects[std::size_t(i * 7 + number) % 500], {Float(i % 9) - 4.0f, Float(i % 5), Float(number % 3)});
        scene.computeAbsoluteTransformations();
        scene.views.update();
        const std::size_t before = allocations;
        renderer.updateMeshVisibility(scene, scene.views.cullingMatrix(camera));
        renderer.updateLights(scene);
        renderer.updateShadows(scene, scene.views);
        framebuffer.bind();
        renderer.render(scene.views, scene);
        renderer.drawObjectIds(scene.views, camera, scene);
        renderer.drawFlat(scene.views, camera, scene, BitSetView{words, 512}, Color4{1.0f});
        scene.resetChanged();
        return allocations - before;
    };
    clear();
    renderer.setFrustumCullingEnabled(false);
    EXPECT_GT(draw(0), 0u);
    renderer.setFrustumCullingEnabled(true);
    for(const bool isMultiDraw: {true, false}) {
        renderer.setMultiDrawEnabled(isMultiDraw);
        for(int i = 1; i != 20; ++i) draw(i);
        for(int i = 20; i != 40; ++i) EXPECT_EQ(draw(i), 0u) << i;
    }
    EXPECT_GT(renderer.drawCalls(), 1u);
    EXPECT_GT(renderer.drawnShadowMaps(), 0u);
}

} // namespace
