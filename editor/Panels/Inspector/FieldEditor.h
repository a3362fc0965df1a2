#pragma once

#include <string_view>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

#include "Panels/Inspector/EditGesture.h"
#include "Panels/Inspector/FieldContext.h"

namespace VantrelEngine {

struct ObjectPickRequest;

// What a panel of fields keeps between frames, and the way of its edits into the document.
class FieldEditor {
public:
    FieldMemory& memory() { return _memory; }
    // Before the fields are drawn.
    void beginFrame();
    // After they were: nothing of the document that they were drawn of is used any more.
    void apply(ChangeManager& changes, const ProjectFile& file, const Edit& edit);
    // The resource that the user wants to see, where that is another one now.
    void takeAsked(InspectedResource& resource);
    // At the end of each frame, whether the panel was drawn or not.
    void endFrame(ChangeManager& changes);
    // After that: asks the view for an object while a field waits for one, and takes the answer, which the field has in the
    // next frame. Escape, and whatever takes the field away, ends that.
    void updatePick(ObjectPickRequest& request);

    // The middle of a field in the last frame, window points; of one of its numbers. None where it was not in sight: then
    // it is brought there in the next frame.
    std::optional<Magnum::Vector2> placeOf(std::string_view field, int part);

private:
    FieldMemory _memory;
    EditGesture _gesture;
    bool _isDrawn = false;
    // The request is this one's.
    bool _isAsking = false;
};

} // namespace VantrelEngine
