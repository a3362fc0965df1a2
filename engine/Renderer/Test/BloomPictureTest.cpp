// Pictures that glow, by their pixels, beside the same arithmetic on the CPU.

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Functions.h>

#include "Renderer/Test/RendererFixture.h"
#include "Shaders/BloomKernel.h"
#include "Support/LiveObjects.h"

using namespace VantrelTest;

namespace {

constexpr const char* LinearSource = "void main() { fragmentColor = vec4(screenColor(material_color().rgb), "
                                     "material_color().a); }\n";

float screenValue(double linear) {
    const double value = std::clamp(linear, 0.0, 1.0);
    return float(255.0 * (value <= 0.0031308 ? 12.92 * value : 1.055 * std::pow(value, 1.0 / 2.4) - 0.055));
}

// One channel.
struct Grid {
    int size;
    std::vector<double> values;

    explicit Grid(int size): size{size}, values(std::size_t(size) * std::size_t(size)) {}
    double& at(int x, int y) {
        x = std::clamp(x, 0, size - 1);
        y = std::clamp(y, 0, size - 1);
        return values[std::size_t(y) * std::size_t(size) + std::size_t(x)];
    }
    // Between pixels, whose middles are at halves.
    double between(double x, double y) {
        const int left = int(std::floor(x - 0.5)), below = int(std::floor(y - 0.5));
        const double right = x - 0.5 - left, above = y - 0.5 - below;
        return (at(left, below) * (1.0 - right) + at(left + 1, below) * right) * (1.0 - above) +
            (at(left, below + 1) * (1.0 - right) + at(left + 1, below + 1) * right) * above;
    }
};

// Reads something with an offset in pixels along an axis, for each pixel of another size.
template<class Read> Grid blurred(int size, double scale, bool isVertical, unsigned kernelSize, Read read) {
    const auto weights = Shaders::bloomWeights(kernelSize);
    Grid result{size};
    for(int y = 0; y != size; ++y)
        for(int x = 0; x != size; ++x) {
            double sum = 0.0;
            for(int i = 1 - int(weights.size()); i != int(weights.size()); ++i) {
                const double offset = i;
                sum += weights[std::size_t(std::abs(i))] *
                    read((x + 0.5) * scale + (isVertical ? 0.0 : offset),
                        (y + 0.5) * scale + (isVertical ? offset : 0.0));
            }
            result.at(x, y) = sum;
        }
    return result;
}

struct Settings {
    unsigned kernelSize, passes;
    float threshold, intensity, exposure;
};

// What of a grey scene comes to the screen.
Grid glowing(Grid scene, const Settings& settings) {
    const auto onceMore = [&](Grid& from, int size, double scale, bool isVertical) {
        return blurred(
            size, scale, isVertical, settings.kernelSize, [&](double x, double y) { return from.between(x, y); });
    };
    const int size = scene.size;
    Grid half{size / 2};
    for(int y = 0; y != half.size; ++y)
        for(int x = 0; x != half.size; ++x) half.at(x, y) = scene.between(2.0 * x + 1.0, 2.0 * y + 1.0);
    Grid glow = blurred(half.size, 1.0, false, settings.kernelSize, [&](double x, double y) {
        const double value = half.between(x, y);
        return value > settings.threshold ? value : 0.0;
    });
    for(unsigned pass = 1; pass < settings.passes; ++pass) {
        Grid vertical = onceMore(glow, size / 2, 1.0, true);
        glow = onceMore(vertical, size / 2, 1.0, false);
    }
    Grid added = onceMore(glow, size, 0.5, true);
    const double intensity = settings.passes ? settings.intensity : 0.0;
    for(std::size_t i = 0; i != scene.values.size(); ++i)
        scene.values[i] = 1.0 - std::exp(-(scene.values[i] + intensity * added.values[i]) * settings.exposure);
    return scene;
}

struct BloomPictureTest: RendererTest {
    BloomPictureTest() {
        fragment = LinearSource;
        pipeline = addPipeline("Linear");
        tell();
    }

    // A square of edges of 2 in a colour, whose pixels are the ones of the middle quarter.
    void addSquare(const Vector4& value, const Vector3& position = {}, Float halfEdge = 1.0f) {
        add(addMesh(square({}, halfEdge)), addMaterial(pipeline, value), position);
    }
    void set(const Settings& settings) {
        renderer.setBloomEnabled(true);
        renderer.bloomPass()
            .setKernelSize(settings.kernelSize)
            .setPasses(settings.passes)
            .setThreshold(settings.threshold)
            .setIntensity(settings.intensity)
            .setExposure(settings.exposure);
    }

    Id pipeline;
};

TEST_F(BloomPictureTest, isTheScenePlusItsBlurredBrightPixels) {
    // In front of a dark grey wall that fills the picture.
    addSquare({0.05f, 0.05f, 0.05f, 1.0f}, {0.0f, 0.0f, -1.0f}, 5.0f);
    addSquare({3.0f, 3.0f, 3.0f, 1.0f}, {0.5f, -0.5f, 0.0f});
    tell();
    for(const Settings& settings: {Settings{5, 0, 1.0f, 1.0f, 1.0f}, {1, 1, 1.0f, 0.5f, 1.0f}, {5, 1, 1.0f, 0.2f, 1.0f},
            {5, 4, 1.0f, 0.2f, 1.0f}, {21, 2, 1.0f, 0.2f, 2.0f}, {9, 3, 4.0f, 1.0f, 1.0f}, {8, 3, 0.01f, 0.1f, 0.5f}}) {
        SCOPED_TRACE("kernel " + std::to_string(settings.kernelSize) + ", passes " + std::to_string(settings.passes));
        set(settings);
        Grid scene{Size};
        for(int y = 0; y != Size; ++y)
            for(int x = 0; x != Size; ++x) scene.at(x, y) = x >= 28 && x < 44 && y >= 20 && y < 36 ? 3.0 : 0.05;
        const Grid expected = glowing(scene, settings);
        const std::vector<std::uint32_t> picture = frame();
        double largest = 0.0;
        for(std::size_t i = 0; i != picture.size(); ++i)
            largest = std::max(largest, std::abs(double(picture[i] >> 24) - double(screenValue(expected.values[i]))));
        EXPECT_LE(largest, 2.0);
    }
}

Settings plain() { return {5, 2, 1.0f, 0.5f, 1.0f}; }

std::vector<std::uint8_t> reds(const std::vector<std::uint32_t>& picture) {
    std::vector<std::uint8_t> result;
    for(const std::uint32_t pixel: picture) result.push_back(std::uint8_t(pixel >> 24));
    return result;
}

TEST_F(BloomPictureTest, isBuiltAnewWheneverTheKernelIsSet) {
    Shaders::BloomPass& pass = renderer.bloomPass();
    const UnsignedInt first = pass.setKernelSize(5).program().id();
    EXPECT_EQ(pass.kernelSize(), 5u);
    const UnsignedInt second = pass.setKernelSize(5).program().id();
    EXPECT_NE(second, first);
    EXPECT_FALSE(glIsProgram(first));
    pass.setPasses(3).setThreshold(4.0f).setIntensity(5.0f).setExposure(6.0f);
    EXPECT_EQ(pass.program().id(), second);
    EXPECT_EQ(pass.passes(), 3u);
    EXPECT_EQ(pass.threshold(), 4.0f);
    EXPECT_EQ(pass.intensity(), 5.0f);
    EXPECT_EQ(pass.exposure(), 6.0f);
}

TEST_F(BloomPictureTest, isThereWithoutParametersToo) {
    addSquare({0.5f, 0.5f, 0.5f, 1.0f});
    tell();
    renderer.setBloomEnabled(true);
    EXPECT_NEAR(at(frame(), 0.0f, 0.0f) >> 24, screenValue(1.0 - std::exp(-0.5)), 1);
}

TEST_F(BloomPictureTest, theBackgroundStaysWhatItIs) {
    addSquare({0.9f, 0.9f, 0.9f, 1.0f});
    tell();
    set(plain());
    update();
    for(const Color4& background: {Color4{0.2f, 0.6f, 1.0f, 1.0f}, Color4{1.0f, 1.0f, 1.0f, 1.0f}}) {
        clear(background);
        const std::vector<std::uint32_t> before = pixels();
        renderer.render(scene.views, scene);
        const std::vector<std::uint32_t> after = pixels();
        EXPECT_EQ(std::count(after.begin(), after.end(), before[0]), Size * Size - 16 * 16);
        EXPECT_NEAR(at(after, 0.0f, 0.0f) >> 24, screenValue(1.0 - std::exp(-0.9)), 1);
    }
}

TEST_F(BloomPictureTest, aGlowBrightensTheBackground) {
    addSquare({5.0f, 5.0f, 5.0f, 1.0f});
    tell();
    set(plain());
    update();
    clear(Color4{0.5f, 1.0f});
    renderer.render(scene.views, scene);
    const std::vector<std::uint32_t> picture = pixels();
    EXPECT_GT(at(picture, 1.1f, 0.0f) >> 24, 160u);
    EXPECT_EQ(at(picture, 3.5f, 0.0f), 0x808080ffu);
}

TEST_F(BloomPictureTest, isLikeThePictureWithoutItWhereNothingIsBright) {
    for(const Float value: {0.05f, 0.1f, 0.2f, 0.4f})
        addSquare({value, value, value, 1.0f}, {value * 10.0f - 3.0f, 0.0f, 0.0f}, 0.2f);
    tell();
    const std::vector<std::uint8_t> without = reds(frame());
    set(plain());
    const std::vector<std::uint8_t> with = reds(frame());
    EXPECT_NE(with, without);
    for(std::size_t i = 0; i != with.size(); ++i) EXPECT_NEAR(with[i], without[i], 16) << i;
}

// What is drawn afterwards is hidden by it, and what was drawn before hides it.
TEST_F(BloomPictureTest, sharesTheDepthOfItsTarget) {
    addSquare({5.0f, 5.0f, 5.0f, 1.0f});
    tell();
    frame();
    const std::vector<float> before = depths();
    set(plain());
    frame();
    EXPECT_EQ(depths(), before);
    EXPECT_NE(before.front(), before[Size * Size / 2 + Size / 2]);

    framebuffer.clearColor(0, Color4{0.0f, 1.0f}).clearDepthStencil(0.1f, 0);
    renderer.render(scene.views, scene);
    EXPECT_EQ(at(pixels(), 0.0f, 0.0f), Nothing);
}

TEST_F(BloomPictureTest, linearColoursAreBlended) {
    const Id blended = addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend, 1);
    addSquare({0.8f, 0.8f, 0.8f, 1.0f});
    add(addMesh(square()), addMaterial(blended, {0.2f, 0.2f, 0.2f, 0.25f}), {0.0f, 0.0f, 1.0f});
    tell();
    set({5, 0, 1.0f, 1.0f, 1.0f});
    EXPECT_NEAR(at(frame(), 0.0f, 0.0f) >> 24, screenValue(1.0 - std::exp(-0.65)), 1);
}

TEST_F(BloomPictureTest, whatDoesNotBlendCoversWhateverItsAlpha) {
    addSquare({0.5f, 0.5f, 0.5f, 0.0f});
    tell();
    set(plain());
    update();
    clear(Color4{1.0f});
    renderer.render(scene.views, scene);
    EXPECT_NEAR(at(pixels(), 0.0f, 0.0f) >> 24, screenValue(1.0 - std::exp(-0.5)), 1);
}

// No pixel is drawn into from far away by what 16 bits cannot hold.
TEST_F(BloomPictureTest, endlessBrightnessStaysWhereItIs) {
    addSquare({1e30f, 1e30f, 1e30f, 1.0f}, {-2.0f, 0.0f, 0.0f}, 0.3f);
    addSquare({0.5f, 0.5f, 0.5f, 1.0f}, {3.0f, 0.0f, 0.0f}, 0.3f);
    tell();
    set(plain());
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), 0xffffffffu);
    EXPECT_NEAR(at(picture, 3.0f, 0.0f) >> 24, screenValue(1.0 - std::exp(-0.5)), 1);
}

TEST_F(BloomPictureTest, morePassesThan64AreAs64) {
    addSquare({5.0f, 5.0f, 5.0f, 1.0f});
    tell();
    set({3, 64, 1.0f, 1.0f, 1.0f});
    const std::vector<std::uint32_t> picture = frame();
    set({3, 0xffffffffu, 1.0f, 1.0f, 1.0f});
    EXPECT_EQ(frame(), picture);
    set({3, 63, 1.0f, 1.0f, 1.0f});
    EXPECT_NE(frame(), picture);
}

// Those of the editor, say; they come out with an exposure of 1.
TEST_F(BloomPictureTest, coloursOfTheScreenStayWhatTheyAre) {
    fragment = "void main() { fragmentColor = vec4(shownColor(material_color().rgb), 1.0); }\n";
    const Vector4 color{0.2f, 0.5f, 0.8f, 1.0f};
    addSquare(color);
    tell();
    const std::uint32_t without = at(frame(), 0.0f, 0.0f);
    EXPECT_EQ(without, 0x3380ccffu);
    set({5, 0, 1.0f, 1.0f, 1.0f});
    const std::uint32_t with = at(frame(), 0.0f, 0.0f);
    for(const int shift: {8, 16, 24}) EXPECT_NEAR(int(with >> shift & 255), int(without >> shift & 255), 1) << shift;
}

TEST_F(BloomPictureTest, pipelinesHaveOneProgramMoreWithIt) {
    addSquare(RedColor);
    tell();
    frame();
    const std::size_t programs = renderer.builtPrograms();
    set(plain());
    frame();
    EXPECT_EQ(renderer.builtPrograms(), programs + 1);
    tell();
    frame();
    set(plain());
    frame();
    EXPECT_EQ(renderer.builtPrograms(), programs + 1);
}

TEST_F(BloomPictureTest, takesNothingWhileItIsOff) {
    addSquare(RedColor);
    tell();
    frame();
    renderer.bloomPass().setKernelSize(5);
    const LiveObjects before = LiveObjects::count();
    set(plain());
    frame();
    const LiveObjects with = LiveObjects::count();
    EXPECT_GT(with.textures, before.textures);
    EXPECT_GT(with.framebuffers, before.framebuffers);
    for(int i = 0; i != 3; ++i) {
        renderer.setBloomEnabled(false);
        frame();
        EXPECT_EQ(LiveObjects::count(), before);
        set(plain());
        frame();
        EXPECT_EQ(LiveObjects::count(), with);
    }
}

// A target with samples, of another size each time.
struct Target {
    explicit Target(const Vector2i& size, Int samples): size{size}, drawn{{{}, size}}, resolved{{{}, size}} {
        color.setStorageMultisample(samples, GL::RenderbufferFormat::RGBA8, size);
        depth.setStorageMultisample(samples, GL::RenderbufferFormat::Depth24Stencil8, size);
        drawn.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, color)
            .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, depth);
        resolvedColor.setStorage(GL::RenderbufferFormat::RGBA8, size);
        resolved.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, resolvedColor);
    }

    std::uint32_t middle() {
        GL::AbstractFramebuffer::blit(drawn, resolved, {{}, size}, GL::FramebufferBlit::Color);
        const Image2D image = resolved.read({size / 2, size / 2 + Vector2i{1}}, Image2D{PixelFormat::RGBA8Unorm});
        return static_cast<unsigned char>(image.data()[0]);
    }

    Vector2i size;
    GL::Renderbuffer color, depth, resolvedColor;
    GL::Framebuffer drawn, resolved;
};

TEST_F(BloomPictureTest, viewsOfSeveralSizesAndSamples) {
    addSquare({0.5f, 0.5f, 0.5f, 1.0f});
    tell();
    set(plain());
    Target small{{31, 17}, 4}, large{{120, 90}, 4};
    const Id other = scene.views.addComponent(cameraObject);
    scene.views.projectionMatrix(other) = scene.views.projectionMatrix(camera);
    scene.views.activate(other);
    LiveObjects objects;
    for(int i = 0; i != 3; ++i) {
        scene.views.targetFramebuffer(camera) = &small.drawn;
        scene.views.targetFramebuffer(other) = &large.drawn;
        update();
        RendererState{}.apply();
        for(Target* const target: {&small, &large})
            target->drawn.clearColor(0, Color4{0.0f, 1.0f}).clearDepthStencil(1.0f, 0);
        renderer.render(scene.views, scene);
        for(Target* const target: {&small, &large})
            EXPECT_NEAR(target->middle(), screenValue(1.0 - std::exp(-0.5)), 1) << target->size.x();
        if(i == 0) objects = LiveObjects::count();
        EXPECT_EQ(LiveObjects::count(), objects);
        // The views change places: their pictures are made anew, and none is left.
        std::swap(small.drawn, large.drawn);
        std::swap(small.resolved, large.resolved);
        std::swap(small.size, large.size);
    }
}

TEST_F(BloomPictureTest, picturesAreMadeAnewOnlyForAnotherSize) {
    const auto textures = [] {
        std::vector<GLuint> names;
        for(GLuint name = 1; name != 1000; ++name)
            if(glIsTexture(name)) names.push_back(name);
        return names;
    };
    addSquare(RedColor);
    tell();
    set(plain());
    frame();
    const std::vector<GLuint> first = textures();
    frame();
    EXPECT_EQ(textures(), first);
    framebuffer.setViewport({{}, {40, 40}});
    frame();
    EXPECT_NE(textures(), first);
    EXPECT_EQ(textures().size(), first.size());
}

// Of a target that says it is larger than a texture can be.
TEST_F(BloomPictureTest, withoutMemoryNothingGlows) {
    addSquare({0.5f, 0.5f, 0.5f, 1.0f}, {}, 4.0f);
    tell();
    frame();
    renderer.bloomPass().setKernelSize(5);
    const LiveObjects without = LiveObjects::count();
    set(plain());
    const std::vector<std::uint32_t> glowing = frame();
    framebuffer.setViewport({{}, {100000, 100000}});
    const std::string lines = linesOf([&] {
        for(int i = 0; i != 3; ++i) {
            update();
            clear();
            renderer.render(scene.views, scene);
        }
    });
    EXPECT_EQ(lines, "WebGL2Renderer: no memory for the bloom of 100000 x 100000 pixels: drawn without\n");
    EXPECT_EQ(LiveObjects::count(), without);
    framebuffer.setViewport({{}, {Size, Size}});
    EXPECT_EQ(at(frame(), 0.0f, 0.0f) >> 24, unsigned(screenValue(0.5) + 0.5f)) << "in the colours of the screen";

    renderer.setViewportSize(camera, Vector2i{Size + 1});
    EXPECT_EQ(frame(), glowing) << "it is tried again for another size";
}

TEST_F(BloomPictureTest, anotherTargetHasADepthOfItsOwn) {
    addSquare({0.5f, 0.5f, 0.5f, 1.0f});
    tell();
    set(plain());
    const std::uint32_t color = at(frame(), 0.0f, 0.0f);
    // Another target of the same size.
    GL::Renderbuffer otherColor, otherDepth;
    otherColor.setStorage(GL::RenderbufferFormat::RGBA8, Vector2i{Size});
    otherDepth.setStorage(GL::RenderbufferFormat::Depth24Stencil8, Vector2i{Size});
    GL::Framebuffer other{{{}, Vector2i{Size}}};
    other.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, otherColor)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, otherDepth)
        .clearColor(0, Color4{0.0f, 1.0f})
        .clearDepthStencil(0.1f, 0);
    std::swap(framebuffer, other);
    renderer.render(scene.views, scene);
    EXPECT_EQ(at(pixels(), 0.0f, 0.0f), Nothing) << "its depth hides what is drawn";
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), color);
    std::swap(framebuffer, other);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), color);
}

// Names of deleted objects are given again, with another depth behind them.
TEST_F(BloomPictureTest, whereTheSizeWasAnotherOneMeanwhileTheDepthIsAskedForAgain) {
    addSquare({0.5f, 0.5f, 0.5f, 1.0f});
    tell();
    set(plain());
    frame();
    GL::Renderbuffer otherDepth;
    otherDepth.setStorage(GL::RenderbufferFormat::Depth24Stencil8, Vector2i{Size});
    framebuffer.attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, otherDepth);
    renderer.setViewportSize(camera, Vector2i{Size + 1});
    renderer.setViewportSize(camera, Vector2i{Size});
    framebuffer.clearColor(0, Color4{0.0f, 1.0f}).clearDepthStencil(0.1f, 0);
    renderer.render(scene.views, scene);
    EXPECT_EQ(at(pixels(), 0.0f, 0.0f), Nothing);
}

TEST_F(BloomPictureTest, aViewWithoutATargetIsNotDrawn) {
    addSquare(RedColor);
    tell();
    set(plain());
    scene.views.targetFramebuffer(camera) = nullptr;
    EXPECT_THAT(frame(), testing::Each(Nothing));
}

} // namespace
