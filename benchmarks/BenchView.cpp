#include "BenchView.h"

#include <cstdio>
#include <cstdlib>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Math/Range.h>
#include <imgui.h>

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr int FramesToGetWarm = 3;

// For the window, which is as large as the picture and its menu.
Vector2i withEnvironment(const Vector2i& size) {
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 0);
    setenv("GALLIUM_DRIVER", "llvmpipe", 0);
    setenv("LP_NUM_THREADS", "0", 0);
    return size;
}

void expectOpened(const OpenedProject& opened) {
    if(opened.error.empty()) return;
    std::fprintf(stderr, "vantrel-bench: %s\n", opened.error.data());
    std::exit(1);
}

}

BenchView::BenchView(const Vector2i& pictureSize, const VantrelTest::ViewHost::Reached& reached):
    _host{withEnvironment(pictureSize), reached}, _windowSize{pictureSize} {}

void BenchView::open(const std::string& path) { expectOpened(_host.session.open(path)); }

void BenchView::read(const std::string& path) { expectOpened(_host.session.read(path)); }

void BenchView::setPictureSize(const Vector2i& size) {
    _host.resize(_windowSize = size);
    frameSeconds();
    _host.resize(_windowSize = 2 * size - pictureSize());
    frameSeconds();
}

Vector2i BenchView::pictureSize() { return _host.state.sceneViewFramebuffer->viewport().size(); }

double BenchView::frameSeconds() {
    return secondsOf([&] {
        _host.frame();
        GL::Renderer::finish();
    });
}

double BenchView::warmFrameSeconds(const Budget& budget) {
    for(int i = 0; i != FramesToGetWarm; ++i) frameSeconds();
    return medianSeconds([&] { return frameSeconds(); }, budget);
}

void BenchView::expectVisible(std::size_t meshes) {
    const std::size_t visible = _host.state.statistics.visibleMeshes;
    if(visible == meshes) return;
    std::fprintf(stderr, "vantrel-bench: %zu meshes are visible instead of %zu\n", visible, meshes);
    std::exit(1);
}

void BenchView::collapse() {
    _host.state.views.pane(0) = {};
    ImGui::SetWindowCollapsed("Scene View", true);
    frameSeconds();
}

}
