#include "Style/IconShapes.h"

#include <algorithm>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;
using namespace Magnum::Math::Literals;

namespace {

// All icons are drawn about this point, within this distance of it.
const Vector2 Center{512.0f, 388.0f};
constexpr float Reach = 430.0f;

Vector2 at(float x, float y) { return Center + Vector2{x, y}; }

Vector2 direction(float degrees) {
    const Rad angle{Deg{degrees}};
    return {Math::cos(angle), Math::sin(angle)};
}

Vector2 perpendicular(const Vector2& vector) { return {-vector.y(), vector.x()}; }

// Corners come in any order of turning; filled ones turn clockwise.
float area(const IconOutline& outline) {
    float sum = 0.0f;
    for(std::size_t i = 0; i != outline.size(); ++i)
        sum += Math::dot(perpendicular(outline[i]), outline[(i + 1) % outline.size()]);
    return sum;
}

IconOutline filled(IconOutline outline) {
    if(area(outline) > 0.0f) std::reverse(outline.begin(), outline.end());
    return outline;
}

IconOutline hole(IconOutline outline) {
    outline = filled(std::move(outline));
    std::reverse(outline.begin(), outline.end());
    return outline;
}

IconOutline line(const Vector2& from, const Vector2& to, float width) {
    const Vector2 side = perpendicular((to - from).normalized()) * width * 0.5f;
    return filled({from + side, to + side, to - side, from - side});
}

IconOutline rectangle(const Vector2& min, const Vector2& max) {
    return filled({min, {min.x(), max.y()}, max, {max.x(), min.y()}});
}

IconOutline regular(const Vector2& center, float radius, int corners, float firstAngle) {
    IconOutline outline;
    for(int i = 0; i != corners; ++i)
        outline.push_back(center + direction(firstAngle + 360.0f * float(i) / float(corners)) * radius);
    return filled(std::move(outline));
}

IconOutline circle(const Vector2& center, float radius) { return regular(center, radius, 40, 0.0f); }

// A head of an arrow, its tip in front.
IconOutline head(const Vector2& tip, const Vector2& towards, float size) {
    const Vector2 back = tip - towards * size;
    const Vector2 side = perpendicular(towards) * size * 0.75f;
    return filled({tip, back + side, back - side});
}

IconOutline band(float from, float to, float inner, float outer) {
    constexpr int Steps = 24;
    IconOutline outline;
    for(int i = 0; i <= Steps; ++i)
        outline.push_back(Center + direction(from + (to - from) * float(i) / Steps) * outer);
    for(int i = Steps; i >= 0; --i)
        outline.push_back(Center + direction(from + (to - from) * float(i) / Steps) * inner);
    return filled(std::move(outline));
}

std::vector<IconOutline> move() {
    std::vector<IconOutline> outlines;
    for(const Vector2& towards: {Vector2{1, 0}, Vector2{0, 1}, Vector2{-1, 0}, Vector2{0, -1}}) {
        outlines.push_back(line(Center, Center + towards * (Reach - 140.0f), 90.0f));
        outlines.push_back(head(Center + towards * Reach, towards, 180.0f));
    }
    return outlines;
}

std::vector<IconOutline> rotate() {
    std::vector<IconOutline> outlines;
    for(const float start: {20.0f, 200.0f}) {
        const Vector2 towards = direction(start + 90.0f + 125.0f);
        outlines.push_back(band(start, start + 120.0f, 290.0f, 380.0f));
        outlines.push_back(head(Center + direction(start + 118.0f) * 335.0f + towards * 170.0f, towards, 200.0f));
    }
    return outlines;
}

std::vector<IconOutline> scale() {
    std::vector<IconOutline> outlines;
    for(const float angle: {45.0f, 135.0f, 225.0f, 315.0f}) {
        const Vector2 towards = direction(angle);
        outlines.push_back(line(Center + towards * 90.0f, Center + towards * 400.0f, 80.0f));
        const Vector2 corner = Center + Vector2{Math::sign(towards.x()), Math::sign(towards.y())} * 400.0f;
        const Vector2 x{-Math::sign(towards.x()) * 250.0f, 0.0f}, y{0.0f, -Math::sign(towards.y()) * 250.0f};
        outlines.push_back(filled({corner, corner + x, corner + y}));
    }
    return outlines;
}

std::vector<IconOutline> camera() {
    return {rectangle(at(-Reach, -250.0f), at(150.0f, 250.0f)),
        filled({at(200.0f, -90.0f), at(Reach, -230.0f), at(Reach, 230.0f), at(200.0f, 90.0f)})};
}

std::vector<IconOutline> cube() {
    const float inner = Reach * 0.52f;
    const auto corner = [](float degrees, float radius) { return Center + direction(degrees) * radius; };
    std::vector<IconOutline> outlines{regular(Center, Reach, 6, 90.0f)};
    // The three faces that are seen are cut out but for their edges.
    for(const float angle: {90.0f, 210.0f, 330.0f}) {
        const Vector2 middle = Center + direction(angle) * inner;
        const auto shrunk = [&](const Vector2& point) { return middle + (point - middle) * 0.74f; };
        outlines.push_back(hole({shrunk(Center), shrunk(corner(angle - 60.0f, Reach)), shrunk(corner(angle, Reach)),
            shrunk(corner(angle + 60.0f, Reach))}));
    }
    return outlines;
}

std::vector<IconOutline> globe() {
    std::vector<IconOutline> outlines{circle(Center, Reach), hole(circle(Center, Reach - 75.0f))};
    outlines.push_back(rectangle(at(-Reach + 40.0f, -35.0f), at(Reach - 40.0f, 35.0f)));
    IconOutline outer, inner;
    for(int i = 0; i != 40; ++i) {
        const Vector2 towards = direction(9.0f * float(i));
        outer.push_back(Center + towards * Vector2{220.0f, Reach - 30.0f});
        inner.push_back(Center + towards * Vector2{150.0f, Reach - 30.0f});
    }
    outlines.push_back(filled(outer));
    outlines.push_back(hole(inner));
    return outlines;
}

std::vector<IconOutline> grid() {
    std::vector<IconOutline> outlines;
    for(const float place: {-300.0f, 0.0f, 300.0f}) {
        outlines.push_back(rectangle(at(place - 35.0f, -Reach), at(place + 35.0f, Reach)));
        outlines.push_back(rectangle(at(-Reach, place - 35.0f), at(Reach, place + 35.0f)));
    }
    return outlines;
}

std::vector<IconOutline> protractor() {
    const Vector2 corner = at(-350.0f, -330.0f);
    std::vector<IconOutline> outlines{
        line(corner, corner + Vector2{760.0f, 0.0f}, 80.0f), line(corner, corner + direction(50.0f) * 820.0f, 80.0f)};
    IconOutline arc;
    for(int i = 0; i <= 12; ++i) arc.push_back(corner + direction(50.0f * float(i) / 12.0f) * 520.0f);
    for(int i = 12; i >= 0; --i) arc.push_back(corner + direction(50.0f * float(i) / 12.0f) * 445.0f);
    outlines.push_back(filled(arc));
    return outlines;
}

std::vector<IconOutline> steps() {
    std::vector<IconOutline> outlines{rectangle(at(-Reach, -Reach), at(-60.0f, -60.0f))};
    outlines.push_back(rectangle(at(-Reach, Reach - 75.0f), at(Reach, Reach)));
    outlines.push_back(rectangle(at(Reach - 75.0f, -Reach), at(Reach, Reach - 75.0f)));
    outlines.push_back(line(at(0.0f, 0.0f), at(190.0f, 190.0f), 75.0f));
    outlines.push_back(filled({at(270.0f, 270.0f), at(50.0f, 270.0f), at(270.0f, 50.0f)}));
    return outlines;
}

std::vector<IconOutline> ball() {
    std::vector<IconOutline> outlines{circle(at(60.0f, 110.0f), 310.0f)};
    outlines.push_back(hole(circle(at(-30.0f, 210.0f), 75.0f)));
    outlines.push_back(rectangle(at(-Reach, -Reach), at(Reach, -Reach + 80.0f)));
    outlines.push_back(rectangle(at(-Reach, -230.0f), at(-250.0f, -165.0f)));
    outlines.push_back(rectangle(at(-Reach, 0.0f), at(-330.0f, 65.0f)));
    return outlines;
}

} // namespace

const std::vector<IconShape>& iconShapes() {
    static const std::vector<IconShape> shapes{{0xf03d, camera()}, {0xf0b2, move()}, {0xf1b2, cube()},
        {0xf2f1, rotate()}, {0xf31e, scale()}, {0xf436, ball()}, {0xf568, protractor()}, {0xf7a2, globe()},
        {0xf84c, grid()}, {0xf853, steps()}};
    return shapes;
}

} // namespace VantrelEngine
