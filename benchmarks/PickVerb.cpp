#include <bitset>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EditorData/EditorData.h>
#include <imgui.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "GridProject.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr double ObjectsLimit = 0.2;
constexpr double ReadbackLimit = 3.0;
constexpr Vector2i PickSize{640, 480};
// What shows the mouse, the hovered view and the picture's ids as they are.
constexpr int FramesToSettle = 4;
// GLFW's.
constexpr int KeyB = 66;

// Of the window, from the top left corner of the picture.
Vector2i placeOf(BenchView& view, const Vector2i& pixel) { return view.windowSize() - view.pictureSize() + pixel; }

void hover(BenchView& view, const Vector2i& place) {
    ImGui::GetIO().MousePos = {Float(place.x()), Float(place.y())};
    for(int i = 0; i != FramesToSettle; ++i) view.frameSeconds();
}

std::size_t selected(BenchView& view) { return view.host().session.data().selection().countSet(); }

void expectSelected(BenchView& view, std::size_t least, std::size_t most) {
    const std::size_t count = selected(view);
    if(count >= least && count <= most) return;
    std::fprintf(stderr, "vantrel-bench: %zu objects are selected instead of %zu to %zu\n", count, least, most);
    std::exit(1);
}

// The first pixel that shows an object, in rows from below; from the top left corner of the picture.
Vector2i pixelOfAnObject(BenchView& view) {
    const Vector2i size = view.pictureSize();
    const Image2D ids = view.host().objectIds();
    Vector2i pixel;
    while(pixel.y() + 1 != size.y() && VantrelTest::pixelOf(ids, pixel).rgb() == Color3ub{255})
        pixel = pixel.x() + 1 == size.x() ? Vector2i{0, pixel.y() + 1} : pixel + Vector2i{1, 0};
    return {pixel.x(), size.y() - 1 - pixel.y()};
}

double clickSeconds(BenchView& view, const Vector2i& place) {
    view.host().session.data().selection().clear();
    const double seconds = secondsOf([&] {
        view.host().view().mousePressEvent({MouseButton::Left, place, 0});
        view.host().view().mouseReleaseEvent({MouseButton::Left, place, 0});
    });
    expectSelected(view, 1, 1);
    return seconds;
}

double boxSeconds(BenchView& view, const Vector2i& from, const Vector2i& to) {
    view.host().view().keyPressEvent({KeyB, 0, false});
    view.host().view().keyReleaseEvent({KeyB, 0, false});
    view.host().view().mousePressEvent({MouseButton::Left, from, 0});
    return secondsOf([&] { view.host().view().mouseReleaseEvent({MouseButton::Left, to, 0}); });
}

// The ids as they are in the picture, and each of them once.
double bareSeconds(BenchView& view, std::size_t& count) {
    GL::Framebuffer& framebuffer = *view.host().state.sceneViewFramebuffer;
    return secondsOf([&] {
        framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{1});
        const Image2D image = framebuffer.read(framebuffer.viewport(), Image2D{PixelFormat::RGBA8Unorm});
        std::bitset<65536> seen;
        for(const UnsignedInt pixel: Containers::arrayCast<const UnsignedInt>(image.data()))
            seen[pixel & 0xffff] = true;
        count = seen.count();
    });
}

}

void pick(std::size_t count, const Budget& budget) {
    BenchView view{PickSize};
    view.setPictureSize(PickSize);
    // Sizes come in turn: a project is opened for each, and its frame is done, before the click.
    Growth growth;
    for(const std::size_t size: sizesUpTo(count)) {
        view.open(BenchProject{gridProject(size)}.path());
        hover(view, placeOf(view, PickSize - Vector2i{1}));
        const Vector2i place = placeOf(view, pixelOfAnObject(view));
        view.expectVisible(size);
        growth.sizes.push_back(double(size));
        growth.seconds.push_back(medianSeconds([&] { return clickSeconds(view, place); }, budget));
    }
    growth.exponent = exponentOf(growth.sizes, growth.seconds);
    printGrowth("pick", "objects", growth, ObjectsLimit);
}

void box(std::size_t count, const Vector2i& size, const Budget& budget) {
    BenchView view{size};
    view.setPictureSize(size);
    view.open(BenchProject{gridProject(count)}.path());
    const Vector2i from = placeOf(view, {}), to = placeOf(view, size);
    hover(view, placeOf(view, {size.x() / 2, size.y() - 1}));
    view.expectVisible(count);
    std::size_t seen = 0;
    const Result result = measureTimedPairs(
        "box", "beside_bare_readback", [&] { return boxSeconds(view, from, to); },
        [&] { return bareSeconds(view, seen); }, budget);
    // All that is seen but the background.
    expectSelected(view, seen - 1, seen);
    print(result);
    printLine(limitLine("box", "beside_bare_readback", "ratio", result.ratio, ReadbackLimit));
}

}
