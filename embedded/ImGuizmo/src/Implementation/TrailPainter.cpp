#include <algorithm>
#include <cmath>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>

#include "Implementation/Painter.h"
#include "Implementation/ValueText.h"

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

constexpr float TrailThickness = 1.5f, StartRadius = 4.0f, TextPadding = 4.0f, TextRounding = 4.0f;
constexpr Double Turn = 2.0 * Math::Constants<Double>::pi();
// Right of the mouse and below; and from the edge of the picture
constexpr Vector2d TextOffset{20.0, 18.0}, TextMargin{4.0};

void line(Brush& brush, const Camera& camera, const Vector3d& from, const Vector3d& to, const Style& style) {
    const std::optional<Vector2d> a = camera.project(from), b = camera.project(to);
    if(!a) return;
    const ImVec4& colour = style.Colors[TRANSLATION_LINE];
    brush.disc(toScreen(*a), StartRadius, colour);
    if(b) brush.line(toScreen(*a), toScreen(*b), colour, TrailThickness);
}

// From the direction that was grabbed to where it is now; a whole circle for more than a turn.
void sector(Brush& brush, const Camera& camera, const Layout& layout, const Look& look, const Style& style) {
    enum : int { MostPoints = Layout::RingPoints + 1 };
    const Drag& drag = *look.drag;
    const Double angle = Math::clamp(look.motion.angle, -Turn, Turn);
    const int steps = std::max(int(std::ceil(std::abs(angle) / Turn * Layout::RingPoints)), 1);
    const Double radius = drag.handle.kind == Handle::Kind::TurnScreen ? OuterRingRadius : RingRadius;
    const Vector3d from = (drag.grabbed - drag.position).normalized() * (radius * layout.length);
    ImVec2 points[MostPoints + 1]{toScreen(layout.centre)};
    for(int i = 0; i <= steps; ++i) {
        const Math::Rad<Double> part{angle * i / steps};
        const Vector3d arm = from * Math::cos(part) + Math::cross(drag.normal, from) * Math::sin(part);
        points[i + 1] = toScreen(camera.project(layout.position + arm).value_or(layout.centre));
    }
    const ImVec2 start = points[1], end = points[steps + 1];
    brush.polygon(points, steps + 2, style.Colors[ROTATION_USING_FILL]);
    brush.line(toScreen(layout.centre), start, withAlpha(style.Colors[ROTATION_USING_BORDER], 0.6), TrailThickness);
    brush.line(toScreen(layout.centre), end, style.Colors[ROTATION_USING_BORDER], TrailThickness);
}

} // namespace

void paintTrail(Brush& brush, const Camera& camera, const Layout& layout, const Look& look, const Style& style) {
    const Drag& drag = *look.drag;
    if(drag.handle.isMove()) line(brush, camera, drag.position, layout.position, style);
    if(drag.handle.isTurn() && !drag.edgeOnWay) sector(brush, camera, layout, look, style);
}

void paintValue(Brush& brush, const Rect& rect, const Vector2d& pixel, const Look& look, const Style& style) {
    const ValueText text = valueText(*look.drag, look.motion);
    const ImVec2 size = ImGui::CalcTextSize(text.data());
    const Vector2d whole{Double(size.x + 2.0f * TextPadding), Double(size.y + 2.0f * TextPadding)};
    const Vector2d last = rect.position + rect.size - whole - TextMargin;
    const Vector2d at = Math::max(Math::min(pixel + TextOffset, last), rect.position + TextMargin);
    const ImVec2 corner{std::floor(float(at.x())), std::floor(float(at.y()))};
    brush.list().AddRectFilled(corner, {corner.x + float(whole.x()), corner.y + float(whole.y())},
        ImGui::ColorConvertFloat4ToU32(style.Colors[TEXT_SHADOW]), TextRounding);
    brush.list().AddText({corner.x + TextPadding, corner.y + TextPadding},
        ImGui::ColorConvertFloat4ToU32(style.Colors[TEXT]), text.data());
}

}
