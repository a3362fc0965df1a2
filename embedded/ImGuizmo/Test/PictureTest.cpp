// What the gizmo looks like, beside pictures that somebody looked at and found right: VANTREL_UPDATE_GOLDENS=1 writes
// them anew.

#include <cstdlib>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/GL/Context.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <imgui.h>
#include <imgui_impl_opengl3.h>

#include "Abi/Picture.h"
#include "Abi/RenderTarget.h"
#include "ImGuizmo/GizmoWindow.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Magnum;
using namespace Math::Literals;
using GizmoTest::GizmoWindow;
using VantrelProof::Picture;

constexpr int Step = 8;
constexpr double Tolerated = 0.001;
constexpr Vector2i Size{240, 200};

struct Golden {
    const char* name;
    // From a gizmo of the picture's size with an axis of 60 pixels to one that is drawn right by the next frame
    std::function<void(GizmoWindow&)> prepare;
};

void PrintTo(const Golden& golden, std::ostream* out) { *out << golden.name; }

Picture picture(const Image2D& image) {
    Picture out{image.size().x(), image.size().y(), {}};
    const auto pixels = image.pixels<Color4ub>();
    for(int y = out.height; y-- > 0;)
        for(const Color4ub color: pixels[std::size_t(y)])
            for(const UnsignedByte channel: {color.r(), color.g(), color.b(), UnsignedByte{255}})
                out.pixels.push_back(channel);
    return out;
}

// One context of the UI library with its drawing
class Canvas {
public:
    explicit Canvas(): window{Vector2{Size}}, _target{Size} {
        ImGui_ImplOpenGL3_Init("#version 330 core");
        ImGui_ImplOpenGL3_NewFrame();
        ImGui::GetStyle().Colors[ImGuiCol_WindowBg] = {0.24f, 0.25f, 0.27f, 1.0f};
        ImGui::GetStyle().WindowBorderSize = 0.0f;
        ImGui::GetStyle().WindowRounding = 0.0f;
    }
    ~Canvas() { ImGui_ImplOpenGL3_Shutdown(); }

    Picture draw() {
        window.frame();
        _target.multisampled().bind();
        ImGui_ImplOpenGL3_RenderDrawData(ImGui::GetDrawData());
        GL::Context::current().resetState();
        _target.resolve();
        return picture(_target.read());
    }

    GizmoWindow window;

private:
    VantrelProof::RenderTarget _target;
};

class PictureTest: public VantrelTest::GlTest, public testing::WithParamInterface<Golden> {};

TEST_P(PictureTest, isAsItWasFoundRight) {
    const Golden& golden = GetParam();
    Canvas canvas;
    golden.prepare(canvas.window);
    const Picture actual = canvas.draw();
    const std::string file = std::string{GOLDENS} + "/" + golden.name + ".png";
    const char* const updating = std::getenv("VANTREL_UPDATE_GOLDENS");
    if(updating && *updating && *updating != '0') {
        ASSERT_TRUE(writePng(file, actual));
    }
    const auto stored = VantrelProof::readPng(file);
    ASSERT_TRUE(stored) << file;
    ASSERT_EQ(stored->width, actual.width);
    ASSERT_EQ(stored->height, actual.height);
    const VantrelProof::Difference difference = compare(*stored, actual, Step);
    EXPECT_LE(difference.fraction, Tolerated) << "the largest difference is " << difference.largest;
    if(difference.fraction > Tolerated) writePng(std::string{"gizmo-"} + golden.name + "-actual.png", actual);

    canvas.window.matrix = Matrix4::translation(Vector3::zAxis(100.0f));
    EXPECT_GT(compare(*stored, canvas.draw(), Step).fraction, 2 * Tolerated) << "without the gizmo";
    canvas.window.release();
    canvas.window.frame();
}

constexpr Float Axis = 60.0f;

void hover(GizmoWindow& window, const Vector2& pixel) {
    window.moveTo(pixel);
    window.frame();
}
void pull(GizmoWindow& window, const Vector2& from, const Vector2& way) {
    ASSERT_TRUE(window.grab(from));
    window.moveTo(from + way);
    window.frame();
}
Vector2 middle(const GizmoWindow& window) { return window.project(window.matrix.translation()); }
Vector2 onRing(const GizmoWindow& window, const Vector3& axis) {
    const Vector3 eye = window.view.inverted().translation();
    return window.pixelAt((eye - axis * Math::dot(eye, axis)).normalized(), 1.16f * Axis);
}

const Golden Goldens[]{
    {"translate", [](GizmoWindow& window) { hover(window, window.pixelAt(Vector3::xAxis(), 0.7f * Axis)); }},
    {"translate-plane",
        [](GizmoWindow& window) {
            pull(window, window.pixelAt({0.65f, 0.65f, 0.0f}, Axis), {40.0f, 15.0f});
        }},
    {"rotate",
        [](GizmoWindow& window) {
            window.operation = ImGuizmo::ROTATE;
            hover(window, onRing(window, Vector3::yAxis()));
        }},
    {"rotate-drag",
        [](GizmoWindow& window) {
            window.operation = ImGuizmo::ROTATE;
            pull(window, onRing(window, Vector3::yAxis()), {50.0f, -6.0f});
        }},
    {"scale-drag",
        [](GizmoWindow& window) {
            window.operation = ImGuizmo::SCALE;
            const Vector2 from = window.pixelAt(Vector3::yAxis(), 0.8f * Axis);
            pull(window, from, (from - middle(window)) * 0.5f);
        }},
    {"turned",
        [](GizmoWindow& window) {
            window.mode = ImGuizmo::LOCAL;
            window.matrix = Matrix4::rotation(40.0_degf, Vector3{1.0f, 1.0f, 0.2f}.normalized());
            hover(window, middle(window));
        }},
    {"disabled", [](GizmoWindow&) { ImGuizmo::Enable(false); }},
};

INSTANTIATE_TEST_SUITE_P(Gizmo, PictureTest, testing::ValuesIn(Goldens), [](const auto& info) {
    std::string name = info.param.name;
    for(char& c: name)
        if(c == '-') c = '_';
    return name;
});

}
