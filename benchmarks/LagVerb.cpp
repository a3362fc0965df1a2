#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <Magnum/Image.h>
#include <Magnum/Math/Vector3.h>
#include <Vantrel/EditorData/EditorData.h>

#include "BenchProject.h"
#include "BenchView.h"
#include "GridProject.h"
#include "MouseDrag.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

constexpr Vector2i PictureSize{320, 260};
// After which nothing moves any more.
constexpr int Frames = 6;
constexpr Vector2 Movement{12.0f, 8.0f};

using Picture = std::vector<char>;

Picture pictureOf(BenchView& view) {
    const Image2D image = view.host().picture();
    const auto data = image.data();
    return {data.begin(), data.end()};
}

// Frames after something was done until the picture is what it stays; 0 where it never becomes another one.
int framesUntilShown(BenchView& view, const std::function<void()>& action) {
    const Picture before = pictureOf(view);
    action();
    std::vector<Picture> pictures;
    for(int i = 0; i != Frames; ++i) {
        view.frameSeconds();
        pictures.push_back(pictureOf(view));
    }
    if(pictures.back() == before) return 0;
    int frames = Frames;
    while(frames > 1 && pictures[std::size_t(frames - 2)] == pictures.back()) --frames;
    return frames;
}

void expect(const char* name, int frames, int wanted) { printLine(exactLine("lag", name, "frames", frames, wanted)); }

std::string objectInMiddle(BenchView& view, std::size_t count) {
    ProjectSession& session = view.host().session;
    std::string closest;
    Float least = 0.0f;
    for(const std::string& path: spreadPaths(session, count)) {
        const std::string id = path.substr(path.rfind('/') + 1);
        const Id object = session.compiler().objectOf({id.data(), id.size()});
        const Vector3 place = session.data().scene().main().absoluteTransformation(object).translation();
        const Float distance = (place - gridPlace({})).length();
        if(closest.empty() || distance < least) {
            closest = id;
            least = distance;
        }
    }
    return closest;
}

Vector3 placeOf(BenchView& view, const std::string& id) {
    ProjectSession& session = view.host().session;
    const Id object = session.compiler().objectOf({id.data(), id.size()});
    return session.data().scene().main().absoluteTransformation(object).translation();
}

// The document is edited, as a panel does it.
void move(BenchView& view, const std::string& id) {
    expect("move",
        framesUntilShown(view,
            [&] {
                const std::string path = "/objects/" + id + "/translation";
                view.host().session.changes().recordVector3(
                    {path.data(), path.size()}, placeOf(view, id) + Vector3{0.0f, 2.0f, 0.0f}, false);
            }),
        1);
}

void pick(BenchView& view, const std::string& id) {
    view.host().session.data().selection().clear();
    BenchMouse mouse{view};
    mouse.moveTo(placeInWindow(view, placeOf(view, id)));
    for(int i = 0; i != 2; ++i) view.frameSeconds();
    expect("pick",
        framesUntilShown(view,
            [&] {
                mouse.press(MouseButton::Left);
                mouse.release(MouseButton::Left);
            }),
        1);
}

void drag(BenchView& view) {
    view.host().session.data().selection().clear();
    MouseDrag drag{view, 1};
    drag.begin();
    for(int i = 0; i != 2; ++i) view.frameSeconds();
    expect("drag", framesUntilShown(view, [&] { drag.moveMouse(); }), 1);
    drag.end();
}

void camera(BenchView& view) {
    BenchMouse mouse{view};
    mouse.moveTo(Vector2{view.windowSize()} * 0.6f);
    for(int i = 0; i != 2; ++i) view.frameSeconds();
    mouse.press(MouseButton::Middle);
    view.frameSeconds();
    expect("camera", framesUntilShown(view, [&] { mouse.moveTo(mouse.position() + Movement); }), 1);
    mouse.release(MouseButton::Middle);
}

}

void lag(std::size_t count) {
    BenchView view{PictureSize};
    view.open(BenchProject{gridProject(count)}.path());
    for(int i = 0; i != Frames; ++i) view.frameSeconds();
    const std::string id = objectInMiddle(view, count);
    move(view, id);
    pick(view, id);
    drag(view);
    camera(view);
}

}
